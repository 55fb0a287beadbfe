#include "demo/DemoActivity.h"

#include "demo/DemoNetwork.h"
#include "demo/DemoRandom.h"
#include "demo/SysLogErrFormat.h"
#include "directory/UncPath.h"

#include <QFile>
#include <QFileInfo>

namespace twk::demo {

namespace {
const QString kEnglishServer = QStringLiteral("FS1");
const QString kGermanServer = QStringLiteral("FS2");
} // namespace

DemoActivity::DemoActivity(QString networkFolder, int minSeconds, int maxSeconds, QObject* parent)
    : QObject(parent), folder_(std::move(networkFolder)), minSeconds_(std::max(1, minSeconds)),
      maxSeconds_(std::max(minSeconds_, maxSeconds)),
      english_(std::make_unique<SysLogErrEventSource>(LogLanguage::English, 0xD3A10001ull,
                                                      kEnglishServer.toStdString())),
      german_(std::make_unique<SysLogErrEventSource>(LogLanguage::German, 0xD3A10002ull,
                                                     kGermanServer.toStdString())) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &DemoActivity::tick);
}

DemoActivity::~DemoActivity() = default;

bool DemoActivity::start() {
    if (!isDemoNetwork(folder_))
        return false;
    scheduleNext();
    return true;
}

void DemoActivity::stop() {
    timer_.stop();
}

void DemoActivity::scheduleNext() {
    DemoRandom random(0xAC71u + count_);
    timer_.start(random.between(minSeconds_, maxSeconds_) * 1000);
}

void DemoActivity::tick() {
    appendEvent();
    scheduleNext();
}

QString DemoActivity::appendEvent() {
    // Four of five events come from the English server, every fifth from the German one.
    const bool german = ++count_ % 5 == 0;
    const QString server = german ? kGermanServer : kEnglishServer;
    const LogLanguage language = german ? LogLanguage::German : LogLanguage::English;
    const auto path = mapUncPath(folder_, sysSystemUnc(server, QStringLiteral("SYS$LOG.ERR")));
    if (!path || !QFileInfo(*path).isFile())
        return QString();
    const SysLogErrEvent event = (german ? german_ : english_)->next();
    const std::string entry = formatSysLogErrEntry(event, clock(), language);
    QFile file(*path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append) ||
        file.write(entry.data(), static_cast<qint64>(entry.size())) !=
            static_cast<qint64>(entry.size()))
        return QString();
    return server;
}

} // namespace twk::demo
