#pragma once
// The event properties dialog frmEventProperties as a model: one row of the SYS$LOG.ERR
// view in full, walking to the neighbouring visible events, the copy text, the source
// help, and the decoding of file system hooks and error codes named in the message.
// The window shows it modeless with the main window as owner.

#include "logs/EventPropertiesBase.h"

#include <QString>
#include <QStringList>

namespace twk {

class Engine;

namespace propertiesText {
inline const QString kCaption = QStringLiteral(" Event-Properties");
inline const QString kHelpPage = QStringLiteral("_syslog.err/_properties/evntprop.htm");
inline const QString kStatusHelpPage = QStringLiteral("_syslog.err/_statusicons/statusicons.htm");
inline const QString kEventTypeHelpPage = QStringLiteral("_syslog.err/_eventicons/noeventicon.htm");
} // namespace propertiesText

/// The lines of the file system hook box, one per hook number.
const QStringList& fileSystemHookLines();
/// The explanation of a source (locus) name; "Source unknown!     " for others.
QStringList sourceHelpLines(const QString& source);
/// Does a message name a file system hook or an error code (enables cmdFileHook)?
bool messageHasDecoding(const QString& message);
/// The information box that explains a source (cmdSourceHelp).
void ShowSourceHelp(Engine& engine, const QString& source);
/// The information box with the file system hook numbers, or with the text of the error
/// code the message names (cmdFileHook); nothing for a message without either.
void ShowMessageDecoding(Engine& engine, const QString& message);

class FrmEventProperties : public EventPropertiesBase {
public:
    explicit FrmEventProperties(Engine& engine);

    LabelState lbTime;
    LabelState lbEventNumber;
    LabelState lbStatusDesc;

    /// Opens on a row of the SYS$LOG.ERR view (the grid's double click, Enter, Find).
    /// False for any other view or a row outside the grid.
    bool open(int gridRow);
    /// Page Down: the next visible row below; nothing at the end.
    void cmdDown_Click();
    /// Page Up: the next visible row above; nothing at row 1.
    void cmdUp_Click();
    /// The text the clipboard gets, lines ended by CR LF.
    QString cmdCopy_Click() const;

private:
    void fill(int gridRow);
    void walk(int step);
};

} // namespace twk
