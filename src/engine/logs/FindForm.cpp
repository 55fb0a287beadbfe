#include "logs/FindForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/GridViews.h"
#include "logs/ViewFilter.h"

#include <algorithm>

namespace twk {

namespace {

struct KindRules {
    int searchedColumn = 0; // 0: the view cannot be searched
    bool skipHidden = false;
    const char* word = nullptr; // running label word; none for ABEND.LOG
};

KindRules rulesOf(const QString& view) {
    if (view == views::kSysLogErr)
        return {10, true, " Event "};
    if (view == views::kConsoleLog || view == views::kCronlog)
        return {view == views::kCronlog ? 3 : 2, false, " Row "};
    if (view == views::kAbendLog)
        return {2, false, nullptr};
    return {};
}

// The report an ABEND.LOG row lies in: the last report whose first row is not below
// the row, and never less than 1.
int abendOfRow(const Engine& engine, int row) {
    const auto& rows = engine.analysis.abendRows;
    const int count = std::min<int>(static_cast<int>(engine.view.cbAbendLog.items.size()),
                                    static_cast<int>(rows.size()) - 1);
    int result = count;
    for (int i = 1; i <= count; ++i)
        if (rows[static_cast<std::size_t>(i)] > row) {
            result = i - 1;
            break;
        }
    return std::max(result, 1);
}

} // namespace

FrmFind::FrmFind(Engine& engine) : engine_(engine) {}
FrmFind::~FrmFind() = default;

QString FrmFind::lbRecord() const {
    if (recordWord_.isEmpty())
        return recordText_;
    return recordWord_ + QString::number(recordNumber_) + QStringLiteral("/") +
           QString::number(rows_);
}

QString FrmFind::helpPage() const {
    return engine_.view.CurrentView == views::kSysLogErr ? findText::kHelpPage : QString();
}

void FrmFind::mnuFind_Click() {
    closed = false;
    state_ = State::Idle;
    txtString.enabled = true;
    txtString.greyBackground = false;
    cmdFind.enabled = !txtString.text.isEmpty();
    cmdNext.enabled = false;
    cmdNext.isDefault = false;
    recordWord_.clear();
    recordText_ = findText::kPrompt;
}

void FrmFind::txtString_Change() {
    if (state_ == State::Idle && txtString.enabled)
        cmdFind.enabled = true;
}

void FrmFind::cmdFind_Click() {
    if (closed || state_ != State::Idle || !cmdFind.enabled)
        return;
    if (hooks.closeEventProperties)
        hooks.closeEventProperties();
    txtString.enabled = false;
    txtString.greyBackground = true;
    cmdFind.enabled = false;
    Grid& g = engine_.Grid1;
    rows_ = g.Rows();
    view_ = engine_.view.CurrentView;
    recordWord_.clear();
    recordText_ = QStringLiteral(" Event 1/") + QString::number(rows_);

    const KindRules rules = rulesOf(view_);
    column_ = rules.searchedColumn <= g.Cols() ? rules.searchedColumn : 0;
    skipHidden_ = rules.skipHidden;
    finder_ = std::make_unique<CaseBlindFinder>(text::trim(txtString.text.toStdString()));
    hits_ = 0;
    hitRow_ = 0;
    row_ = column_ > 0 ? rows_ : 0;
    state_ = State::Walking;
    engine_.view.changed();
    walk(++walkId_);
}

void FrmFind::cmdNext_Click() {
    if (closed || state_ != State::WaitingAtHit || !cmdNext.enabled)
        return;
    cmdNext.enabled = false;
    cmdNext.isDefault = false;
    engine_.view.changed(); // refreshes the status bar
    state_ = State::Walking;
    const unsigned id = walkId_;
    afterRow(hitRow_);
    if (closed || id != walkId_)
        return;
    walk(id);
}

void FrmFind::Form_Unload() {
    closed = true;
    ++walkId_; // a walk that is yielding ends when it comes back
    state_ = State::Idle;
    if (hooks.closeEventProperties)
        hooks.closeEventProperties();
    // Row 1 is selected as a click would select it, so the panes follow.
    if (engine_.view.CurrentView == views::kSysLogErr && engine_.Grid1.Rows() > 0)
        Grid1_SelectionChanged(engine_, 1);
}

bool FrmFind::gridChanged() const {
    return engine_.Grid1.Rows() != rows_ || engine_.view.CurrentView != view_;
}

void FrmFind::walk(unsigned walkId) {
    const Grid& g = engine_.Grid1;
    while (row_ >= 1) {
        if (closed || walkId != walkId_)
            return; // closed meanwhile: no further action
        if (gridChanged())
            break; // another log was opened meanwhile: the rows are not those searched
        const int r = row_;
        if ((!skipHidden_ || g.RowVisible(r)) && finder_->foundIn(g.CellText(r, column_))) {
            showHit(r);
            return;
        }
        afterRow(r);
    }
    if (closed || walkId != walkId_)
        return;
    endWalk();
}

void FrmFind::afterRow(int row) {
    const QString& view = view_;
    if (view == views::kSysLogErr) {
        recordWord_ = QStringLiteral(" Event ");
        recordNumber_ = static_cast<long long>(rows_) - row + 2;
    } else if (view == views::kConsoleLog || view == views::kCronlog) {
        recordWord_ = QStringLiteral(" Row ");
        recordNumber_ = row - 1;
    }
    row_ = row - 1;
    engine_.yieldIfDue();
}

void FrmFind::showHit(int row) {
    MainView& v = engine_.view;
    Grid& g = engine_.Grid1;
    cmdNext.enabled = true;
    cmdNext.isDefault = true;
    g.setSelectedRow(row);
    const QString total = QStringLiteral("/") + QString::number(g.Rows());
    if (view_ == views::kSysLogErr) {
        if (!viewIsFiltered(v))
            v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 7)) + total;
    } else if (view_ == views::kConsoleLog) {
        v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 1)) + total;
    } else if (view_ == views::kCronlog) {
        v.pane(EntryPos).text = QString::fromUtf8(g.CellText(row, 2)) + total;
    } else if (view_ == views::kAbendLog) {
        const int count = static_cast<int>(v.cbAbendLog.items.size());
        const int abend = abendOfRow(engine_, row);
        v.pane(EntryPos).text =
            QString::number(abend) + QStringLiteral("/") + QString::number(count);
        const QString date = hooks.abendShortDate ? hooks.abendShortDate(abend - 1) : QString();
        recordWord_.clear();
        recordText_ = QStringLiteral(" ABEND ") + QString::number(abend) + QStringLiteral("/") +
                      QString::number(count) + QStringLiteral(" (") + date + QStringLiteral(")");
        if (abend - 1 < count)
            v.cbAbendLog.ListIndex = abend - 1;
    }
    hitRow_ = row;
    ++hits_;
    state_ = State::WaitingAtHit;
    v.changed();
    if (view_ == views::kSysLogErr && hooks.openEventProperties)
        hooks.openEventProperties(row);
    if (hooks.bringToFront)
        hooks.bringToFront();
}

void FrmFind::endWalk() {
    txtString.enabled = true;
    txtString.greyBackground = false;
    cmdFind.enabled = true;
    cmdNext.enabled = false;
    cmdNext.isDefault = false;
    recordWord_.clear();
    recordText_ = findText::kCompleted;
    state_ = State::Idle;
    engine_.view.changed();
}

} // namespace twk
