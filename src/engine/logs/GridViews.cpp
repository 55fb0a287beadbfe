#include "logs/GridViews.h"

#include "core/Engine.h"

namespace twk {

namespace {

GridColumn col(const char* key, const char* header, int width,
               SortType type = SortType::TextNoCase) {
    return textColumn(key, header, width, type);
}

GridColumn iconCol(const char* key, const char* header, int width,
                   SortType type = SortType::Icon) {
    return iconColumn(key, header, width, type);
}

std::vector<GridColumn> sysLogColumns(const std::array<int, 10>& w) {
    return {iconCol("icon", "", w[0]),
            col("date", "Date", w[1], SortType::Number),
            col("time", "Time", w[2], SortType::None),
            col("state", "Status", w[3]),
            col("source", "Source", w[4]),
            col("category", "Category", w[5]),
            col("event", "Event #", w[6], SortType::Number),
            iconCol("eventicon", "Event...", w[7]),
            col("errorNr", "Error #", w[8]),
            col("errorMessage", "Error Message", w[9])};
}

std::vector<GridColumn> monitorColumns() {
    return {iconCol("icon", "", 25),
            col("server", "Server", 106),
            col("date", "Date", 148),
            col("state", "Status", 123),
            col("source", "Source", 106),
            col("category", "Category", 136),
            iconCol("eventicon", "Event-Icon", 69),
            col("errorNr", "Error #", 119),
            col("errorMessage", "Error Message", 1220)};
}

std::vector<GridColumn> filterRuleColumns() {
    return {iconCol("rticon", "", 25, SortType::None),
            col("rtstatus", "Realtime Status", 100, SortType::None),
            col("rulenumber", "Rule #", 70, SortType::None),
            iconCol("eventstatusicon", "", 27, SortType::None),
            col("eventstatus", "Event Status", 136, SortType::None),
            col("source", "Source", 136, SortType::None),
            col("category", "Category", 136, SortType::None),
            iconCol("eventtypeicon", "Event Icon", 69, SortType::None),
            col("eventtype", "Event Type", 200, SortType::None),
            col("errormessage1", "Error Message Search String 1", 200, SortType::None),
            col("errormessage2", "Error Message Search String 2", 200, SortType::None),
            col("localpopup", "Local Popup", 82, SortType::None),
            col("remotepopup", "Remote Popup", 82, SortType::None),
            col("email", "E-Mail", 82, SortType::None),
            col("eventforwarding", "Event Forwarding", 82, SortType::None),
            col("wavefile", "Wave File", 300, SortType::None),
            col("logging", "Local Logfile", 82, SortType::None),
            col("nteventlog", "NT Event Log", 82, SortType::None),
            col("nteventlogcategory", "NT Event Log Category", 200, SortType::None),
            col("nteventlogid", "NT Event Log ID", 100, SortType::None)};
}

void setLogToolTips(MainView& v, const QString& first, const QString& last) {
    v.pane(LastEntry).toolTip = first;
    v.pane(FirstEntry).toolTip = last;
}

} // namespace

void CreateNewTable(Engine& engine, const QString& kind) {
    MainView& v = engine.view;
    std::vector<GridColumn> columns;
    if (kind == views::kSysLogErr) {
        v.pane(EntryPos).toolTip = QStringLiteral(" selected event / total events ");
        setLogToolTips(v, QStringLiteral(" last entry "), QStringLiteral(" first entry "));
        columns = sysLogColumns(engine.sysLogColumnWidths());
    } else if (kind == views::kConsoleLog) {
        v.pane(EntryPos).toolTip = QStringLiteral(" selected event / total events ");
        setLogToolTips(v, QStringLiteral(" first entry "), QStringLiteral(" last entry "));
        columns = {col("col1", "row", 48, SortType::None), col("col2", "action", 934, SortType::None)};
    } else if (kind == views::kCronlog) {
        v.pane(EntryPos).toolTip = QStringLiteral(" selected event / total events ");
        setLogToolTips(v, QStringLiteral(" first entry "), QStringLiteral(" last entry "));
        columns = {iconCol("col1", "  status", 48, SortType::None),
                   col("col2", "event", 48, SortType::None),
                   col("col3", "action", 886, SortType::None)};
    } else if (kind == views::kAbendLog) {
        v.pane(EntryPos).toolTip = QStringLiteral(" selected abend / totals abends ");
        setLogToolTips(v, QStringLiteral(" first abend "), QStringLiteral(" last abend "));
        columns = {col("col1", "  ", 34, SortType::None), col("col2", "ABEND.LOG", 943, SortType::None)};
    } else if (kind == views::kRealtimeMonitor) {
        columns = monitorColumns();
    } else if (kind == views::kFilterRules) {
        columns = filterRuleColumns();
    } else if (kind == views::kHealthCheck3) {
        columns = {col("col1", "", 34, SortType::None),
                   col("col2",
                       "  NDS-/eDirectory Health Check Report Step3:   Server-To-Server "
                       "Synchronization",
                       944, SortType::None)};
    }
    engine.Grid1.setColumns(std::move(columns));

    if (kind == views::kFilterRules) {
        v.caption = QStringLiteral(" Realtime Event Filter Rules...");
        v.closeCaption = QStringLiteral("close filter rules      ");
        v.pane(Tips).text = QStringLiteral("double click a row to create, modify or remove a filter rule...");
        v.setViewBullets(true);
        v.CurrentView = kind;
    } else if (kind == views::kRealtimeMonitor) {
        v.closeCaption = QStringLiteral("stop monitoring      ");
        v.setViewBullets(true);
        v.CurrentView = kind;
    }
    v.changed();
}

void Grid1_ColumnClick(Engine& engine, int column) {
    MainView& v = engine.view;
    Grid& g = engine.Grid1;
    const QString& view = v.CurrentView;
    if (view.isEmpty() || g.Rows() == 0 || view == views::kConsoleLog || view == views::kCronlog ||
        view == views::kAbendLog || view == views::kFilterRules || view == views::kHealthCheck3 ||
        view == views::kRealtimeMonitor)
        return;
    if (column < 1 || column > g.Cols())
        return;
    // The date is the server's text and cannot be sorted: the event number stands in.
    if (g.column(column).key == "date")
        column = g.columnOfKey("event");
    GridColumn& c = g.column(column);
    if (c.sortType == SortType::None)
        return;
    const bool descending = c.tag.empty();
    c.tag = descending ? "DESC" : "";
    g.sort(column, c.sortType, descending);

    int row = 1;
    if (v.pane(EntryPos).icon == QStringLiteral("imgFilter")) {
        row = 0;
        for (int r = 1; r <= g.Rows(); ++r)
            if (g.RowVisible(r)) {
                row = r;
                break;
            }
    }
    g.setSelectedRow(row);
    if (row > 0) {
        v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 7)) + QStringLiteral("/") +
                                QString::number(g.Rows());
        v.pane(Tips).text = QString::fromUtf8(g.CellText(row, 10));
    }
    v.changed();
}

void Grid1_ColumnWidthChanged(Engine& engine, int column, int width) {
    if (column < 1 || column > engine.Grid1.Cols())
        return;
    engine.Grid1.column(column).width = width;
    if (engine.view.CurrentView == views::kSysLogErr ||
        (engine.view.CurrentView.isEmpty() && engine.Grid1.Cols() == 10))
        engine.saveSysLogColumnWidth(column, width);
}

void Grid1_SelectionChanged(Engine& engine, int row) {
    MainView& v = engine.view;
    Grid& g = engine.Grid1;
    g.setSelectedRow(row);
    if (row < 1 || row > g.Rows())
        return;
    const QString total = QStringLiteral("/") + QString::number(g.Rows());
    if (v.CurrentView == views::kSysLogErr) {
        if (v.pane(EntryPos).icon == QStringLiteral("imgFile"))
            v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 7)) + total;
        v.pane(Tips).text = QString::fromUtf8(g.CellText(row, 10));
    } else if (v.CurrentView == views::kConsoleLog) {
        v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 1)) + total;
    } else if (v.CurrentView == views::kCronlog) {
        v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 2)) + total;
    }
    v.changed();
}

} // namespace twk
