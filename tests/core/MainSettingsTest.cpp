// The small stores of the main window: the window's place, the tip of the day and the
// delivered files.

#include "TestSupport.h"
#include "core/DeliveredFiles.h"
#include "core/TipOfTheDay.h"
#include "core/WindowPlace.h"
#include "core/settings/Registry.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

TEST(WindowPlace, StoredPlaceComesBack) {
    Registry registry;
    EXPECT_FALSE(ReadWindowPlace(registry, QStringLiteral("Mainfrm")).has_value());
    SaveWindowPlace(registry, QStringLiteral("Mainfrm"), {-20, 30, 1024, 700, true});
    const auto place = ReadWindowPlace(registry, QStringLiteral("Mainfrm"));
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->left, -20);
    EXPECT_EQ(place->top, 30);
    EXPECT_EQ(place->width, 1024);
    EXPECT_EQ(place->height, 700);
    EXPECT_TRUE(place->maximized);
    EXPECT_FALSE(ReadWindowPlace(registry, QStringLiteral("frmOther")).has_value());
}

TEST(WindowPlace, NonsenseIsNotRestored) {
    Registry registry;
    SaveWindowPlace(registry, QStringLiteral("Mainfrm"), {0, 0, 20, 700, false});
    EXPECT_FALSE(ReadWindowPlace(registry, QStringLiteral("Mainfrm")).has_value()) << "too narrow";
    SaveWindowPlace(registry, QStringLiteral("Mainfrm"), {0, 0, 800, 600, false});
    registry.Reg_SetString(Hive::CurrentUser, windowPlaceKey(QStringLiteral("Mainfrm")),
                           QStringLiteral("Top"), QStringLiteral("abc"));
    EXPECT_FALSE(ReadWindowPlace(registry, QStringLiteral("Mainfrm")).has_value())
        << "not a number";
}

TEST(TipOfTheDay, TipsAreLinesWithoutCommentsAndBlanks) {
    test::TempTree tree;
    const QString file =
        tree.write(QStringLiteral("tips.tdy"), "# heading\r\nfirst tip\r\n\r\n  \nsecond tip\n");
    EXPECT_EQ(ReadTips(file),
              (QStringList{QStringLiteral("first tip"), QStringLiteral("second tip")}));
    EXPECT_TRUE(ReadTips(tree.path(QStringLiteral("none.tdy"))).isEmpty());
}

TEST(TipOfTheDay, NextTipWrapsAndSurvivesBadValues) {
    Registry registry;
    for (int expected : {0, 1, 2, 0})
        EXPECT_EQ(TakeNextTip(registry, 3), expected);
    EXPECT_EQ(TakeNextTip(registry, 0), -1);
    registry.Reg_SetString(Hive::CurrentUser, tipOfTheDayKey(), QStringLiteral("NextTip"),
                           QStringLiteral("77"));
    EXPECT_EQ(TakeNextTip(registry, 3), 0) << "a number past the end starts over";
}

TEST(TipOfTheDay, StartupSwitchIsOnUnlessOff) {
    Registry registry;
    EXPECT_TRUE(TipsAtStartup(registry));
    SetTipsAtStartup(registry, false);
    EXPECT_FALSE(TipsAtStartup(registry));
    SetTipsAtStartup(registry, true);
    EXPECT_TRUE(TipsAtStartup(registry));
}

TEST(DeliveredFiles, CopiedWhenMissingNeverOverAChangedOne) {
    test::TempTree tree;
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path(QStringLiteral("share"));
    tree.write(QStringLiteral("share/tips.tdy"), "delivered\n");
    tree.write(QStringLiteral("share/help/index.htm"), "<html/>");
    EXPECT_EQ(
        CopyDeliveredFiles(paths, {QStringLiteral("tips.tdy"), QStringLiteral("help/index.htm"),
                                   QStringLiteral("absent.txt")}),
        (QStringList{QStringLiteral("tips.tdy"), QStringLiteral("help/index.htm")}));
    EXPECT_EQ(tree.read(QStringLiteral("app/help/index.htm")), QByteArray("<html/>"));
    tree.write(QStringLiteral("app/tips.tdy"), "mine\n");
    EXPECT_TRUE(CopyDeliveredFiles(paths, {QStringLiteral("tips.tdy")}).isEmpty());
    EXPECT_EQ(tree.read(QStringLiteral("app/tips.tdy")), QByteArray("mine\n"));
}

TEST(DeliveredFiles, AnUnchangedCopyFollowsANewerRelease) {
    test::TempTree tree;
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path(QStringLiteral("share"));
    const QStringList names = {QStringLiteral("help/a.htm"), QStringLiteral("help/b.htm"),
                               QStringLiteral("help/c.htm")};
    tree.write(QStringLiteral("share/help/a.htm"), "a1");
    tree.write(QStringLiteral("share/help/b.htm"), "b1");
    tree.write(QStringLiteral("share/help/c.htm"), "c1");
    tree.write(QStringLiteral("app/help/c.htm"), "c1"); // there before, the same as ours
    EXPECT_EQ(CopyDeliveredFiles(paths, names), names.mid(0, 2));

    // A later release: a.htm untouched by the user, b.htm changed by the user.
    tree.write(QStringLiteral("share/help/a.htm"), "a2");
    tree.write(QStringLiteral("share/help/b.htm"), "b2");
    tree.write(QStringLiteral("share/help/c.htm"), "c2");
    tree.write(QStringLiteral("app/help/b.htm"), "b mine");
    EXPECT_EQ(CopyDeliveredFiles(paths, names),
              (QStringList{QStringLiteral("help/a.htm"), QStringLiteral("help/c.htm")}));
    EXPECT_EQ(tree.read(QStringLiteral("app/help/a.htm")), QByteArray("a2"));
    EXPECT_EQ(tree.read(QStringLiteral("app/help/b.htm")), QByteArray("b mine"));
    EXPECT_EQ(tree.read(QStringLiteral("app/help/c.htm")), QByteArray("c2"));

    // Nothing new: nothing copied, and a file of unknown origin stays as it is.
    tree.write(QStringLiteral("share/help/d.htm"), "d1");
    tree.write(QStringLiteral("app/help/d.htm"), "d other");
    EXPECT_TRUE(
        CopyDeliveredFiles(paths, names + QStringList{QStringLiteral("help/d.htm")}).isEmpty());
    EXPECT_EQ(tree.read(QStringLiteral("app/help/d.htm")), QByteArray("d other"));
}
