#include "logs/ViewFilter.h"

#include "core/Engine.h"
#include "core/Text.h"

namespace twk {

bool viewIsFiltered(const MainView& view) {
    return view.pane(EntryPos).icon == kImgFilter;
}

int paneTotal(const MainView& view) {
    const QString& text = view.pane(EntryPos).text;
    const auto slash = text.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return 0;
    const std::int64_t total = text::numericReading(text.mid(slash + 1).toStdString());
    return total < 0 || total > INT32_MAX ? 0 : static_cast<int>(total);
}

void enterFilteredState(Engine& engine) {
    MainView& v = engine.view;
    Grid& g = engine.Grid1;
    v.pane(EntryPos).icon = kImgFilter;
    int first = 0;
    for (int r = 1; r <= g.Rows(); ++r)
        if (g.RowVisible(r)) {
            first = r;
            break;
        }
    g.setSelectedRow(first);
    v.pane(EntryPos).text =
        QString::number(g.visibleRowCount()) + QStringLiteral("/") + QString::number(g.Rows());
    v.pane(EntryPos).toolTip = kFilteredToolTip;
    v.menu(QStringLiteral("mnuViewAll")).enabled = true;
    v.menu(QStringLiteral("mnuViewFilter")).enabled = true;
    v.setViewBullets(false);
    v.changed();
}

void ShowAllRows(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.mnuViewAll_Click()", [&] {
        MainView& v = engine.view;
        Grid& g = engine.Grid1;
        v.busyPointer = true;
        g.setRedraw(false);
        {
            PaneProgress progress(engine, g.Rows());
            for (int r = 1; r <= g.Rows(); ++r) {
                g.setRowVisible(r, true);
                progress.set(r);
            }
        }
        g.setSelectedRow(1);
        v.pane(EntryPos).icon = kImgFile;
        const QString rows = QString::number(g.Rows());
        const bool sysLog = v.CurrentView == views::kSysLogErr;
        // Row 1 of the unsorted SYS$LOG.ERR view holds the newest event, whose number
        // is the count of rows.
        v.pane(EntryPos).text = (sysLog ? rows : QStringLiteral("1")) + QStringLiteral("/") + rows;
        v.pane(EntryPos).toolTip = kUnfilteredToolTip;
        if (sysLog && g.Rows() > 0 && g.Cols() >= 10)
            v.pane(Tips).text = QString::fromUtf8(g.CellText(1, 10));
        v.menu(QStringLiteral("mnuViewAll")).enabled = false;
        v.menu(QStringLiteral("mnuViewFilter")).enabled = false;
        v.setViewBullets(true);
        v.busyPointer = false;
        g.setRedraw(true);
        v.changed();
    });
}

PaneProgress::PaneProgress(Engine& engine, long long maximum) : engine_(engine) {
    PaneProgressBar& bar = engine_.view.ProgressBar1;
    bar.Max = maximum;
    bar.Value = 0;
    bar.visible = true;
    step_ = maximum / 100 > 0 ? maximum / 100 : 1;
    nextNotice_ = step_;
    engine_.view.changed();
}

void PaneProgress::set(long long value) {
    engine_.view.ProgressBar1.Value = value;
    if (value >= nextNotice_) {
        nextNotice_ = value + step_;
        engine_.view.changed();
    }
    engine_.yieldIfDue();
}

void PaneProgress::finish() {
    if (!running_)
        return;
    running_ = false;
    PaneProgressBar& bar = engine_.view.ProgressBar1;
    bar.visible = false;
    bar.Value = 0;
    engine_.view.changed();
}

} // namespace twk
