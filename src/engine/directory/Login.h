#pragma once
// Logging in to a tree: whether the user is authenticated to the selected tree
// (IsTreeConnected), the login dialog frmLogin as a model, the success box and the
// menu command mnuLogin. The authentication itself is the directory's (Login of the
// network client); the program keeps no login state of its own.

#include "core/FormControls.h"

#include <QString>

#include <functional>
#include <memory>

namespace twk {

class Engine;

namespace loginText {
inline const QString kCaption = QStringLiteral(" Authorization required!");
inline const QString kUserToolTip =
    QStringLiteral(" Please enter the user login name including the context (user.context)... ");
inline const QString kPasswordToolTip =
    QStringLiteral(" Please enter the user password. Your inputs will be typed with asterisks... ");
inline const QString kConnecting = QStringLiteral(" connecting the tree...");
inline const QString kSuccess = QStringLiteral("Login was successful.");
inline const QString kNotSuccessful = QStringLiteral("Error # 7017\r\nLOGIN NOT SUCCESSFUL!     ");
inline const QString kNotSuccessfulTrace =
    QStringLiteral("frmLogin.cmdOK_Click() Error # 7017, LOGIN NOT SUCCESSFUL!");
inline const QString kFailedTitle = QStringLiteral(" Login FAILED!");
inline const QString kContextHint =
    QStringLiteral("The login name has to be entered including the context (user.context), for "
                   "example...   \r\n\r\nadmin.sales.acme");
inline const QString kAsteriskHint =
    QStringLiteral("Your input will be typed with asterisks...   \r\n\r\n**********");
/// The registry key of the trees; a tree's key holds its last login name.
inline const QString kTreesKey = QStringLiteral("Software\\Brindlex\\TWK\\Trees");
} // namespace loginText

/// The wait after a successful login and before the success box goes, in ms.
inline constexpr int kLoginPauseMs = 1000;
inline constexpr int kLoginSuccessShowMs = 4000;

/// True when the tree selected in cbTree is among the trees the user is authenticated
/// to. The tree list is disabled and the status bar in simple mode while it asks.
bool IsTreeConnected(Engine& engine);

/// "NDS:\\TREE\ACME\SALES\ADMIN" for "ADMIN.SALES.ACME" (one leading and one trailing
/// dot of the name dropped).
QString LoginNdsPath(const QString& tree, const QString& userName);

/// The login dialog.
class FrmLogin {
public:
    explicit FrmLogin(Engine& engine);

    TextBoxState txtbTree;
    TextBoxState txtbServer;
    TextBoxState txtbUser;
    TextBoxState txtbPassword;
    QString caption = loginText::kCaption;
    QString focus;       ///< "txtbUser" or "txtbPassword"
    bool closed = false; ///< the dialog has closed; the window unloads it
    bool loggedIn = false;

    /// Shows frmLoginSuccess modally (set by the window; tests count the calls).
    std::function<void()> showLoginSuccess;

    void Form_Load();
    /// Logs in; the dialog closes on success and stays open otherwise.
    void cmdOK_Click();
    /// Cancel and the window's close control.
    void cmdCancel_Click();
    void imgQuestion_Click();
    void imgPassword_Click();

private:
    Engine& engine_;
};

/// The success box: shows its message and unloads itself 4 seconds after it came up.
class FrmLoginSuccess {
public:
    explicit FrmLoginSuccess(Engine& engine) : engine_(engine) {}
    QString lbMessage = loginText::kSuccess;
    bool closed = false;
    /// Starts the 4 seconds on the engine's clock; `closed` is set when they are over and
    /// `onClosed` called.
    void Form_Activate(std::function<void()> onClosed = {});

private:
    Engine& engine_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); ///< the timer outlives no box
};

/// The menu command: with the tree connected, a pause of a second and the success box;
/// otherwise " please login..." and the login dialog. Either way cbLogFile goes back to
/// its first entry and the status bar is refreshed.
void mnuLogin_Click(Engine& engine, const std::function<void()>& showLogin,
                    const std::function<void()>& showLoginSuccess);

} // namespace twk
