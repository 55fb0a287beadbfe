#include "logs/GotoConsole.h"

#include "LogFixture.h"
#include "logs/ConsoleLog.h"
#include "logs/MarkColors.h"

#include <QtCore/qnamespace.h>

#include <utility>

using namespace twk;
using twk::test::consoleSession;
using twk::test::lines;

namespace {

class Navigator : public test::LogFixture {
protected:
    std::unique_ptr<GotoConsoleModel> open(const QByteArray& bytes) {
        EXPECT_TRUE(load(views::kConsoleLog, bytes));
        return mnuAnalyzer_Click(engine);
    }
    std::unique_ptr<GotoConsoleModel> openTwoSessions() {
        return open(consoleSession("FS1", "11-15-2005") + consoleSession("FS1", "11-16-2005"));
    }
    int selected() const { return engine.Grid1.SelectedRow(); }
};

} // namespace

TEST_F(Navigator, OpensOnErrorsAndWarningsAndMovesStopAtBothEnds) {
    auto nav = open(consoleSession("FS1", "11-15-2005"));
    ASSERT_NE(nav, nullptr);
    EXPECT_EQ(nav->lbRange.caption, QStringLiteral("valid range -> 1 - 10"));
    EXPECT_EQ(nav->EventType(), kErrorMessages);
    EXPECT_EQ(nav->nameLabels[kErrorMessages].caption,
              QStringLiteral(" Error and Warning Messages"));
    EXPECT_EQ(nav->nameLabels[kErrorMessages].foreColor, kWhite);
    EXPECT_EQ(nav->nameLabels[kErrorMessages].backColor, kMarkRed);
    EXPECT_EQ(nav->countLabels[kErrorMessages].backColor, kMarkRed);
    EXPECT_EQ(nav->nameLabels[kNlmLoads].foreColor, kMarkBlue);
    EXPECT_EQ(nav->nameLabels[kNlmLoads].backColor, kWhite);
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 1/2"));
    EXPECT_EQ(nav->countLabels[kNlmLoads].caption, QStringLiteral(" 0/2"));
    EXPECT_EQ(nav->countLabels[kNlmUnloads].caption, QStringLiteral(" 0/1"));
    EXPECT_EQ(nav->countLabels[kDateEntries].caption, QStringLiteral(" 0/1"));
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(nav->lbEventMessage.caption, QStringLiteral(" WARNING: cache memory is low"));
    EXPECT_EQ(nav->lbEventMessage.toolTip, QStringLiteral(" WARNING: cache memory is low "));
    EXPECT_EQ(nav->lbEventMessage.foreColor, kMarkRed);
    EXPECT_EQ(pane(1), QStringLiteral("9/10"));

    nav->GotoNextEvent();
    EXPECT_EQ(selected(), 10);
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 2/2"));
    nav->GotoNextEvent(); // beyond the last: nothing moves
    EXPECT_EQ(selected(), 10);
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 2/2"));
    nav->GotoPreviousEvent();
    EXPECT_EQ(selected(), 9);
    nav->GotoPreviousEvent();
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 1/2"));
    nav->GotoLastEvent();
    EXPECT_EQ(selected(), 10);
    EXPECT_EQ(pane(1), QStringLiteral("10/10"));
    nav->GotoFirstEvent();
    EXPECT_EQ(selected(), 9);
}

TEST_F(Navigator, SelectingAKindStartsAtItsFirstEvent) {
    auto nav = openTwoSessions();
    nav->SelectEvent(kDateEntries);
    EXPECT_EQ(nav->EventType(), kDateEntries);
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(nav->countLabels[kDateEntries].caption, QStringLiteral(" 1/2"));
    // Every count label starts again at 0.
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 0/4"));
    EXPECT_EQ(nav->countLabels[kErrorMessages].foreColor, kMarkRed);
    EXPECT_EQ(nav->countLabels[kErrorMessages].backColor, kWhite);
    nav->GotoLastEvent();
    EXPECT_EQ(selected(), 11);
    nav->labelClicked(kNlmUnloads);
    EXPECT_EQ(selected(), 8);
}

TEST_F(Navigator, OnlyTheFirstEventRepaintsASharedRow) {
    auto nav = open(lines(
        {"Error loading module BAD.NLM", "Loading module GOOD.NLM", "Error: volume VOL1 is full"}));
    EXPECT_EQ(colour(1, 2), kMarkRed);
    nav->SelectEvent(kNlmLoads); // row 1 is the first NLM load: it turns blue
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(colour(1, 2), kMarkBlue);
    nav->GotoNextEvent();
    nav->GotoPreviousEvent(); // back on row 1, but not by GotoFirstEvent: stays blue
    EXPECT_EQ(colour(1, 2), kMarkBlue);
    nav->SelectEvent(kErrorMessages);
    EXPECT_EQ(colour(1, 2), kMarkRed);
    nav->GotoLastEvent();
    EXPECT_EQ(selected(), 3);
}

