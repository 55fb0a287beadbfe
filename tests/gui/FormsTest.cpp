#include "GuiSupport.h"
#include "core/TipOfTheDay.h"
#include "gui/frmMessage.h"
#include "gui/frmProgress.h"
#include "gui/frmTipOfTheDay.h"

#include <QCheckBox>
#include <QLabel>

#include <gtest/gtest.h>

using namespace twk;

TEST(frmProgress, PlaceFollowsTheMainWindow) {
    EXPECT_EQ(gui::progressPlace(QRect(100, 50, 1000, 700)),
              QPoint(100 + 500 - 171, 50 + 350 - 20));
    EXPECT_EQ(gui::progressPlace(QRect(0, 0, 200, 20)), QPoint(0, 0)) << "never below 0";
}

TEST(frmProgress, BarAndFlash) {
    gui::frmProgress progress;
    progress.showProgress(QStringLiteral("   Pass 1/2"), kBarStartTwips);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.caption(), QStringLiteral("   Pass 1/2"));
    progress.setBar(2250);
    EXPECT_EQ(progress.barTwips(), 2250);
    progress.setBar(-5);
    EXPECT_EQ(progress.barTwips(), kBarStartTwips);
    progress.hideProgress();
    EXPECT_FALSE(progress.isVisible());

    progress.flashProgress(QStringLiteral("   Pass 2/2"), 50);
    EXPECT_TRUE(progress.isVisible()) << "the flash does not block";
    EXPECT_EQ(progress.barTwips(), kBarFullTwips);
    EXPECT_TRUE(progress.flashing());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !progress.isVisible(); }, 2000));
}

TEST(frmMessage, LinesHeadlineAndLink) {
    StyledMessage m;
    m.formCaption = QStringLiteral(" Tarnwick");
    m.headline = QStringLiteral("Error!");
    m.lines = {QStringLiteral("one"),
               QStringLiteral("two"),
               QStringLiteral("three"),
               QStringLiteral("four"),
               QStringLiteral("https://example.org/"),
               QStringLiteral("six")};
    m.line5IsLink = true;
    QStringList opened;
    gui::frmMessage form(m, [&](const QString& link) { opened << link; });
    EXPECT_EQ(form.lbHeadline->text(), QStringLiteral("Error!"));
    EXPECT_EQ(form.lbFormCaption->text(), QStringLiteral(" Tarnwick"));
    EXPECT_EQ(form.lbZeile[5]->text(), QStringLiteral("six"));
    EXPECT_TRUE(form.lbZeile[7]->text().isEmpty());
    EXPECT_TRUE(form.lbZeile[4]->font().underline());
    QTest::mouseClick(form.lbZeile[4], Qt::LeftButton);
    EXPECT_EQ(opened, QStringList{QStringLiteral("https://example.org/")});
    QTest::mouseClick(form.lbZeile[3], Qt::LeftButton);
    EXPECT_EQ(opened.size(), 1) << "other lines are no links";
}

TEST(frmTipOfTheDay, ShowsTipsInTurnAndKeepsTheSwitch) {
    test::TempTree tree;
    const QString file = tree.write(QStringLiteral("tips.tdy"), "first\nsecond\n");
    Registry registry;
    gui::frmTipOfTheDay tip(registry, file, test::testImages());
    EXPECT_EQ(tip.tipText(), QStringLiteral("first"));
    tip.nextTip();
    EXPECT_EQ(tip.tipText(), QStringLiteral("second"));
    tip.nextTip();
    EXPECT_EQ(tip.tipText(), QStringLiteral("first"));
    tip.chkStartup()->setChecked(false);
    EXPECT_FALSE(TipsAtStartup(registry));

    gui::frmTipOfTheDay empty(registry, tree.path(QStringLiteral("none.tdy")), test::testImages());
    EXPECT_EQ(empty.tipText(), QStringLiteral("There are no tips in tips.tdy."));
}
