#pragma once
// A started main window on the test network of the engine tests.

#include "core/MainWindowSupport.h"
#include "core/SharePath.h"
#include "gui/GridView.h"
#include "gui/ImageList.h"
#include "gui/MainMenus.h"
#include "gui/Mainfrm.h"
#include "gui/StatusPanes.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace twk::test {

inline const gui::ImageList& testImages() {
    static const gui::ImageList images(
        QDir(QStringLiteral(TWK_SHARE_DIR)).filePath(QStringLiteral("icons")));
    return images;
}

class WindowFixture : public MainWindowFixture {
public:
    explicit WindowFixture(bool withNetwork = true)
        : MainWindowFixture(withNetwork),
          window(std::make_unique<gui::Mainfrm>(*engine, testImages())) {}

    /// Runs the start and shows the window.
    void startWindow() {
        start();
        window->show();
        window->refresh();
        (void)QTest::qWaitForWindowExposed(window.get());
    }
    /// Chooses an item of a cascade list as the user does.
    static void choose(QComboBox* combo, const QString& item) {
        const int index = combo->findText(item);
        ASSERT_GE(index, 0) << item.toStdString();
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }
    void loadLog() {
        choose(window->cbLogFile(), QStringLiteral("SYS$LOG.ERR"));
        ASSERT_EQ(engine->Grid1.Rows(), 40);
    }
    /// The text of a status pane as the window shows it.
    QString paneText(int pane) const { return window->StatusBar1()->pane(pane)->text(); }
    QAction* menu(const char* name) const {
        return window->menus().action(QString::fromLatin1(name));
    }

    std::unique_ptr<gui::Mainfrm> window;
};

} // namespace twk::test
