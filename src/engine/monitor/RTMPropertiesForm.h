#pragma once
// The realtime event properties frmRTMProperties as a model: one row of the monitor grid
// in full, walking to the neighbouring rows, the copy text, and the source help, the
// decoding and the help pages of the log views' event properties.
// The window shows it modeless beside the main window.

#include "logs/EventPropertiesBase.h"

#include <QString>

namespace twk {

class Engine;

namespace rtmPropertiesText {
inline const QString kCaption = QStringLiteral(" Realtime Event Properties");
} // namespace rtmPropertiesText

class FrmRTMProperties : public EventPropertiesBase {
public:
    explicit FrmRTMProperties(Engine& engine);

    LabelState lbServer;

    /// Opens on a row of the monitor view (selecting it); false for any other view, a row
    /// outside the grid or a row without a LED.
    bool open(int gridRow);
    /// Page Down: the row below; nothing at the last row or before a row without a LED.
    void cmdDown_Click();
    /// Page Up: the row above; nothing at row 1 or before a row without a LED.
    void cmdUp_Click();
    /// The text the clipboard gets, lines ended by CR LF.
    QString cmdCopy_Click() const;

private:
    void fill(int gridRow);
    void walk(int step);
};

} // namespace twk
