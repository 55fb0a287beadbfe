// The TID finder: the history, the numbers taken from it, the page opened, and the
// browser watch that stores what was opened.

#include "tools/TidFinder.h"
#include "ToolsTestSupport.h"
#include "core/settings/DefaultSettings.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QString kTids = QStringLiteral("Software\\Brindlex\\TWK\\TIDs");

/// A browser whose front page a test sets.
class FakeBrowser : public BrowserPort {
public:
    QString name = QStringLiteral("firefox");
    QString title;
    int asked = 0;
    QString defaultBrowser() override { return name; }
    bool frontPage(QString& t, QString& address) override {
        ++asked;
        t = title;
        address = QStringLiteral("https://example/page");
        return !title.isEmpty();
    }
};

class TidFinder : public ::testing::Test {
protected:
    TidFinder() : watch(*t.engine, browser), form(*t.engine, browser, &watch) {
        WriteTidHistoryDefaults(t.engine->registry);
    }
    QString entry(int n) const {
        return t.engine->registry.Reg_GetValue(Hive::CurrentUser, kTids + "\\" + QString::number(n),
                                               QString());
    }
    test::ToolsEngine t;
    FakeBrowser browser;
    BrowserWatch watch;
    FrmTIDFinder form;
};

} // namespace

TEST_F(TidFinder, TheHistoryFillsTheListAndGivesItsNumbers) {
    t.engine->registry.Reg_SetString(Hive::CurrentUser, kTids + "\\7", QString(), "no tid here");
    form.Form_Load();
    ASSERT_EQ(form.cbxTIDHistory.items.size(), 5);
    EXPECT_EQ(form.cbxTIDHistory.items[0], "select TID...");
    EXPECT_EQ(form.lbTIDCount.text, "4");
    EXPECT_EQ(form.caption, " TID-Finder");

    form.cbxTIDHistory.ListIndex = 3;
    form.cbxTIDHistory_Click();
    EXPECT_EQ(form.txbTID.text, "2938836");
    form.cbxTIDHistory.ListIndex = 4;
    form.cbxTIDHistory_Click();
    ASSERT_EQ(t.ui.messages.size(), 1u);
    EXPECT_EQ(t.ui.messages[0].text, "Tarnwick was      \r\nunable to extract the TID#.");
    EXPECT_EQ(t.ui.messages[0].title, " TID-Finder Error:");
    EXPECT_EQ(form.txbTID.text, "2938836");
}

TEST_F(TidFinder, GoOpensThePageAndTheWatchStoresIt) {
    form.Form_Load();
    form.cmdGo_Click();
    EXPECT_EQ(t.lastMessage(), "Invalid TID#     ");
    EXPECT_EQ(form.focus, "txbTID");
    EXPECT_TRUE(t.desktop.opened.empty());

    form.txbTID.text = " 10017179 ";
    form.cmdGo_Click();
    ASSERT_EQ(t.desktop.opened.size(), 1u);
    EXPECT_EQ(t.desktop.opened[0],
              "https://support.novell.com/cgi-bin/search/searchtid.cgi?/10017179.htm");
    EXPECT_TRUE(form.browserRequest.isEmpty());
    EXPECT_TRUE(watch.running());

    // The watch asks six times, then stops by itself.
    for (int i = 0; i < 10; ++i)
        t.clock.fireNext();
    EXPECT_EQ(browser.asked, BrowserWatch::kMaxTicks);
    EXPECT_FALSE(watch.running());

    browser.name = "Netscape Communicator";
    browser.title = "TID-10099999 Some article";
    form.txbTID.text = "10099999 x/y";
    form.cmdGo_Click();
    EXPECT_EQ(form.browserRequest, "1");
    EXPECT_TRUE(t.desktop.opened.back().endsWith("searchtid.cgi?/10099999%20x%2Fy.htm"));
    t.clock.advance(BrowserWatch::kIntervalMs);
    EXPECT_FALSE(watch.running());
    EXPECT_EQ(entry(4), "TID-10099999 Some article");
}

TEST_F(TidFinder, TitlesGoIntoARingOfThirty) {
    EXPECT_FALSE(StoreTidTitle(t.engine->registry, "TID-$something"));
    EXPECT_FALSE(StoreTidTitle(t.engine->registry, "Some page"));
    EXPECT_FALSE(StoreTidTitle(t.engine->registry, "TID-10017179 again")) << "already there";
    for (int n = 4; n <= 31; ++n)
        EXPECT_TRUE(StoreTidTitle(t.engine->registry, QStringLiteral("TID-%1").arg(n)));
    EXPECT_EQ(entry(30), "TID-30");
    EXPECT_EQ(entry(1), "TID-31") << "the 31st replaces the oldest";
    EXPECT_EQ(t.engine->registry.Reg_GetValue(Hive::CurrentUser, kTids + "\\LastTID", QString()),
              "1");
    EXPECT_EQ(TidHistory(t.engine->registry).size(), 30);
}

TEST(OpenedPageBrowser, TheFrontPageIsTheTidOpenedLast) {
    OpenedPageBrowser browser;
    QString title;
    QString address;
    EXPECT_FALSE(browser.frontPage(title, address));
    browser.opened(" 10060600 ", "https://x/10060600.htm");
    ASSERT_TRUE(browser.frontPage(title, address));
    EXPECT_EQ(title, "TID-10060600");
    EXPECT_EQ(address, "https://x/10060600.htm");
}
