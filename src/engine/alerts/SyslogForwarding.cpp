#include "alerts/SyslogForwarding.h"

#include "alerts/KLog.h"
#include "core/Engine.h"
#include "core/EngineHooks.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"
#include "monitor/SyslogNames.h"

namespace twk {

namespace {

constexpr int kMessageLength = 900;
constexpr int kErrorBufferLength = 202;
constexpr int kErrorTextLength = 200;

} // namespace

SyslogSettings ReadSyslogSettings(const Registry& registry) {
    const QString key = twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding"));
    const auto number = [&](const char* name, const char* fallback) {
        return text::numericReading(
            registry
                .Reg_GetValue(Hive::CurrentUser, key, QLatin1String(name), QLatin1String(fallback))
                .toStdString());
    };
    SyslogSettings s;
    s.server = registry.Reg_GetValue(Hive::CurrentUser, key, QStringLiteral("SyslogServer"), {});
    s.port = static_cast<int>(number("DestinationPort", "514"));
    s.UseTCP = number("SyslogProtocol", "0") == 1;
    s.UseRFCHeader = number("RFCHeader", "1") == 1;
    s.AddCRLF = number("addCRLF", "1") == 1;
    s.UseSilentErrors = number("SilentErrors", "0") == 1;
    s.SyslogLibraryPresent = true;
    return s;
}

void SaveSyslogSettings(Engine& engine, const SyslogTestRequest& fields) {
    const QString key = twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding"));
    Registry& r = engine.registry;
    const auto dword = [&](const char* name, long long value) {
        r.Reg_SetDWord(Hive::CurrentUser, key, QLatin1String(name), static_cast<quint32>(value));
    };
    r.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("SyslogServer"), fields.server);
    dword("DestinationPort", text::numericReading(fields.port.toStdString()));
    dword("SyslogProtocol", fields.protocol);
    dword("addCRLF", fields.crlf ? 1 : 0);
    dword("SilentErrors", fields.silentErrors ? 1 : 0);
    dword("RFCHeader", fields.rfcHeader ? 1 : 0);
    engine.ui.messageBox(QStringLiteral("Event Forwarding Settings     \r\nsuccessfully saved!"),
                         MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

namespace {
template <std::size_t N> QStringList toNames(const std::array<std::string_view, N>& names) {
    QStringList list;
    for (const std::string_view name : names)
        list.append(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
    return list;
}
} // namespace

const QStringList& SyslogFacilityNames() {
    static const QStringList names = toNames(kSyslogFacilities);
    return names;
}

const QStringList& SyslogLevelNames() {
    static const QStringList names = toNames(kSyslogLevels);
    return names;
}

QString SyslogMessage(const MonitorRowEvent& e, bool addCrLf) {
    const QString whole = QStringLiteral("Server: ") + e.server + QStringLiteral(", ") +
                          QStringLiteral("RTM State: ") + RealtimeStateWord(e.ledImage) +
                          QStringLiteral(", ") + QStringLiteral("Date: ") + e.date +
                          QStringLiteral(", ") + QStringLiteral("Status: ") + e.status +
                          QStringLiteral(", ") + QStringLiteral("Source: ") + e.source +
                          QStringLiteral(", ") + QStringLiteral("Category: ") + e.category +
                          QStringLiteral(", ") + QStringLiteral("Error#: ") + e.errorNumber +
                          QStringLiteral(", ") + QStringLiteral("ErrorMessage: ") + e.message;
    QString message = whole.left(kMessageLength);
    if (addCrLf)
        message += QStringLiteral("\r\n");
    return message;
}

SyslogSendResult SendSyslogMessage(Engine& engine, KLog& klog, const QString& server, int port,
                                   int priority, bool rfcHeader, const QString& processName,
                                   const QString& message, bool silentErrors, bool tcp) {
    SyslogSendResult result;
    const int handle = klog.KLogInitialise();
    klog.KLogSetHostAddress(handle, server);
    klog.KLogSetPortByNum(handle, port);
    klog.KLogSetMessagePriority(handle, priority);
    klog.KLogSetProcessName(handle, rfcHeader ? 1 : 0, processName);
    klog.KLogSetMessage(handle, message);
    klog.KLogUseSilentErrors(handle, silentErrors ? 1 : 0);
    klog.KLogUseTCP(handle, tcp ? 1 : 0);
    result.number = klog.KLogSendMessage(handle);
    if (result.number != 0) {
        char buffer[kErrorBufferLength] = {};
        klog.KLogReturnError(handle, buffer, kErrorTextLength);
        if (buffer[0] != '\0') {
            result.errorText = QString::fromUtf8(buffer);
            engine.ui.messageBox(result.errorText, MsgIcon::Critical, MsgButtons::Ok,
                                 QStringLiteral(" KLOG.DLL error ") +
                                     QString::number(result.number));
        }
    }
    klog.KLogUninitialise(handle);
    return result;
}

} // namespace twk
