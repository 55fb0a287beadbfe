#include "monitor/ServerFiles.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/EventTypeRecognizer.h"
#include "logs/LineReader.h"

#include <QFileInfo>

#include <optional>

namespace twk {

namespace {

const QString kServerFilesEnglish = QString::fromLatin1(kEnglisch.data(), kEnglisch.size());
const QString kServerFilesGerman = QString::fromLatin1(kDeutsch.data(), kDeutsch.size());

bool isSingleServerName(const QString& name) {
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty() || trimmed == QStringLiteral(".") || trimmed == QStringLiteral(".."))
        return false;
    for (const QChar c : name)
        if (c == u'\\' || c == u'/' || c.unicode() < 32)
            return false;
    return true;
}

MonitoredServer* recordAt(Engine& engine, int index) {
    if (index < 0 || index >= kMonitorCapacity)
        return nullptr;
    return &engine.monitor.MonitorServers[static_cast<std::size_t>(index)];
}

} // namespace

QString serverLogUnc(const QString& serverName) {
    if (!isSingleServerName(serverName))
        return {};
    return QStringLiteral("\\\\") + serverName + QStringLiteral("\\SYS\\SYSTEM\\SYS$LOG.ERR");
}

namespace {

// The server's log as a local file, or nothing when it cannot be read.
std::optional<QFileInfo> readableServerLogInfo(Engine& engine, const QString& serverName) {
    const QString unc = serverLogUnc(serverName);
    if (unc.isEmpty() || engine.network == nullptr)
        return std::nullopt;
    FileAccessPort& files = engine.network->files();
    if (files.accessError(unc) != 0)
        return std::nullopt;
    QFileInfo info(files.localPath(unc));
    if (!info.isFile())
        return std::nullopt;
    return info;
}

} // namespace

QString readableServerLog(Engine& engine, const QString& serverName) {
    const auto info = readableServerLogInfo(engine, serverName);
    return info ? info->filePath() : QString();
}

std::int32_t GetServerFileSize(Engine& engine, const QString& serverName, int index) {
    engine.view.showSimpleText(QStringLiteral("Getting the SYS$LOG.ERR file size of Server ") +
                               serverName + QStringLiteral("..."));
    const auto info = readableServerLogInfo(engine, serverName);
    // The table keeps 32 bits of the size: enough to see that it changed.
    const auto size = !info ? std::int32_t{0}
                            : static_cast<std::int32_t>(static_cast<std::uint32_t>(
                                  static_cast<std::uint64_t>(info->size())));
    if (size == 0)
        if (MonitoredServer* server = recordAt(engine, index))
            server->Language = kServerFilesEnglish;
    engine.view.showSimpleText({});
    return size;
}

QString ReadServerLanguage(Engine& engine, const QString& serverName, int index) {
    MonitoredServer* server = recordAt(engine, index);
    if (server != nullptr && !server->Language.isEmpty())
        return server->Language;
    engine.view.showSimpleText(QStringLiteral("Looking for the Server Language of Server ") +
                               serverName + QStringLiteral("..."));
    QString language = kServerFilesEnglish;
    const QString local = readableServerLog(engine, serverName);
    if (!local.isEmpty()) {
        LineReader reader(local);
        std::string_view line;
        while (reader.next(line)) {
            engine.yieldIfDue();
            if (!text::contains(line, "=") || text::containsCaseBlind(line, "SYS$LOG.ERR"))
                continue;
            if (text::contains(line, "Severity"))
                break;
            if (text::contains(line, "Schweregrad")) {
                language = kServerFilesGerman;
                break;
            }
        }
    }
    if (server != nullptr)
        server->Language = language;
    engine.view.showSimpleText({});
    return language;
}

} // namespace twk
