#include "logs/FilterCronlog.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/Cronlog.h"
#include "logs/GridColumns.h"
#include "logs/ViewFilter.h"

namespace twk {

void FilterCronlogModel::txtbAction_GotFocus() {
    if (txtbAction == kPrompt)
        txtbAction.clear();
}

void FilterCronlogModel::setAll(bool checked) {
    for (FilterCheckBox* box : {&chkSetCronlogSize, &chkActionSuccessful, &chkActionFailed,
                                &chkCronStarted, &chkCronStopped})
        box->checked = checked;
}

int FilterCronlogModel::passCount() const {
    int passes = 0;
    for (const FilterCheckBox* box : {&chkSetCronlogSize, &chkActionSuccessful, &chkActionFailed,
                                      &chkCronStarted, &chkCronStopped})
        passes += box->checked ? 0 : 1;
    if (txtbAction != kPrompt)
        ++passes;
    return passes;
}

void FilterCronlogModel::step() {
    if (progress_ != nullptr)
        progress_->set(++done_);
}

void FilterCronlogModel::hideRowsWithIcon(int icon) {
    Grid& grid = engine_.Grid1;
    for (int row = 1; row <= grid.Rows(); ++row) {
        if (grid.CellIcon(row, croncol::kStatus) == icon)
            grid.setRowVisible(row, false);
        step();
    }
}

void FilterCronlogModel::hideRowsWithoutText(const QString& wanted) {
    Grid& grid = engine_.Grid1;
    const std::string needle = wanted.toStdString();
    for (int row = 1; row <= grid.Rows(); ++row) {
        if (!text::containsCaseBlind(grid.CellText(row, croncol::kText), needle))
            grid.setRowVisible(row, false);
        step();
    }
}

void FilterCronlogModel::cmdFilter_Click() {
    withErrorTail(engine_.errors, "frmFilterCronlog.cmdFilter_Click()", [&] {
        const bool anyChecked = chkSetCronlogSize.checked || chkActionSuccessful.checked ||
                                chkActionFailed.checked || chkCronStarted.checked ||
                                chkCronStopped.checked;
        if (!anyChecked) {
            engine_.ui.messageBox(QStringLiteral("Select at least one status icon     \r\n"
                                                 "to create a valid filter option!"),
                                  MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
            return;
        }
        const int passes = passCount();
        if (passes == 0) {
            engine_.ui.messageBox(QStringLiteral("Your selection doesn't filter any events,\r\n"
                                                 "please modify one or more filter options.     "),
                                  MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
            return;
        }
        Grid& grid = engine_.Grid1;
        MainView& v = engine_.view;
        PaneProgress progress(engine_, static_cast<long long>(grid.Rows()) * passes);
        progress_ = &progress;
        done_ = 0;
        v.busyPointer = true;
        grid.setRedraw(false);
        v.changed();

        if (!chkCronStarted.checked)
            hideRowsWithIcon(kCronStarted);
        if (!chkCronStopped.checked)
            hideRowsWithIcon(kCronStopped);
        if (!chkActionSuccessful.checked)
            hideRowsWithIcon(kCronActionDone);
        if (!chkActionFailed.checked)
            hideRowsWithIcon(kCronActionFailed);
        if (!chkSetCronlogSize.checked)
            hideRowsWithIcon(kCronSizeSet);
        if (txtbAction != kPrompt)
            hideRowsWithoutText(txtbAction);

        progress_ = nullptr;
        progress.finish();
        v.pane(EntryPos).icon = QStringLiteral("imgFilter");
        int firstVisible = 0;
        for (int row = 1; row <= grid.Rows() && firstVisible == 0; ++row)
            if (grid.RowVisible(row))
                firstVisible = row;
        grid.setSelectedRow(firstVisible);
        v.pane(EntryPos).text = QString::number(grid.visibleRowCount()) + QStringLiteral("/") +
                                QString::number(grid.Rows());
        v.pane(EntryPos).toolTip = QStringLiteral(" visible rows / total rows ");
        v.menu(QStringLiteral("mnuViewAll")).enabled = true;
        v.menu(QStringLiteral("mnuViewFilter")).enabled = true;
        v.setViewBullets(false);
        closed = true;
        grid.setRedraw(true);
        v.busyPointer = false;
        v.changed();
    });
}

} // namespace twk
