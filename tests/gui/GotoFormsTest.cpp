// The go-to dialog and the console log navigator, driven through their widgets while
// they are shown modally, and the status pane double clicks that open them.

#include "LogFormsSupport.h"
#include "gui/ClickLabel.h"
#include "gui/frmGoto.h"
#include "gui/frmGotoConsole.h"
#include "logs/MarkColors.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace twk;
using test::WindowFixture;

namespace {

class GotoForm : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.loadLog();
    }
    /// Opens the go-to dialog by the menu and drives it.
    bool drive(const std::function<void(gui::frmGoto&)>& steps) {
        return test::driveModal<gui::frmGoto>([&] { test::trigger(f, "mnuGoto"); }, steps);
    }
    static void typeInto(QLineEdit* field, const QString& text) {
        field->setFocus();
        QTest::keyClicks(field, text);
    }

    WindowFixture f;
};

} // namespace

TEST_F(GotoForm, TheMenuOpensOnTheDateWithBothRanges) {
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral(" Goto Date..."));
        EXPECT_TRUE(form.txtDate()->isEnabled());
        EXPECT_EQ(form.lbDateRange()->text(), f.engine->view.pane(FirstEntry).text +
                                                  QStringLiteral(" - ") +
                                                  f.engine->view.pane(LastEntry).text);
        EXPECT_EQ(form.lbEventRange()->text(), QStringLiteral("1 - 40"));
        EXPECT_EQ(form.model().picture, QStringLiteral("picDateIco"));
        EXPECT_FALSE(form.picture()->pixmap().isNull());
        EXPECT_EQ(form.cmdCancel()->text(), QStringLiteral("&cancel"));
        // The number field's focus switches the mode.
        form.txtEvent()->setFocus();
        EXPECT_EQ(form.windowTitle(), QStringLiteral(" Goto Event Number..."));
        EXPECT_EQ(form.fraEvent()->title(), QStringLiteral(" Event # "));
        EXPECT_EQ(form.model().picture, QStringLiteral("picNrIco"));
    }));
}

TEST_F(GotoForm, AnEventNumberMovesTheSelectionAndCloses) {
    bool closed = false;
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        typeInto(form.txtEvent(), QStringLiteral("5"));
        QTest::keyClick(form.txtEvent(), Qt::Key_Return);
        closed = !form.isVisible();
    }));
    EXPECT_TRUE(closed);
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), test::rowOfEvent(*f.engine, 5));
    EXPECT_EQ(f.window->Grid1()->selectionModel()->currentIndex().row() + 1,
              test::rowOfEvent(*f.engine, 5));
    EXPECT_EQ(f.paneText(1), QStringLiteral("5/40"));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(GotoForm, BadNumbersHiddenEventsAndUnknownDatesAreSaidAndTheDialogStays) {
    f.engine->Grid1.setRowVisible(test::rowOfEvent(*f.engine, 7), false);
    const auto retype = [](gui::frmGoto& form, QLineEdit* field, QString& modelText,
                           const QString& text) {
        field->clear();
        modelText.clear();
        typeInto(field, text);
        if (field == form.txtEvent()) // the button for numbers, Enter for dates
            QTest::mouseClick(form.cmdGoto(), Qt::LeftButton);
        else
            QTest::keyClick(field, Qt::Key_Return);
        EXPECT_TRUE(form.isVisible()) << text.toStdString();
        EXPECT_TRUE(field->hasFocus()) << text.toStdString();
    };
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        for (const char* bad : {"0", "41", "-3"}) {
            retype(form, form.txtEvent(), form.model().txtEvent.text, QString::fromLatin1(bad));
            EXPECT_EQ(test::lastMessage(f), QStringLiteral("Invalid Value!")) << bad;
            EXPECT_EQ(f.ui.messages.back().icon, MsgIcon::Exclamation);
        }
        retype(form, form.txtEvent(), form.model().txtEvent.text, QStringLiteral("7"));
        EXPECT_EQ(
            test::lastMessage(f),
            QStringLiteral("Event 7 is not visible,\r\nthe view is currently filtered.     "));
        EXPECT_TRUE(form.txtEvent()->text().isEmpty());

        retype(form, form.txtDate(), form.model().txtDate.text, QStringLiteral("12"));
        EXPECT_EQ(test::lastMessage(f), QStringLiteral("Invalid Value!"));
        retype(form, form.txtDate(), form.model().txtDate.text, QStringLiteral("31.12.1999"));
        EXPECT_EQ(test::lastMessage(f), QStringLiteral("Date \"31.12.1999\" was not found!     "));
    }));
    EXPECT_EQ(f.ui.messages.size(), 6u);
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 1) << "the selection stays";
}

