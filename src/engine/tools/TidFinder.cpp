#include "tools/TidFinder.h"

#include "core/Engine.h"
#include "core/settings/SettingsKeys.h"

#include <QUrl>

namespace twk {

namespace {

QString tidKey() {
    return twkKey(QStringLiteral("TIDs"));
}

QString entryKey(int n) {
    return tidKey() + u'\\' + QString::number(n);
}

/// The number of a history entry or title: behind "TID-" up to the first blank.
QString tidNumber(const QString& entry) {
    return entry.mid(4).section(u' ', 0, 0);
}

bool isTidText(const QString& text) {
    return text.left(4).toUpper() == QStringLiteral("TID-");
}

} // namespace

QString TidSite(const Registry& registry) {
    QString site =
        registry.Reg_GetValue(Hive::CurrentUser, tidKey(), QStringLiteral("Site")).trimmed();
    while (site.endsWith(u'/'))
        site.chop(1);
    return site.isEmpty() ? tidText::kDefaultSite : site;
}

QString TidUrl(const Registry& registry, const QString& tid) {
    return TidSite(registry) + tidText::kSearchPath +
           QString::fromLatin1(QUrl::toPercentEncoding(tid.trimmed())) + QStringLiteral(".htm");
}

QStringList TidHistory(const Registry& registry) {
    QStringList entries;
    for (int n = 1; n <= kTidHistorySize; ++n) {
        const QString entry = registry.Reg_GetValue(Hive::CurrentUser, entryKey(n), QString());
        if (!entry.isEmpty())
            entries << entry;
    }
    return entries;
}

bool StoreTidTitle(Registry& registry, const QString& title) {
    if (!title.startsWith(QStringLiteral("TID-")) || title.startsWith(QStringLiteral("TID-$")))
        return false;
    const QString number = tidNumber(title);
    for (const QString& entry : TidHistory(registry))
        if (isTidText(entry) && tidNumber(entry) == number)
            return false;
    const int last =
        registry.Reg_GetValue(Hive::CurrentUser, tidKey() + QStringLiteral("\\LastTID"), QString())
            .toInt();
    const int next = last >= 1 && last < kTidHistorySize ? last + 1 : 1;
    Registry::Batch batch(registry);
    registry.Reg_SetString(Hive::CurrentUser, entryKey(next), QString(), title);
    registry.Reg_SetString(Hive::CurrentUser, tidKey() + QStringLiteral("\\LastTID"), QString(),
                           QString::number(next));
    return true;
}

QString OpenedPageBrowser::defaultBrowser() {
    const QString browser = qEnvironmentVariable("BROWSER");
    return browser.isEmpty() ? QStringLiteral("the desktop's web browser") : browser;
}

bool OpenedPageBrowser::frontPage(QString& title, QString& address) {
    if (title_.isEmpty())
        return false;
    title = title_;
    address = address_;
    return true;
}

void OpenedPageBrowser::opened(const QString& tid, const QString& address) {
    title_ = QStringLiteral("TID-") + tid.trimmed();
    address_ = address;
}

BrowserWatch::BrowserWatch(Engine& engine, BrowserPort& browser)
    : engine_(engine), browser_(browser) {}

BrowserWatch::~BrowserWatch() {
    stop();
}

void BrowserWatch::start() {
    stop();
    ticks_ = 0;
    timer_ = engine_.clock->startTimer(kIntervalMs, [this] { Timer2_Timer(); });
}

void BrowserWatch::stop() {
    if (timer_ != 0)
        engine_.clock->stopTimer(timer_);
    timer_ = 0;
}

void BrowserWatch::Timer2_Timer() {
    withErrorTail(engine_.errors, "Mainfrm.Timer2_Timer()", [&] {
        ++ticks_;
        QString title;
        QString address;
        if (browser_.frontPage(title, address) && title.startsWith(QStringLiteral("TID-")) &&
            !title.startsWith(QStringLiteral("TID-$"))) {
            StoreTidTitle(engine_.registry, title);
            stop();
            return;
        }
        if (ticks_ >= kMaxTicks)
            stop();
    });
}

FrmTIDFinder::FrmTIDFinder(Engine& engine, BrowserPort& browser, BrowserWatch* watch)
    : engine_(engine), browser_(browser), watch_(watch) {}

void FrmTIDFinder::Form_Load() {
    const QStringList history = TidHistory(engine_.registry);
    cbxTIDHistory.items = QStringList{tidText::kSelectTid} + history;
    cbxTIDHistory.ListIndex = 0;
    lbTIDCount.text = QString::number(history.size());
}

void FrmTIDFinder::cbxTIDHistory_Click() {
    if (cbxTIDHistory.ListIndex <= 0)
        return; // the placeholder
    const QString entry = cbxTIDHistory.text();
    if (isTidText(entry)) {
        txbTID.text = tidNumber(entry);
        focus = QStringLiteral("cmdGo");
        return;
    }
    engine_.ui.messageBox(tidText::kExtractError, MsgIcon::Exclamation, MsgButtons::Ok,
                          tidText::kErrorTitle);
}

void FrmTIDFinder::cmdGo_Click() {
    withErrorTail(engine_.errors, "frmTIDFinder.cmdGo_Click()", [&] {
        if (txbTID.text.isEmpty()) {
            engine_.ui.messageBox(tidText::kInvalidTid, MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
            focus = QStringLiteral("txbTID");
            return;
        }
        const QString browser = browser_.defaultBrowser();
        browserRequest = browser == QStringLiteral("Microsoft Internet Explorer") ||
                                 browser == QStringLiteral("Netscape Communicator")
                             ? QStringLiteral("1")
                             : QString();
        const QString url = TidUrl(engine_.registry, txbTID.text);
        engine_.desktop->openDefault(url);
        browser_.opened(txbTID.text, url);
        if (watch_ != nullptr)
            watch_->start();
    });
}

} // namespace twk
