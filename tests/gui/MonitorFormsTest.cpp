// The monitor in the main window: its menu command and view, the colours of its rows,
// and the rule dialog driven through its widgets.

#include "GuiSupport.h"
#include "core/settings/IniFile.h"
#include "gui/GridModel.h"
#include "gui/frmRTMOptions.h"
#include "gui/frmRTMProperties.h"
#include "gui/frmRealtimeFilter.h"
#include "logs/GridViews.h"
#include "monitor/MonitorRows.h"
#include "monitor/RealtimeMonitor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace twk;
using test::WindowFixture;

namespace {

class MonitorWindow : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.engine->registry.Reg_SetString(Hive::CurrentUser, monitorServersKey(),
                                         QStringLiteral("FS1"), QString());
    }
    QVariant background(int row, int col) const {
        const QAbstractItemModel* model = f.window->Grid1()->model();
        return model->data(model->index(row - 1, col - 1), Qt::BackgroundRole);
    }
    WindowFixture f;
};

} // namespace

TEST_F(MonitorWindow, TheMenuStartsAndStopsTheMonitor) {
    f.menu("mnuRTM")->trigger();
    ASSERT_EQ(f.engine->view.CurrentView, views::kRealtimeMonitor);
    EXPECT_EQ(f.window->Grid1()->model()->rowCount(), 1);
    EXPECT_EQ(f.menu("mnuRTM")->text(), rtmText::kStopCaption);
    EXPECT_FALSE(f.menu("mnuTID")->isEnabled());

    SetRowState(*f.engine, 1, kStateWarning);
    EXPECT_EQ(background(1, 2).value<QBrush>(),
              QGuiApplication::palette().brush(QPalette::ToolTipBase));
    SetRowState(*f.engine, 1, kStateFailure);
    EXPECT_EQ(background(1, 3).value<QColor>(), QColor(255, 192, 192));
    EXPECT_FALSE(background(1, 1).isValid()) << "the LED cell keeps the window's colour";

    f.engine->hooks.Grid1_DblClick(1);
    auto* properties = f.window->findChild<gui::frmRTMProperties*>();
    ASSERT_NE(properties, nullptr) << "a double click on a row opens its properties";
    EXPECT_TRUE(properties->isVisible());
    EXPECT_EQ(properties->label(QStringLiteral("lbServer"))->text(), QStringLiteral("FS1"));
    EXPECT_EQ(properties->label(QStringLiteral("lbStatus"))->text(), QStringLiteral("FAILURE"));
    QTest::keyClick(properties, Qt::Key_Escape);
    EXPECT_FALSE(properties->isVisible());

    f.ui.answers.push_back(MsgResult::Yes);
    f.menu("mnuRTM")->trigger();
    EXPECT_FALSE(MonitorRunning(*f.engine));
    EXPECT_TRUE(f.menu("mnuTID")->isEnabled());
}

TEST_F(MonitorWindow, TheRuleDialogSavesWhatItShows) {
    f.menu("mnuRTMFilterRules")->trigger();
    ASSERT_EQ(f.engine->view.CurrentView, views::kFilterRules);
    const int rulesBefore = f.engine->Grid1.Rows();

    gui::frmRealtimeFilter form(*f.engine, test::testImages(), 0, f.window.get());
    form.show();
    auto* forwarding = form.findChild<QCheckBox*>(QStringLiteral("chkEventForwarding"));
    auto* facility = form.findChild<QComboBox*>(QStringLiteral("cbFacility"));
    ASSERT_TRUE(forwarding && facility);
    EXPECT_FALSE(facility->isEnabled());
    forwarding->setChecked(true);
    EXPECT_TRUE(facility->isEnabled());
    EXPECT_EQ(form.model().cbFacility.ListIndex, 0);

    auto* search = form.findChild<QLineEdit*>(QStringLiteral("txtbErrorMessage1"));
    EXPECT_EQ(search->text(), QStringLiteral("(none)"));
    search->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(search->text().isEmpty()) << "(none) is cleared on focus";
    QTest::keyClicks(search, QStringLiteral("Out Of"));
    form.findChild<QPushButton*>(QStringLiteral("cmdSave"))->click();

    EXPECT_TRUE(form.model().closed);
    EXPECT_EQ(f.engine->Grid1.Rows(), rulesBefore + 1);
    const QByteArray ini = f.tree.read(QStringLiteral("app/twk.ini"));
    EXPECT_TRUE(ini.contains(",Out Of,(none),0,0,0,0,,0,0,-1,-1")) << ini.constData();
}

TEST_F(MonitorWindow, TheOptionsDialogWritesAtOnce) {
    gui::frmRTMOptions form(*f.engine, f.window.get());
    form.show();
    auto* list = form.findChild<QListWidget*>(QStringLiteral("lstbServerListe"));
    auto* name = form.findChild<QLineEdit*>(QStringLiteral("txtbServerName"));
    ASSERT_TRUE(list && name);
    EXPECT_EQ(list->count(), 1) << "FS1 of the settings";
    QTest::keyClicks(name, QStringLiteral("fs9"));
    EXPECT_EQ(name->text(), QStringLiteral("FS9"));
    form.findChild<QPushButton*>(QStringLiteral("cmdAddServer"))->click();
    EXPECT_EQ(list->count(), 2);
    EXPECT_TRUE(name->text().isEmpty());

    form.tabs()->setCurrentIndex(4);
    auto* column = form.findChild<QComboBox*>(QStringLiteral("cbSortColumn"));
    auto* order = form.findChild<QComboBox*>(QStringLiteral("cbSortOrder"));
    EXPECT_FALSE(order->isEnabled());
    column->setCurrentIndex(3);
    Q_EMIT column->activated(3);
    EXPECT_TRUE(order->isEnabled());

    form.findChild<QPushButton*>(QStringLiteral("cmdMailTest"))->click();
    EXPECT_EQ(f.ui.messages.back().text, optionsText::kNotAvailable);

    form.tabs()->setCurrentIndex(3);
    auto* silent = form.findChild<QCheckBox*>(QStringLiteral("chkSilentErrors"));
    auto* protocol = form.findChild<QComboBox*>(QStringLiteral("cbSyslogProtocol"));
    ASSERT_TRUE(silent && protocol);
    EXPECT_FALSE(silent->isEnabled());
    protocol->setCurrentIndex(1);
    Q_EMIT protocol->activated(1);
    EXPECT_TRUE(silent->isEnabled());
    QTest::keyClicks(form.findChild<QLineEdit*>(QStringLiteral("txtbSyslogServer")),
                     QStringLiteral("loghost"));
    QString tested;
    f.engine->hooks.showSyslogTestFor = [&](const SyslogTestRequest& fields) {
        tested = fields.server;
    };
    form.findChild<QPushButton*>(QStringLiteral("cmdTestSyslogForwarding"))->click();
    EXPECT_EQ(tested, QStringLiteral("loghost"));
}