TEST_F(GotoForm, ADateGoesToItsFirstVisibleRow) {
    const QString date = test::cell(*f.engine, 10, 2).trimmed();
    const auto nextRowOfDate = [&](int after) {
        for (int r = after + 1; r <= 40; ++r)
            if (test::cell(*f.engine, r, 2).trimmed() == date)
                return r;
        return 0;
    };
    const int first = nextRowOfDate(0);
    f.engine->Grid1.setRowVisible(first, false);
    const int firstVisible = nextRowOfDate(first);
    ASSERT_GT(firstVisible, 0);
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        typeInto(form.txtDate(), date);
        QTest::keyClick(form.txtDate(), Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
    }));
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), firstVisible);
}

TEST_F(GotoForm, EscapeAndCancelClose) {
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_TRUE(form.model().closed);
    }));
    ASSERT_TRUE(drive([&](gui::frmGoto& form) {
        QTest::mouseClick(form.cmdCancel(), Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
    }));
}

TEST_F(GotoForm, StatusPaneDoubleClicksOpenItInTheirMode) {
    gui::StatusPanes* bar = f.window->StatusBar1();
    ASSERT_TRUE(test::driveModal<gui::frmGoto>(
        [&] { QTest::mouseDClick(bar->pane(EntryPos), Qt::LeftButton); },
        [](gui::frmGoto& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" Goto Event Number..."));
            EXPECT_TRUE(form.txtEvent()->hasFocus());
        }));
    ASSERT_TRUE(test::driveModal<gui::frmGoto>(
        [&] { QTest::mouseDClick(bar->pane(SystemDate), Qt::LeftButton); },
        [](gui::frmGoto& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" Goto Date..."));
            EXPECT_TRUE(form.txtDate()->hasFocus());
        }));
}

TEST(GotoCron, TheDateFieldIsOffAndRowsAreNumbers) {
    WindowFixture f;
    f.startWindow();
    test::loadKind(f, views::kCronlog, test::cronlogBytes());
    f.engine->Grid1.setRowVisible(3, false);
    ASSERT_TRUE(test::driveModal<gui::frmGoto>(
        [&] { test::trigger(f, "mnuGoto"); },
        [&](gui::frmGoto& form) {
            EXPECT_FALSE(form.txtDate()->isEnabled());
            EXPECT_EQ(form.lbEventRange()->text(), QStringLiteral("1 - 8"));
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" Goto Event Number..."));
            EXPECT_TRUE(form.txtEvent()->hasFocus());
            QTest::keyClicks(form.txtEvent(), QStringLiteral("3"));
            QTest::keyClick(form.txtEvent(), Qt::Key_Return);
            EXPECT_FALSE(form.isVisible());
        }));
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 3) << "visibility is not tested for rows";
    EXPECT_EQ(f.paneText(1), QStringLiteral("3/8"));
}

namespace {

class ConsoleNavigator : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        test::loadKind(f, views::kConsoleLog, test::consoleLogBytes());
        ASSERT_EQ(f.engine->Grid1.Rows(), 10);
    }
    bool drive(const std::function<void(gui::frmGotoConsole&)>& steps) {
        return test::driveModal<gui::frmGotoConsole>([&] { test::trigger(f, "mnuAnalyzer"); },
                                                     steps);
    }
    int selected() const { return f.engine->Grid1.SelectedRow(); }

    WindowFixture f;
};

} // namespace

TEST_F(ConsoleNavigator, OpensOnErrorsAndWarnings) {
    EXPECT_TRUE(f.menu("mnuAnalyzer")->isVisible());
    EXPECT_FALSE(f.menu("mnuGoto")->isVisible());
    ASSERT_TRUE(drive([&](gui::frmGotoConsole& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral(" CONSOLE.LOG - Analyzer"));
        EXPECT_EQ(form.lbRange()->text(), QStringLiteral("valid range -> 1 - 10"));
        EXPECT_EQ(form.nameLabel(kErrorMessages)->text(),
                  QStringLiteral(" Error and Warning Messages"));
        EXPECT_EQ(form.nameLabel(kNlmLoads)->text(), QStringLiteral(" NLM loading Events"));
        EXPECT_EQ(form.countLabel(kErrorMessages)->text(), QStringLiteral(" 1/2"));
        EXPECT_EQ(form.countLabel(kNlmLoads)->text(), QStringLiteral(" 0/2"));
        EXPECT_TRUE(
            form.nameLabel(kErrorMessages)->styleSheet().contains(QStringLiteral("#ff0000")));
        EXPECT_EQ(form.lbEventMessage()->text(), QStringLiteral(" WARNING: cache memory is low"));
        EXPECT_EQ(selected(), 9);
    }));
}

