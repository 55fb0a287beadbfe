#include "logs/GotoForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/GridColumns.h"
#include "logs/ViewFilter.h"

#include <algorithm>

namespace twk {

namespace {

std::int64_t numberIn(const Grid& g, int row, int col) {
    return col <= g.Cols() ? text::numericReading(g.CellText(row, col)) : 0;
}

} // namespace

FrmGoto::FrmGoto(Engine& engine) : engine_(engine) {}

bool FrmGoto::mnuGoto_Click(GotoOpening opening) {
    const MainView& v = engine_.view;
    const QString& kind = v.CurrentView;
    const QString first = v.pane(FirstEntry).text;
    const QString last = v.pane(LastEntry).text;
    const QString range = QStringLiteral("1 - ") + QString::number(paneTotal(v));
    if (kind == views::kSysLogErr) {
        txtDate = TextBoxState{};
        lbDateRange.text = first + QStringLiteral(" - ") + last;
    } else if (kind == views::kCronlog) {
        txtDate = TextBoxState{QString(), false, true, true};
        // The cron log has its first date in pane 2.
        lbDateRange.text = last + QStringLiteral(" - ") + first;
    } else {
        return false;
    }
    txtEvent = TextBoxState{};
    lbEventRange.text = range;
    closed = false;
    caption = kind == views::kSysLogErr && opening != GotoOpening::EventNumber
                  ? gotoText::kDateCaption
                  : gotoText::kEventCaption;
    if (kind == views::kSysLogErr && opening != GotoOpening::EventNumber)
        txtDate_GotFocus();
    else
        txtEvent_GotFocus();
    return true;
}

void FrmGoto::txtDate_GotFocus() {
    if (!txtDate.enabled)
        return;
    focus = QStringLiteral("txtDate");
    caption = gotoText::kDateCaption;
    picture = QStringLiteral("picDateIco");
    txtEvent.text.clear();
}

void FrmGoto::txtEvent_GotFocus() {
    focus = QStringLiteral("txtEvent");
    picture = QStringLiteral("picNrIco");
    txtDate.text.clear();
    const QString& kind = engine_.view.CurrentView;
    if (kind == views::kSysLogErr) {
        caption = gotoText::kEventCaption;
        fraEventCaption = gotoText::kEventFrame;
    } else if (kind == views::kConsoleLog) {
        caption = gotoText::kRowCaption;
        fraEventCaption = gotoText::kRowFrame;
    }
}

void FrmGoto::cmdGoto_Click() {
    if (closed)
        return;
    withErrorTail(engine_.errors, "frmGoto.cmdGoto_Click()", [&] {
        const int total = paneTotal(engine_.view);
        if (!txtDate.text.isEmpty()) {
            gotoDate(total);
            return;
        }
        if (!txtEvent.text.isEmpty())
            gotoNumber(total);
    });
}

void FrmGoto::cmdCancel_Click() {
    close();
}

void FrmGoto::close() {
    closed = true;
    engine_.view.changed();
}

void FrmGoto::gotoDate(int total) {
    UiPort& ui = engine_.ui;
    if (txtDate.text.size() < 6) {
        ui.messageBox(gotoText::kInvalidValue, MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        focus = QStringLiteral("txtDate");
        return;
    }
    Grid& g = engine_.Grid1;
    const std::string wanted = txtDate.text.toStdString();
    const int last = std::min(total, g.Rows());
    if (g.Cols() >= syscol::kEvent)
        for (int r = 1; r <= last; ++r) {
            if (text::trim(g.CellText(r, syscol::kDate)) != wanted || !g.RowVisible(r))
                continue;
            g.setSelectedRow(r);
            if (!viewIsFiltered(engine_.view))
                engine_.view.pane(EntryPos).text = QString::number(numberIn(g, r, syscol::kEvent)) +
                                                   QStringLiteral("/") + QString::number(total);
            txtDate.text.clear();
            close();
            return;
        }
    ui.messageBox(QStringLiteral("Date \"") + txtDate.text +
                      QStringLiteral("\" was not found!     "),
                  MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
    focus = QStringLiteral("txtDate");
}

void FrmGoto::gotoNumber(int total) {
    UiPort& ui = engine_.ui;
    MainView& v = engine_.view;
    Grid& g = engine_.Grid1;
    const std::int64_t number = text::numericReading(txtEvent.text.toStdString());
    const auto invalid = [&] {
        ui.messageBox(gotoText::kInvalidValue, MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        focus = QStringLiteral("txtEvent");
    };
    if (number < 1 || number > total || number > g.Rows()) {
        invalid();
        return;
    }
    const int n = static_cast<int>(number);
    const QString panel = QString::number(n) + QStringLiteral("/") + QString::number(total);
    if (v.CurrentView != views::kSysLogErr) {
        g.setSelectedRow(n);
        v.pane(EntryPos).text = panel;
        txtEvent.text.clear();
        close();
        return;
    }
    // The grid runs ascending when row n holds event n; otherwise it is taken to run
    // descending. Other orders give a wrong row, as they always have.
    const int target = numberIn(g, n, syscol::kEvent) == n ? n : total - n + 1;
    if (target < 1 || target > g.Rows()) {
        invalid();
        return;
    }
    if (!g.RowVisible(target)) {
        ui.messageBox(QStringLiteral("Event ") + txtEvent.text +
                          QStringLiteral(" is not visible,") + text::kCrLf +
                          QStringLiteral("the view is currently filtered.     "),
                      MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        txtEvent.text.clear();
        return;
    }
    g.setSelectedRow(target);
    if (!viewIsFiltered(v))
        v.pane(EntryPos).text = panel;
    txtEvent.text.clear();
    close();
}

namespace {

// Selects a row of an ABEND.LOG report as the key presses of the old window did: the
// line below the title and three more, with the title line at the top of the view.
void showAbend(Engine& engine, int number) {
    MainView& v = engine.view;
    Grid& g = engine.Grid1;
    const auto& rows = engine.analysis.abendRows;
    const int count = static_cast<int>(v.cbAbendLog.items.size());
    if (number < 1 || number > count || number >= static_cast<int>(rows.size()))
        return;
    const int row = rows[static_cast<std::size_t>(number)];
    if (row < 1 || row > g.Rows())
        return;
    const int first = std::min(row + 1, g.Rows());
    const int lastRow = std::min(row + 4, g.Rows());
    g.setSelectedRow(first);
    engine.analysis.focusRows(first, lastRow, row);
    v.cbAbendLog.ListIndex = number - 1;
    v.pane(EntryPos).text = QString::number(number) + QStringLiteral("/") + QString::number(count);
}

void notVisible(Engine& engine, bool firstEvent) {
    engine.ui.messageBox((firstEvent ? QStringLiteral("The first event is not visible,     ")
                                     : QStringLiteral("The last event is not visible,     ")) +
                             text::kCrLf + QStringLiteral("the view is currently filtered."),
                         MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

} // namespace

void JumpToEntry(Engine& engine, EntryEnd end) {
    withErrorTail(engine.errors, "Mainfrm.StatusBar1_PanelDblClick(Panel)", [&] {
        MainView& v = engine.view;
        Grid& g = engine.Grid1;
        const QString& kind = v.CurrentView;
        const int rows = g.Rows();
        const QString total = QString::number(rows);
        if (kind == views::kSysLogErr && g.Cols() >= syscol::kMessage) {
            const std::int64_t wanted = end == EntryEnd::First ? 1 : rows;
            int target = 0;
            for (int r = 1; r <= rows && target == 0; ++r)
                if (numberIn(g, r, syscol::kEvent) == wanted)
                    target = r;
            if (target == 0)
                return;
            if (!g.RowVisible(target)) {
                notVisible(engine, end == EntryEnd::First);
                return;
            }
            g.setSelectedRow(target);
            if (!viewIsFiltered(v))
                v.pane(EntryPos).text = QString::number(wanted) + QStringLiteral("/") + total;
            v.pane(Tips).text = QString::fromUtf8(g.CellText(target, syscol::kMessage));
        } else if (kind == views::kConsoleLog || kind == views::kCronlog) {
            if (rows == 0)
                return;
            // These views hold the file's order: the first entry is the last row.
            const int target = end == EntryEnd::First ? rows : 1;
            if (kind == views::kCronlog && !g.RowVisible(target)) {
                notVisible(engine, target == 1);
                return;
            }
            g.setSelectedRow(target);
            const int numberColumn = kind == views::kCronlog ? 2 : 1;
            if (kind == views::kConsoleLog || !viewIsFiltered(v)) {
                const QString number = numberColumn <= g.Cols()
                                           ? QString::fromUtf8(g.CellText(target, numberColumn))
                                           : QString::number(target);
                v.pane(EntryPos).text = number + QStringLiteral("/") + total;
            }
        } else if (kind == views::kAbendLog) {
            const int count = static_cast<int>(v.cbAbendLog.items.size());
            showAbend(engine, end == EntryEnd::First ? count : 1);
        } else {
            return;
        }
        v.changed();
    });
}

} // namespace twk