TEST_F(Navigator, AnEmptyListLeavesTheSelectionAlone) {
    auto nav = open(lines({"Loading module A.NLM", "nothing", "Loading module B.NLM"}));
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 0/0"));
    EXPECT_EQ(selected(), 3); // the load left the last row selected
    for (auto move : {&GotoConsoleModel::GotoFirstEvent, &GotoConsoleModel::GotoNextEvent,
                      &GotoConsoleModel::GotoPreviousEvent, &GotoConsoleModel::GotoLastEvent})
        ((*nav).*move)();
    EXPECT_EQ(selected(), 3);
    EXPECT_EQ(nav->countLabels[kErrorMessages].caption, QStringLiteral(" 0/0"));
    EXPECT_EQ(nav->lbEventMessage.caption, QString());
}

TEST_F(Navigator, KindsAreToldByTheLabelsAlone) {
    ASSERT_TRUE(load(views::kConsoleLog, consoleSession("FS1", "11-15-2005")));
    GotoConsoleModel bare(engine);
    EXPECT_EQ(bare.EventType(), 0);
    bare.GotoNextEvent(); // no kind selected: nothing happens
    EXPECT_EQ(engine.Grid1.SelectedRow(), 10);
    // A later coloured label overrides an earlier one.
    bare.nameLabels[kNlmLoads].backColor = kMarkBlue;
    bare.nameLabels[kDateEntries].backColor = kMarkBlack;
    EXPECT_EQ(bare.EventType(), kDateEntries);
}

TEST_F(Navigator, FunctionKeysChooseAndMove) {
    auto nav = openTwoSessions();
    // F9 chooses the NLM loads; F7, F8, F6 and F5 move: next, last, previous, first.
    for (const auto& [key, row] : {std::pair{Qt::Key_F9, 4},
                                   {Qt::Key_F7, 10},
                                   {Qt::Key_F8, 20},
                                   {Qt::Key_F6, 14},
                                   {Qt::Key_F5, 4}}) {
        EXPECT_TRUE(nav->keyDown(key)) << "F" << key - Qt::Key_F1 + 1;
        EXPECT_EQ(selected(), row) << "F" << key - Qt::Key_F1 + 1;
    }
    EXPECT_EQ(nav->EventType(), kNlmLoads);
    // F10 is used up here: the main menu does not open.
    for (const auto& [key, kind] : {std::pair{Qt::Key_F10, kNlmUnloads},
                                    {Qt::Key_F12, kDateEntries},
                                    {Qt::Key_F11, kErrorMessages}}) {
        EXPECT_TRUE(nav->keyDown(key)) << "F" << key - Qt::Key_F1 + 1;
        EXPECT_EQ(nav->EventType(), kind) << "F" << key - Qt::Key_F1 + 1;
    }
    EXPECT_TRUE(nav->keyDown(Qt::Key_F1));
    EXPECT_EQ(nav->helpPageWanted, QStringLiteral("_console.log/canalyzer.htm"));
    EXPECT_FALSE(nav->keyDown(Qt::Key_F2));
}

TEST_F(Navigator, TypedDigitsJumpToARowInsideTheRange) {
    auto nav = open(consoleSession("FS1", "11-15-2005"));
    for (QChar c : QStringLiteral("x7a"))
        nav->keyPress(c);
    EXPECT_EQ(nav->txtbRow, QStringLiteral("7"));
    nav->keyPress(QLatin1Char('\b'));
    EXPECT_EQ(nav->txtbRow, QString());
    nav->keyPress(QLatin1Char('\r')); // empty: nothing
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(selected(), 9);
    for (const char* typed : {"0", "11", "00"}) {
        nav->txtbRow = QString::fromLatin1(typed);
        nav->cmdGoto_Click();
        EXPECT_EQ(selected(), 9) << typed;
    }
    ASSERT_EQ(ui.messages.size(), 3u);
    EXPECT_EQ(ui.messages[0].text, QStringLiteral("Invalid Value!"));
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_TRUE(nav->txtbRowFocusWanted);
    EXPECT_EQ(nav->txtbRow, QStringLiteral("00"));

    nav->txtbRow.clear();
    nav->keyPress(QLatin1Char('7'));
    nav->keyPress(QLatin1Char('\r'));
    EXPECT_EQ(selected(), 7);
    EXPECT_EQ(pane(1), QStringLiteral("7/10"));
    EXPECT_EQ(nav->txtbRow, QString());
    nav->txtbRow = QStringLiteral("10");
    nav->cmdGoto_Click();
    EXPECT_EQ(selected(), 10);
    EXPECT_EQ(ui.messages.size(), 3u);
    nav->keyPress(QChar(27));
    EXPECT_TRUE(nav->closed);
}

TEST_F(Navigator, ActsOnlyInTheConsoleView) {
    auto nav = open(consoleSession("FS1", "11-15-2005"));
    engine.view.CurrentView = views::kCronlog;
    EXPECT_EQ(mnuAnalyzer_Click(engine), nullptr);
    nav->txtbRow = QStringLiteral("3");
    nav->cmdGoto_Click();
    EXPECT_NE(selected(), 3);
    EXPECT_EQ(nav->txtbRow, QStringLiteral("3"));
}