TEST_F(ConsoleNavigator, FunctionKeysMoveAndStopAtTheEnds) {
    ASSERT_TRUE(drive([&](gui::frmGotoConsole& form) {
        QTest::keyClick(&form, Qt::Key_F7);
        EXPECT_EQ(selected(), 10);
        EXPECT_EQ(form.countLabel(kErrorMessages)->text(), QStringLiteral(" 2/2"));
        QTest::keyClick(&form, Qt::Key_F7);
        EXPECT_EQ(selected(), 10) << "no wrap-around";
        QTest::keyClick(&form, Qt::Key_F6);
        EXPECT_EQ(selected(), 9);
        QTest::keyClick(&form, Qt::Key_F8);
        EXPECT_EQ(selected(), 10);
        QTest::keyClick(&form, Qt::Key_F5);
        EXPECT_EQ(selected(), 9);
        QTest::keyClick(&form, Qt::Key_F9);
        EXPECT_EQ(form.model().EventType(), kNlmLoads);
        EXPECT_EQ(selected(), 4);
        QTest::keyClick(&form, Qt::Key_F10);
        EXPECT_EQ(form.model().EventType(), kNlmUnloads);
        EXPECT_EQ(selected(), 8);
        QTest::keyClick(&form, Qt::Key_F12);
        EXPECT_EQ(form.model().EventType(), kDateEntries);
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(f.paneText(1), QStringLiteral("1/10"));
        EXPECT_TRUE(form.isVisible());
    }));
}

TEST_F(ConsoleNavigator, LabelsAndButtonsSelectAndMove) {
    ASSERT_TRUE(drive([&](gui::frmGotoConsole& form) {
        QTest::mouseClick(form.countLabel(kNlmLoads), Qt::LeftButton);
        EXPECT_EQ(form.model().EventType(), kNlmLoads);
        EXPECT_EQ(form.countLabel(kNlmLoads)->text(), QStringLiteral(" 1/2"));
        EXPECT_EQ(form.countLabel(kErrorMessages)->text(), QStringLiteral(" 0/2"));
        QTest::mouseClick(form.button(QStringLiteral("cmdNext")), Qt::LeftButton);
        EXPECT_EQ(selected(), 10) << "\"Error loading\" is the second load";
        QTest::mouseClick(form.button(QStringLiteral("cmdPrevious")), Qt::LeftButton);
        EXPECT_EQ(selected(), 4);
        QTest::mouseClick(form.nameLabel(kErrorMessages), Qt::LeftButton);
        EXPECT_EQ(form.model().EventType(), kErrorMessages);
        QTest::mouseClick(form.button(QStringLiteral("cmdLast")), Qt::LeftButton);
        EXPECT_EQ(selected(), 10);
    }));
}

TEST_F(ConsoleNavigator, DigitsJumpToARowAndOtherCharactersAreDropped) {
    ASSERT_TRUE(drive([&](gui::frmGotoConsole& form) {
        QTest::keyClicks(form.txtbRow(), QStringLiteral("3a-x"));
        EXPECT_EQ(form.txtbRow()->text(), QStringLiteral("3"));
        QTest::keyClick(form.txtbRow(), Qt::Key_Return);
        EXPECT_EQ(selected(), 3);
        EXPECT_EQ(f.paneText(1), QStringLiteral("3/10"));
        EXPECT_TRUE(form.txtbRow()->text().isEmpty());

        QTest::keyClicks(form.txtbRow(), QStringLiteral("99"));
        QTest::keyClick(form.txtbRow(), Qt::Key_Backspace);
        EXPECT_EQ(form.txtbRow()->text(), QStringLiteral("9"));
        QTest::keyClicks(form.txtbRow(), QStringLiteral("9"));
        QTest::keyClick(form.txtbRow(), Qt::Key_Return);
        EXPECT_EQ(test::lastMessage(f), QStringLiteral("Invalid Value!"));
        EXPECT_EQ(selected(), 3);
        EXPECT_TRUE(form.txtbRow()->hasFocus());

        QTest::keyClick(form.txtbRow(), Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    }));
}

TEST_F(ConsoleNavigator, PaneOneOpensTheNavigator) {
    EXPECT_TRUE(test::driveModal<gui::frmGotoConsole>(
        [&] { QTest::mouseDClick(f.window->StatusBar1()->pane(EntryPos), Qt::LeftButton); },
        [](gui::frmGotoConsole&) {}));
}
