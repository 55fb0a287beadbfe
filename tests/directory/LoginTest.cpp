#include "directory/Login.h"
#include "DirectoryTestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kLoginNetwork =
    "[tree ACME_TREE]\nlogged-in = no\n"
    "[server FS1]\ntree = ACME_TREE\ncontext = ACME\nvolumes = SYS\n"
    "[user ADMIN]\ntree = ACME_TREE\ncontext = ACME\npassword = novell\n";

class Login : public ::testing::Test {
protected:
    void SetUp() override {
        net.describe(kLoginNetwork);
        net.engine.clock = &clock;
        net.engine.view.cbTree.items = {"ACME_TREE"};
        net.engine.view.cbTree.ListIndex = 0;
        net.engine.view.cbServer.items = {" FS1 "};
        net.engine.view.cbServer.ListIndex = 0;
    }
    QString stored() {
        return net.engine.registry.Reg_GetValue(Hive::CurrentUser,
                                                loginText::kTreesKey + "\\ACME_TREE", {}, "none");
    }
    VirtualClock clock;
    test::NetworkEngine net;
};

} // namespace

TEST(LoginPath, DotsAndContextsTurnIntoAPath) {
    EXPECT_EQ(LoginNdsPath("T", "ADMIN.SALES.ACME"), "NDS:\\\\T\\ACME\\SALES\\ADMIN");
    EXPECT_EQ(LoginNdsPath("T", ".ADMIN.SALES.ACME."), "NDS:\\\\T\\ACME\\SALES\\ADMIN");
    EXPECT_EQ(LoginNdsPath("T", "ADMIN"), "NDS:\\\\T\\ADMIN");
}

TEST_F(Login, AWrongPasswordKeepsTheDialogOpenAndARightOneStoresTheName) {
    EXPECT_FALSE(IsTreeConnected(net.engine));
    EXPECT_TRUE(net.engine.view.cbTree.enabled);
    FrmLogin form(net.engine);
    int successes = 0;
    form.showLoginSuccess = [&] {
        ++successes;
    };
    form.Form_Load();
    EXPECT_EQ(form.txtbTree.text, "ACME_TREE");
    EXPECT_EQ(form.txtbServer.text, "FS1");
    EXPECT_EQ(form.focus, "txtbUser");

    form.txtbUser.text = ".Admin.Acme.";
    form.txtbPassword.text = "wrong";
    form.cmdOK_Click();
    ASSERT_EQ(net.ui.messages.size(), 1u);
    EXPECT_EQ(net.ui.messages[0].text, "Error # 7017\r\nLOGIN NOT SUCCESSFUL!     ");
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(stored(), "none");

    form.txtbPassword.text = "novell";
    form.cmdOK_Click();
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(successes, 1);
    EXPECT_EQ(clock.elapsedMs(), kLoginPauseMs);
    EXPECT_EQ(stored(), "admin.acme");
    EXPECT_TRUE(IsTreeConnected(net.engine));

    FrmLogin again(net.engine);
    again.Form_Load();
    EXPECT_EQ(again.txtbUser.text, "admin.acme");
    EXPECT_EQ(again.focus, "txtbPassword");
}

TEST_F(Login, CancelLeavesNoTraceAndTheMenuOpensTheDialogUntilLoggedIn) {
    net.engine.view.cbLogFile.items = {"select logfile...", "SYS$LOG.ERR"};
    net.engine.view.cbLogFile.ListIndex = 1;
    int dialogs = 0, successes = 0;
    mnuLogin_Click(
        net.engine,
        [&] {
            ++dialogs;
            EXPECT_EQ(net.engine.view.simpleText, " please login...");
            FrmLogin form(net.engine);
            form.Form_Load();
            form.cmdCancel_Click();
            EXPECT_TRUE(form.closed);
        },
        [&] { ++successes; });
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(stored(), "none");
    EXPECT_EQ(net.engine.view.cbLogFile.ListIndex, 0);

    ASSERT_TRUE(
        net.engine.network->directory().Login("NDS:\\\\ACME_TREE\\ACME\\ADMIN", "novell").value);
    mnuLogin_Click(
        net.engine, [&] { ++dialogs; }, [&] { ++successes; });
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(successes, 1);
}

TEST_F(Login, TheSuccessBoxGoesAfterFourSeconds) {
    FrmLoginSuccess box(net.engine);
    box.Form_Activate();
    clock.advance(kLoginSuccessShowMs - 1);
    EXPECT_FALSE(box.closed);
    clock.advance(1);
    EXPECT_TRUE(box.closed);
    {
        FrmLoginSuccess gone(net.engine);
        gone.Form_Activate();
    }
    clock.advance(kLoginSuccessShowMs); // a box closed early is not touched
}
