// The help pages delivered in share/help: every page the program opens is there, every
// page is well formed with its title and the shared style, every link and picture
// resolves, and start-up copies the pages into the application folder.

#include "MainWindowSupport.h"
#include "core/DeliveredFiles.h"
#include "core/MainKeys.h"
#include "core/MainView.h"
#include "core/SharePath.h"
#include "logs/ConsoleLogFiles.h"
#include "logs/EventFilterForm.h"
#include "logs/EventPropertiesForm.h"
#include "logs/FindForm.h"
#include "logs/GotoConsole.h"
#include "logs/GotoForm.h"
#include "tools/ErrorCodeForm.h"
#include "tools/RemoteConsole.h"
#include "tools/TidFinder.h"
#include "tools/UpdateCheckForm.h"

#include <QDirIterator>
#include <QSet>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QString kShare = QStringLiteral(TWK_SHARE_DIR);
const QString kHelp = kShare + QStringLiteral("/help");

std::string str(const QString& text) {
    return text.toStdString();
}

/// Every page the program names: F1 of the main window by view, F1 of each dialog, and
/// the two links of the event properties.
QStringList pagesTheProgramNames() {
    QStringList pages;
    for (const QString& view :
         {views::kNone, views::kSysLogErr, views::kConsoleLog, views::kCronlog, views::kAbendLog,
          views::kRealtimeMonitor, views::kFilterRules, views::kHealthCheck3})
        pages << HelpPageOfView(view);
    pages << filterText::kHelpPage << findText::kHelpPage << gotoText::kHelpPage
          << GotoConsoleModel::kHelpPage << consoleHistoryText::kHelpPage
          << propertiesText::kHelpPage << propertiesText::kStatusHelpPage
          << propertiesText::kEventTypeHelpPage << errorCodeText::kHelpPage << tidText::kHelpPage
          << rconsoleText::kHelpPage << updateText::kHelpPage;
    pages.removeDuplicates();
    return pages;
}

/// The pages below share/help, relative to it.
QStringList deliveredPages() {
    QStringList pages;
    QDirIterator it(kHelp, {QStringLiteral("*.htm")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        pages << QDir(kHelp).relativeFilePath(it.next());
    pages.sort();
    return pages;
}

/// What a page holds that the checks need, read as XML: the pages are kept well formed
/// so that a missing end tag or an unquoted attribute shows here.
struct ParsedPage {
    QString error;
    QString lang;
    QString title;
    QStringList stylesheets;
    QStringList links; ///< href of a and link, src of img
    QSet<QString> ids;
    bool hasScript = false;
};

ParsedPage parse(const QString& file) {
    ParsedPage page;
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        page.error = QStringLiteral("cannot be read");
        return page;
    }
    QXmlStreamReader xml(&in);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        const QXmlStreamAttributes a = xml.attributes();
        if (a.hasAttribute(QStringLiteral("id")))
            page.ids.insert(a.value(QStringLiteral("id")).toString());
        if (name == QStringLiteral("html"))
            page.lang = a.value(QStringLiteral("lang")).toString();
        else if (name == QStringLiteral("title"))
            page.title = xml.readElementText().trimmed();
        else if (name == QStringLiteral("script"))
            page.hasScript = true;
        else if (name == QStringLiteral("img"))
            page.links << a.value(QStringLiteral("src")).toString();
        else if (name == QStringLiteral("a") || name == QStringLiteral("link"))
            page.links << a.value(QStringLiteral("href")).toString();
        if (name == QStringLiteral("link") &&
            a.value(QStringLiteral("rel")) == QStringLiteral("stylesheet"))
            page.stylesheets << a.value(QStringLiteral("href")).toString();
    }
    if (xml.hasError())
        page.error = QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
    return page;
}

/// Why a link of `page` does not resolve inside share/; empty when it does.
QString brokenLink(const QString& page, const QString& link) {
    if (link.isEmpty())
        return QStringLiteral("empty link");
    if (link.contains(QStringLiteral(":")) || link.startsWith(QLatin1Char('/')))
        return QStringLiteral("not a relative link: ") + link;
    const qsizetype hash = link.indexOf(QLatin1Char('#'));
    const QString path = hash < 0 ? link : link.left(hash);
    const QString fragment = hash < 0 ? QString() : link.mid(hash + 1);
    const QString pageFile = QDir(kHelp).filePath(page);
    const QString target =
        path.isEmpty() ? pageFile
                       : QFileInfo(QFileInfo(pageFile).dir().filePath(path)).canonicalFilePath();
    if (target.isEmpty() || !QFileInfo(target).isFile())
        return QStringLiteral("no such file: ") + link;
    if (!target.startsWith(QFileInfo(kShare).canonicalFilePath() + QLatin1Char('/')))
        return QStringLiteral("leaves the delivered files: ") + link;
    if (!fragment.isEmpty() && !parse(target).ids.contains(fragment))
        return QStringLiteral("no such anchor: ") + link;
    return {};
}

} // namespace

