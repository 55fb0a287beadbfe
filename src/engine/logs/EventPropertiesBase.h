#pragma once
// What the two event properties dialogs (of the SYS$LOG.ERR view and of the realtime
// monitor) share: the labels and images of one event, the buttons, what a click on the
// source, the message, the status and the event type opens, and the copy text's lines.

#include "core/FormControls.h"

#include <QString>
#include <QStringList>

namespace twk {

class Engine;

class EventPropertiesBase {
public:
    /// The event type's text when the row has no event type image.
    static inline const QString kNoEventType = QStringLiteral("icon not available");

    LabelState lbDate;
    LabelState lbStatus;
    LabelState lbSource;
    LabelState lbCategory;
    LabelState lbErrorDesc;
    LabelState lbErrorNumber;
    LabelState lbErrorMessage;
    int picStatus = -1;    ///< image index of the status (severity icon or LED)
    int picErrorType = -1; ///< image index of the event type icon
    ButtonState cmdUp;
    ButtonState cmdDown;
    ButtonState cmdCopy{QStringLiteral(" copy to clipboard ")};
    ButtonState cmdExit{QStringLiteral(" exit ")};
    ButtonState cmdSourceHelp;
    ButtonState cmdFileHook;
    bool visible = false;
    int row = 0; ///< the grid row shown

    /// Shows what the source means.
    void cmdSourceHelp_Click();
    /// Shows the file system hook numbers, or the text of the error code of the message.
    void cmdFileHook_Click();
    /// The help page a click on the status opens; empty unless it is a link.
    QString lbStatus_Click() const;
    /// The help page a click on the event type opens; empty unless it is a link.
    QString lbErrorDesc_Click() const;
    /// Exit and Esc.
    void cmdExit_Click();

protected:
    EventPropertiesBase(Engine& engine, const QString& upCaption, const QString& downCaption);
    /// The event type as the copy text names it.
    QString copiedEventType() const;
    /// The copy text: each line ended by CR LF.
    static QString copyText(const QStringList& lines);

    Engine& engine_;
};

} // namespace twk
