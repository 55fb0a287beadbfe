// The remote console launcher and its options: which console starts with which
// argument, in which folder, and what a missing console or a missing choice leads to.

#include "tools/RemoteConsole.h"
#include "ToolsTestSupport.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QString kTwk = QStringLiteral("Software\\Brindlex\\TWK");

/// Records each start with the current folder at that moment.
class FolderDesktop : public test::FakeDesktop {
public:
    std::vector<QString> folders;
    bool startProgram(const QString& program, const QStringList& arguments) override {
        folders.push_back(QDir::currentPath());
        return FakeDesktop::startProgram(program, arguments);
    }
};

class RemoteConsole : public ::testing::Test {
protected:
    RemoteConsole() {
        t.engine->desktop = &desktop;
        ipx = t.tree.write("consoles/rconsole.exe", "x");
        ip = t.tree.write("consoles/java dir/RCONJ.EXE", "x");
    }
    void set(const QString& key, const QString& value) {
        t.engine->registry.Reg_SetString(Hive::CurrentUser, kTwk + "\\" + key, QString(), value);
    }
    void run(const QString& server) {
        RemoteControl(*t.engine, server, [this](const QString& s) { optionsFor << s; });
    }
    test::ToolsEngine t;
    FolderDesktop desktop;
    QString ipx;
    QString ip;
    QStringList optionsFor;
};

} // namespace

TEST_F(RemoteConsole, EachTypeStartsItsConsoleWithItsTarget) {
    set("RConsole", ipx);
    set("RConJava", ip);
    const QString home = QDir::currentPath();
    struct Case {
        const char* type;
        QString started;
        bool inOwnFolder;
    };
    const Case cases[] = {
        {"RConsole", ipx + " FS1", false},
        {"RConJava", ip + " FS1", true},
        {"10.1.1.11", ip + " 10.1.1.11", true},
    };
    for (const Case& c : cases) {
        set("Server\\FS1", QString::fromLatin1(c.type));
        desktop.opened.clear();
        desktop.folders.clear();
        run(" FS1 ");
        ASSERT_EQ(desktop.opened.size(), 1u) << c.type;
        EXPECT_EQ(desktop.opened[0], c.started);
        EXPECT_EQ(desktop.folders[0] == QFileInfo(ip).absolutePath(), c.inOwnFolder) << c.type;
        EXPECT_EQ(QDir::currentPath(), home) << "the program's own folder again";
    }
    EXPECT_TRUE(optionsFor.isEmpty());
    EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(RemoteConsole, NoTypeOpensTheOptionsAndMissingConsolesAreSaid) {
    run("FS1");
    EXPECT_EQ(optionsFor, QStringList{"FS1"});
    set("Server\\FS1", "not defined");
    run("FS1");
    EXPECT_EQ(optionsFor.size(), 1) << "not defined: nothing at all";

    set("Server\\FS1", "RConsole");
    run("FS1");
    EXPECT_EQ(t.lastMessage(), "Rconsole.exe can't be found.     \r\nPlease set the path...");
    set("RConsole", t.tree.path("consoles/gone.exe"));
    set("Server\\FS1", "10.0.0.1");
    run("FS1");
    EXPECT_EQ(t.lastMessage(), "Rconj.exe can't be found.       \r\nPlease set the path...");
    EXPECT_EQ(optionsFor.size(), 3);
    EXPECT_TRUE(desktop.opened.empty());
}

TEST_F(RemoteConsole, TheOptionsShowAndStoreEachServersChoice) {
    set("Server\\FS2", "10.1.1.12");
    FrmRConsole form(*t.engine);
    form.Form_Load("FS2");
    EXPECT_EQ(form.lbxServer.items, (QStringList{"FS1", "FS2"}));
    EXPECT_EQ(form.lbRConsole.text, "path not defined");
    EXPECT_TRUE(form.rbRConJ && form.chkIPAddress.checked && form.chkIPAddress.enabled);
    EXPECT_EQ(form.txbIPAddress.text, "10.1.1.12");

    form.lbxServer.ListIndex = 0;
    form.lbxServer_Click();
    EXPECT_TRUE(form.rbNotDefined);
    EXPECT_FALSE(form.chkHostname.enabled);
    form.rbRConJ_Click();
    EXPECT_TRUE(form.chkHostname.checked && form.chkHostname.enabled);
    form.chkIPAddress_Click();
    EXPECT_FALSE(form.chkHostname.checked);
    form.txbIPAddress.text = "no address";
    form.cmdSave_Click();
    EXPECT_EQ(t.lastMessage(), rconsoleText::kNoAddress);
    form.chkHostname_Click();
    form.cmdSave_Click();
    EXPECT_EQ(ConnectionType(t.engine->registry, "FS1"), "RConJava");
    EXPECT_EQ(t.lastMessage(), "Remote Console Options for Server       \r\nFS1\r\n successfully "
                               "saved!       ");

    form.cmdRConsole_Chosen(ipx);
    EXPECT_EQ(form.lbRConsole.text, ipx);
    form.cmdRConJ_Chosen("\\\\FS1\\SYS\\PUBLIC\\rconj.exe");
    EXPECT_EQ(t.lastMessage(), "Rconj.exe doesn't accept UNC-Paths.   \r\nUse a drive mapping "
                               "instead.");
    EXPECT_EQ(form.lbRConJ.text, "path not defined");
    form.cmdRConJ_Chosen("/opt/it's \"mine\"/afreecon.exe");
    EXPECT_EQ(ipConsolePath(t.engine->registry), "/opt/it's \"mine\"/afreecon.exe");
    EXPECT_EQ(ipConsoleFilters().size(), 5);
    EXPECT_EQ(ipConsoleFilters()[3].name, "AdRem AFREECON (afreecon.exe)");
}