TEST(HelpPages, EveryPageTheProgramOpensIsDelivered) {
    const QStringList pages = pagesTheProgramNames();
    ASSERT_EQ(pages.size(), 17) << "four views, the start page, twelve dialog pages and links";
    for (const QString& page : pages)
        EXPECT_TRUE(QFileInfo(QDir(kHelp).filePath(page)).isFile()) << str(page);
}

TEST(HelpPages, EveryPageIsWellFormedWithTitleStyleAndNoScript) {
    const QStringList pages = deliveredPages();
    ASSERT_GE(pages.size(), 14);
    for (const QString& page : pages) {
        const ParsedPage p = parse(QDir(kHelp).filePath(page));
        EXPECT_TRUE(p.error.isEmpty()) << str(page) << ": " << str(p.error);
        EXPECT_EQ(p.lang, QStringLiteral("en")) << str(page);
        EXPECT_FALSE(p.title.isEmpty()) << str(page) << " has no title";
        EXPECT_EQ(p.stylesheets.size(), 1) << str(page);
        for (const QString& sheet : p.stylesheets)
            EXPECT_TRUE(sheet.endsWith(QStringLiteral("help.css"))) << str(page);
        EXPECT_FALSE(p.hasScript) << str(page);
    }
}

TEST(HelpPages, EveryLinkAndPictureResolves) {
    int checked = 0;
    for (const QString& page : deliveredPages()) {
        for (const QString& link : parse(QDir(kHelp).filePath(page)).links) {
            EXPECT_EQ(brokenLink(page, link), QString()) << str(page);
            ++checked;
        }
    }
    EXPECT_GT(checked, 100);
}

TEST(HelpPages, TheLinkCheckSeesBrokenLinks) {
    const QString page = QStringLiteral("index.htm");
    EXPECT_EQ(brokenLink(page, QStringLiteral("_cronlog/description.htm#filter")), QString());
    EXPECT_EQ(brokenLink(page, QStringLiteral("#saved")), QString());
    for (const char* link : {"_cronlog/nothing.htm", "_cronlog/description.htm#nothing",
                             "https://example.org/", "../../outside.htm", ""})
        EXPECT_FALSE(brokenLink(page, QString::fromLatin1(link)).isEmpty()) << link;
}

TEST(HelpPages, TheStartPageLinksEveryPage) {
    const ParsedPage index = parse(QDir(kHelp).filePath(QStringLiteral("index.htm")));
    QSet<QString> linked;
    for (const QString& link : index.links)
        linked.insert(link.section(QLatin1Char('#'), 0, 0));
    for (const QString& page : deliveredPages()) {
        if (page != QStringLiteral("index.htm")) {
            EXPECT_TRUE(linked.contains(page)) << str(page) << " is not on the start page";
        }
    }
}

TEST(DeliveredHelpFiles, TakesHelpAndIconsOnly) {
    test::TempTree tree;
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path(QStringLiteral("share"));
    EXPECT_TRUE(DeliveredHelpFiles(paths).isEmpty()) << "no share folder at all";
    tree.write(QStringLiteral("share/help/index.htm"), "<html/>");
    tree.write(QStringLiteral("share/help/_cronlog/description.htm"), "<html/>");
    tree.write(QStringLiteral("share/icons/00.svg"), "<svg/>");
    tree.write(QStringLiteral("share/tips.tdy"), "tip\n");
    tree.write(QStringLiteral("share/data/errorcodes.txt"), "1 - one\n");
    EXPECT_EQ(DeliveredHelpFiles(paths),
              (QStringList{QStringLiteral("help/_cronlog/description.htm"),
                           QStringLiteral("help/index.htm"), QStringLiteral("icons/00.svg")}));
}

TEST(DeliveredHelpFiles, StartUpCopiesThemAndKeepsAChangedPage) {
    test::MainWindowFixture f;
    f.tree.write(QStringLiteral("app/help/index.htm"), "my own start page");
    ASSERT_EQ(f.start(), StartupOutcome::Running);
    const QStringList names = DeliveredHelpFiles(f.engine->paths);
    ASSERT_TRUE(names.contains(QStringLiteral("help/_syslog.err/_goto/goto.htm")));
    ASSERT_TRUE(names.contains(QStringLiteral("icons/26.svg")));
    for (const QString& name : names)
        EXPECT_TRUE(QFileInfo(f.engine->paths.inApp(name)).isFile()) << str(name);
    EXPECT_EQ(f.tree.read(QStringLiteral("app/help/index.htm")), QByteArray("my own start page"));
    QFile delivered(kShare + QStringLiteral("/help/_cronlog/description.htm"));
    ASSERT_TRUE(delivered.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.tree.read(QStringLiteral("app/help/_cronlog/description.htm")),
              delivered.readAll());
}
