#pragma once
// Fills the grid with SYS$LOG.ERR rows written by the test, as the reader leaves them:
// newest entry in row 1, event numbers counted from the oldest, panes 1 to 3 set.

#include "core/Engine.h"
#include "logs/GridViews.h"

#include <ostream>
#include <string>
#include <vector>

/// Failed comparisons of texts print the text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace twk::test {

struct SysRow {
    std::string date;
    std::string state = "Informational";
    std::string source = "Disk";
    std::string category = "General Information";
    int eventIcon = 24;
    std::string errorNr = " NR";
    std::string message = "message";
    int statusIcon = 0;
    std::string time = "10:00:00 am";
};

/// `oldestFirst` lists the entries in file order; row 1 gets the last one.
inline void fillSysLog(Engine& engine, const std::vector<SysRow>& oldestFirst) {
    CreateNewTable(engine, views::kSysLogErr);
    Grid& g = engine.Grid1;
    const int n = static_cast<int>(oldestFirst.size());
    g.setRows(n);
    for (int i = 0; i < n; ++i) {
        const SysRow& e = oldestFirst[static_cast<std::size_t>(i)];
        const int row = n - i;
        g.setCellIcon(row, 1, e.statusIcon);
        g.setCellText(row, 2, e.date);
        g.setCellText(row, 3, e.time);
        g.setCellText(row, 4, e.state);
        g.setCellText(row, 5, e.source);
        g.setCellText(row, 6, e.category);
        g.setCellText(row, 7, std::to_string(i + 1));
        g.setCellIcon(row, 8, e.eventIcon);
        g.setCellText(row, 9, e.errorNr);
        g.setCellText(row, 10, e.message);
    }
    MainView& v = engine.view;
    v.CurrentView = views::kSysLogErr;
    v.setMenusLogOpen(views::kSysLogErr);
    v.pane(EntryPos).text = QString::number(n) + "/" + QString::number(n);
    if (n > 0) {
        v.pane(FirstEntry).text = QString::fromStdString(oldestFirst.front().date);
        v.pane(LastEntry).text = QString::fromStdString(oldestFirst.back().date);
    }
    g.setSelectedRow(n > 0 ? 1 : 0);
}

/// The event numbers (column 7) of the visible rows, top to bottom.
inline std::vector<int> visibleEvents(const Engine& engine) {
    std::vector<int> events;
    const Grid& g = engine.Grid1;
    for (int r = 1; r <= g.Rows(); ++r)
        if (g.RowVisible(r))
            events.push_back(std::stoi(std::string(g.CellText(r, 7))));
    return events;
}

/// A grid of one text column per row for the line views (CONSOLE.LOG, CRONLOG, ABEND.LOG).
inline void fillLineView(Engine& engine, const QString& kind,
                         const std::vector<std::string>& lines) {
    CreateNewTable(engine, kind);
    Grid& g = engine.Grid1;
    const int n = static_cast<int>(lines.size());
    g.setRows(n);
    const int textColumn = kind == views::kCronlog ? 3 : 2;
    for (int r = 1; r <= n; ++r) {
        if (kind == views::kCronlog) {
            g.setCellIcon(r, 1, 34);
            g.setCellText(r, 2, std::to_string(r));
        } else if (kind == views::kConsoleLog) {
            g.setCellText(r, 1, std::to_string(r));
        }
        g.setCellText(r, textColumn, lines[static_cast<std::size_t>(r - 1)]);
    }
    engine.view.CurrentView = kind;
    engine.view.setMenusLogOpen(kind);
    engine.view.pane(EntryPos).text = QString::number(n) + "/" + QString::number(n);
}

} // namespace twk::test
