#include "monitor/RTMPropertiesForm.h"

#include "alerts/AlertTexts.h"
#include "core/Engine.h"
#include "logs/EventPropertiesForm.h"
#include "monitor/MonitorRows.h"

#include <QStringList>

namespace twk {

namespace {

bool hasLed(const Grid& grid, int gridRow) {
    return gridRow >= 1 && gridRow <= grid.Rows() && grid.Cols() >= rtmcol::kMessage &&
           grid.CellIcon(gridRow, rtmcol::kLed) >= 0;
}

} // namespace

FrmRTMProperties::FrmRTMProperties(Engine& engine)
    : EventPropertiesBase(engine, QStringLiteral(" up "), QStringLiteral(" down ")) {}

bool FrmRTMProperties::open(int gridRow) {
    if (engine_.view.CurrentView != views::kRealtimeMonitor || !hasLed(engine_.Grid1, gridRow))
        return false;
    engine_.Grid1.setSelectedRow(gridRow);
    fill(gridRow);
    visible = true;
    return true;
}

void FrmRTMProperties::fill(int gridRow) {
    const MonitorRowEvent e = ReadMonitorRow(engine_.Grid1, gridRow);
    row = gridRow;
    lbServer.text = e.server;
    lbDate.text = e.date;
    lbStatus.text = StateWord(e.ledImage);
    lbSource.text = e.source;
    lbCategory.text = e.category;
    lbErrorNumber.text = e.errorNumber;
    lbErrorDesc.text = EventTypeDescription(e.eventImage);
    lbErrorMessage.text = e.message;
    picStatus = e.ledImage;
    picErrorType = e.eventImage;
    lbStatus.isLink = lbStatus.text == QStringLiteral("???");
    lbErrorDesc.isLink = lbErrorDesc.text == kNoEventType;
    cmdFileHook.enabled = messageHasDecoding(lbErrorMessage.text);
}

void FrmRTMProperties::walk(int step) {
    // The grid may hold another view by now: then there is nothing to walk.
    if (!visible || engine_.view.CurrentView != views::kRealtimeMonitor)
        return;
    Grid& g = engine_.Grid1;
    const int limit = step > 0 ? g.Rows() : 1;
    const int selected = g.SelectedRow();
    if (selected == limit || !hasLed(g, selected + step))
        return;
    g.setSelectedRow(selected + step);
    fill(selected + step);
    engine_.view.changed();
}

void FrmRTMProperties::cmdDown_Click() {
    walk(+1);
}

void FrmRTMProperties::cmdUp_Click() {
    walk(-1);
}

QString FrmRTMProperties::cmdCopy_Click() const {
    const QStringList lines = {
        QStringLiteral(" "),
        QStringLiteral("Date: ") + lbDate.text,
        QStringLiteral("Server:              ") + lbServer.text,
        QStringLiteral("Realtime Status:     ") + lbStatus.text,
        QStringLiteral(" "),
        QStringLiteral("Source:              ") + lbSource.text,
        QStringLiteral("Category:            ") + lbCategory.text,
        QStringLiteral(" "),
        QStringLiteral("Error Number:        ") + lbErrorNumber.text,
        QStringLiteral("Error Description:   ") + copiedEventType(),
        QStringLiteral(" "),
        QStringLiteral("Error Message"),
        QStringLiteral("-------------"),
        lbErrorMessage.text,
        QStringLiteral(" "),
        QStringLiteral(" "),
    };
    return copyText(lines);
}

} // namespace twk
