#include "directory/Login.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/Text.h"
#include "directory/TreeDiscovery.h"

namespace twk {

namespace {

QString treeKey(const QString& tree) {
    return loginText::kTreesKey + QStringLiteral("\\") + tree.toUpper();
}

} // namespace

bool IsTreeConnected(Engine& engine) {
    MainView& v = engine.view;
    const QString tree = treeOfSelection(v.cbTree.text());
    v.cbTree.enabled = false;
    v.simpleText = loginText::kConnecting;
    v.simpleMode = true;
    v.changed();
    bool connected = false;
    withErrorTail(engine.errors, "Mainfrm.IsTreeConnected()", [&] {
        for (const QString& loggedIn : engine.network->directory().LoggedInTrees())
            if (loggedIn.toUpper() == tree)
                connected = true;
    });
    v.cbTree.enabled = true;
    v.simpleMode = false;
    v.changed();
    return connected;
}

QString LoginNdsPath(const QString& tree, const QString& userName) {
    QString name = userName;
    if (name.startsWith(u'.'))
        name.remove(0, 1);
    if (name.endsWith(u'.'))
        name.chop(1);
    const QStringList parts = name.split(u'.');
    QString path = QStringLiteral("NDS:\\\\") + tree;
    for (auto it = parts.crbegin(); it != parts.crend(); ++it)
        path += u'\\' + *it;
    return path;
}

FrmLogin::FrmLogin(Engine& engine) : engine_(engine) {
    txtbTree.enabled = false;
    txtbServer.enabled = false;
    txtbUser.text.clear();
    txtbPassword.text.clear();
}

void FrmLogin::Form_Load() {
    const MainView& v = engine_.view;
    txtbTree.text = treeOfSelection(v.cbTree.text());
    txtbServer.text = text::trimBlanks(v.cbServer.text());
    const QString stored =
        engine_.registry.Reg_GetValue(Hive::CurrentUser, treeKey(txtbTree.text), QString());
    if (!stored.isEmpty()) {
        txtbUser.text = stored;
        focus = QStringLiteral("txtbPassword");
    } else {
        focus = QStringLiteral("txtbUser");
    }
}

void FrmLogin::cmdOK_Click() {
    const QString user = txtbUser.text;
    const QString path = LoginNdsPath(txtbTree.text, user);
    const auto result = engine_.network->directory().Login(path, txtbPassword.text);
    if (result.failed()) {
        engine_.ui.messageBox(
            QStringLiteral("Error # %1     \r\n%2").arg(result.error).arg(result.description),
            MsgIcon::Critical, MsgButtons::Ok, loginText::kFailedTitle);
        if (engine_.DebugMode)
            engine_.trace.traceEvent(QStringLiteral("frmLogin: Error # %1 %2")
                                         .arg(result.error)
                                         .arg(result.description));
        return;
    }
    if (!result.value) {
        engine_.ui.messageBox(loginText::kNotSuccessful, MsgIcon::Critical, MsgButtons::Ok,
                              kMessageTitle);
        if (engine_.DebugMode)
            engine_.trace.traceEvent(loginText::kNotSuccessfulTrace);
        return;
    }
    QString name = user;
    if (name.startsWith(u'.'))
        name.remove(0, 1);
    if (name.endsWith(u'.'))
        name.chop(1);
    const QString key = treeKey(txtbTree.text);
    engine_.registry.RegCreateKey(Hive::CurrentUser, key);
    engine_.registry.Reg_SetString(Hive::CurrentUser, key, QString(), name.toLower());
    loggedIn = true;
    engine_.clock->sleep(kLoginPauseMs, engine_.ui);
    if (showLoginSuccess)
        showLoginSuccess();
    closed = true;
}

void FrmLogin::cmdCancel_Click() {
    MainView& v = engine_.view;
    v.cbTree.enabled = true;
    v.simpleMode = false;
    v.changed();
    closed = true;
}

void FrmLogin::imgQuestion_Click() {
    engine_.ui.messageBox(loginText::kContextHint, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
}

void FrmLogin::imgPassword_Click() {
    engine_.ui.messageBox(loginText::kAsteriskHint, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
}

void FrmLoginSuccess::Form_Activate(std::function<void()> onClosed) {
    engine_.clock->singleShot(kLoginSuccessShowMs,
                              [this, alive = std::weak_ptr<bool>(alive_), onClosed] {
                                  if (alive.expired())
                                      return;
                                  closed = true;
                                  if (onClosed)
                                      onClosed();
                              });
}

void mnuLogin_Click(Engine& engine, const std::function<void()>& showLogin,
                    const std::function<void()>& showLoginSuccess) {
    MainView& v = engine.view;
    if (IsTreeConnected(engine)) {
        engine.clock->sleep(kLoginPauseMs, engine.ui);
        if (showLoginSuccess)
            showLoginSuccess();
    } else {
        v.simpleText = mainText::kPleaseLogin;
        v.simpleMode = true;
        v.changed();
        if (showLogin)
            showLogin();
    }
    if (!v.cbLogFile.items.isEmpty())
        v.cbLogFile.ListIndex = 0;
    v.simpleMode = false;
    v.changed();
}

} // namespace twk
