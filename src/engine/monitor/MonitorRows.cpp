#include "monitor/MonitorRows.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"

namespace twk {

namespace {

const QString kMiscKey = twkKey(QStringLiteral("Realtime Monitor\\Misc"));
constexpr int kSortAscendingImage = 48;
constexpr int kSortDescendingImage = 49;
constexpr int kNotSortedImage = 50;
constexpr int kNoEventTypeImage = 24;

struct StateRowLook {
    int led;
    const char* word;
    std::uint32_t fore;
    std::uint32_t back;
};

StateRowLook lookOf(StateRow state) {
    switch (state) {
    case StateRow::Starting:
        return {led::kUnknown, "monitoring is starting...", rtmcolor::kBlack, rtmcolor::kWhite};
    case StateRow::NotAvailable:
        return {led::kNotAvailable, "monitoring not available", rtmcolor::kGrey,
                rtmcolor::kLightGrey};
    case StateRow::AccessDenied:
        return {led::kUnknown, "ACCESS DENIED", rtmcolor::kRed, rtmcolor::kWhite};
    case StateRow::Offline:
        return {led::kOffline, "OFFLINE", rtmcolor::kRed, rtmcolor::kFailureBack};
    case StateRow::Unknown:
        break;
    }
    return {led::kUnknown, "UNKNOWN", rtmcolor::kRed, rtmcolor::kWhite};
}

bool rowExists(const Engine& engine, int gridRow) {
    return gridRow >= 1 && gridRow <= engine.Grid1.Rows() &&
           engine.Grid1.Cols() >= rtmcol::kMessage;
}

} // namespace

QString StateWord(int ledImage) {
    switch (ledImage) {
    case led::kOnline:
        return QStringLiteral("ONLINE");
    case led::kWarning:
        return QStringLiteral("WARNING");
    case led::kFailure:
        return QStringLiteral("FAILURE");
    case led::kNotAvailable:
        return QStringLiteral("Monitoring not available");
    case led::kOffline:
        return QStringLiteral("OFFLINE");
    case led::kUnknown:
        return QStringLiteral("UNKNOWN");
    default:
        return QStringLiteral("???");
    }
}

void WriteStateRow(Engine& engine, int gridRow, StateRow state, const QString& serverName) {
    if (!rowExists(engine, gridRow))
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    Grid& g = engine.Grid1;
    const StateRowLook look = lookOf(state);
    g.setRedraw(false);
    g.setCellIcon(gridRow, rtmcol::kLed, look.led);
    if (state == StateRow::Starting || state == StateRow::NotAvailable)
        g.setCellText(gridRow, rtmcol::kServer, serverName.toStdString());
    const QString today = engine.clock->now().date().toString(QStringLiteral("yyyy-MM-dd"));
    g.setCellText(gridRow, rtmcol::kDate, today.toStdString());
    g.setCellText(gridRow, rtmcol::kState, look.word);
    for (const int col : {rtmcol::kSource, rtmcol::kCategory, rtmcol::kErrorNr, rtmcol::kMessage})
        g.setCellText(gridRow, col, {});
    g.setCellIcon(gridRow, rtmcol::kEventIcon, kNoEventTypeImage);
    for (int col = rtmcol::kServer; col <= rtmcol::kMessage; ++col) {
        g.setCellForeColor(gridRow, col, look.fore);
        g.setCellBackColor(gridRow, col, look.back);
    }
    g.setRedraw(true);
}

void SetRowState(Engine& engine, int gridRow, int realtimeStatus) {
    Grid& g = engine.Grid1;
    g.setCellIcon(gridRow, rtmcol::kLed, led::kOnline + realtimeStatus);
    if (realtimeStatus == kStateOnline)
        return; // an ONLINE rule keeps the colours of the last WARNING or FAILURE
    for (int col = rtmcol::kServer; col <= rtmcol::kMessage; ++col) {
        if (realtimeStatus == kStateFailure) {
            g.setCellForeColor(gridRow, col, rtmcolor::kRed);
            g.setCellBackColor(gridRow, col, rtmcolor::kFailureBack);
        } else {
            g.setCellBackColor(gridRow, col, rtmcolor::kToolTipBack);
        }
    }
}

int fnFreeGridRow(const Engine& engine) {
    const Grid& g = engine.Grid1;
    if (g.Cols() < rtmcol::kServer)
        return 0;
    for (int row = 1; row <= g.Rows(); ++row)
        if (g.CellText(row, rtmcol::kServer).empty())
            return row;
    return 0;
}

int ServerGridRow(const Engine& engine, const QString& serverName) {
    const Grid& g = engine.Grid1;
    if (g.Cols() < rtmcol::kServer)
        return 0;
    const std::string name = serverName.toStdString();
    for (int row = 1; row <= g.Rows(); ++row)
        if (text::trim(g.CellText(row, rtmcol::kServer)) == name)
            return row;
    return 0;
}

void ApplyAutomaticSort(Engine& engine) {
    const int column = static_cast<int>(text::numericReading(
        engine.registry.Reg_GetValue(Hive::CurrentUser, kMiscKey, QStringLiteral("SortColumn"))
            .toStdString()));
    Grid& g = engine.Grid1;
    if (column < 1 || column > g.Cols())
        return;
    const bool descending =
        text::numericReading(
            engine.registry.Reg_GetValue(Hive::CurrentUser, kMiscKey, QStringLiteral("SortOrder"))
                .toStdString()) != 0;
    MainView& v = engine.view;
    v.busyPointer = true;
    g.sort(column, g.column(column).sortType, descending);
    for (int c = 1; c <= g.Cols(); ++c) {
        GridColumn& col = g.column(c);
        if (c == column)
            col.headerIcon = descending ? kSortDescendingImage : kSortAscendingImage;
        else if (col.headerIcon >= kSortAscendingImage)
            col.headerIcon = kNotSortedImage;
    }
    v.busyPointer = false;
    v.changed();
}

void MonitorColumnClick(Engine& engine, int column) {
    withErrorTail(engine.errors, "Mainfrm.Grid1_ColumnClick(ColumnHeader)", [&] {
        if (column < 1 || column > engine.Grid1.Cols())
            return;
        const QString order =
            engine.registry.Reg_GetValue(Hive::CurrentUser, kMiscKey, QStringLiteral("SortOrder"));
        const quint32 toggled = text::numericReading(order.toStdString()) == 0 ? 1 : 0;
        engine.registry.Reg_SetDWord(Hive::CurrentUser, kMiscKey, QStringLiteral("SortColumn"),
                                     static_cast<quint32>(column));
        engine.registry.Reg_SetDWord(Hive::CurrentUser, kMiscKey, QStringLiteral("SortOrder"),
                                     toggled);
        ApplyAutomaticSort(engine);
    });
}

} // namespace twk
