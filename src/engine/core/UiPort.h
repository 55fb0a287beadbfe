#pragma once
// What the engine shows to the user goes through this port: the window program
// implements it with Qt dialogs, the command line prints, tests record.

#include <QString>
#include <QStringList>

namespace twk {

enum class MsgIcon { None, Information, Exclamation, Critical, Question };
enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MsgResult { Ok, Cancel, Yes, No };

/// The styled, frameless box (headline, lines 1 to 8, line 5 may be a link).
struct StyledMessage {
    QString formCaption;
    QString headline;
    QStringList lines; ///< lbZeile1 .. lbZeile8
    bool line5IsLink = false;
};

/// The title every message box of the program carries, with its leading blank.
inline const QString kMessageTitle = QStringLiteral(" Tarnwick");

class UiPort {
public:
    virtual ~UiPort() = default;
    virtual MsgResult messageBox(const QString& text, MsgIcon icon, MsgButtons buttons,
                                 const QString& title) = 0;
    virtual void styledMessage(const StyledMessage& message) = 0;
    /// Lets the event loop run (the window stays responsive during long work).
    virtual void yield() = 0;
    /// Shows the small wait window (frmSearchWait, frmNDSScan) with its message, without
    /// blocking; hideWaitForm takes it away.
    virtual void showWaitForm(const QString& message) { (void)message; }
    virtual void hideWaitForm() {}
};

/// A port that shows nothing and answers every question with its default button.
class SilentUi : public UiPort {
public:
    MsgResult messageBox(const QString&, MsgIcon, MsgButtons buttons, const QString&) override {
        return buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel ? MsgResult::Yes
                                                                                  : MsgResult::Ok;
    }
    void styledMessage(const StyledMessage&) override {}
    void yield() override {}
};

} // namespace twk
