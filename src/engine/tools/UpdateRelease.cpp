#include "tools/UpdateRelease.h"

#include "core/settings/Registry.h"
#include "core/settings/SettingsKeys.h"

namespace twk {

namespace {

constexpr int kMaxReleaseChars = 50;

bool releaseAllDigits(const QString& text) {
    if (text.isEmpty())
        return false;
    for (const QChar c : text)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

const QString kUpdateKey = QStringLiteral("Update");
const QString kServerValue = QStringLiteral("Server");

} // namespace

QString Release::text() const {
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(revision);
}

ReleaseText ParseReleaseText(const QByteArray& content, Release& release) {
    if (content.isEmpty() || content.size() > kMaxReleaseChars)
        return ReleaseText::NoContent;
    QString text = QString::fromLatin1(content);
    const int cr = static_cast<int>(text.indexOf(u'\r'));
    if (cr >= 0)
        text.truncate(cr);
    const int point = static_cast<int>(text.indexOf(u'.'));
    if (text.size() != 4 || point < 0)
        return ReleaseText::WrongForm;
    const QString major = text.left(point);
    const QString minor = text.mid(point + 1, 1);
    const QString revision = text.right(1);
    if (!releaseAllDigits(major) || !releaseAllDigits(minor) || !releaseAllDigits(revision))
        return ReleaseText::WrongForm;
    release.major = major.toInt();
    release.minor = minor.toInt();
    release.revision = revision.toInt();
    return ReleaseText::Valid;
}

Release OwnRelease() {
    return Release{TWK_VERSION_MAJOR, TWK_VERSION_MINOR, TWK_VERSION_PATCH};
}

QString autoUpdateCheckKey() {
    return twkKey(QStringLiteral("AutoUpdateCheck"));
}

bool AutoUpdateCheck(const Registry& registry) {
    return registry.Reg_GetValue(Hive::CurrentUser, autoUpdateCheckKey(), QString()) ==
           QStringLiteral("1");
}

QString UpdateServer(const Registry& registry) {
    QString address =
        registry.Reg_GetValue(Hive::CurrentUser, twkKey(kUpdateKey), kServerValue).trimmed();
    while (address.endsWith(u'/'))
        address.chop(1);
    const bool web = address.startsWith(QStringLiteral("http://"), Qt::CaseInsensitive) ||
                     address.startsWith(QStringLiteral("https://"), Qt::CaseInsensitive);
    return web ? address : QString();
}

void SetUpdateServer(Registry& registry, const QString& address) {
    registry.Reg_SetString(Hive::CurrentUser, twkKey(kUpdateKey), kServerValue, address);
}

QString UpdateUrl(const Registry& registry, const QString& file) {
    const QString server = UpdateServer(registry);
    if (server.isEmpty())
        return {};
    return server + (file.startsWith(u'/') ? QString() : QStringLiteral("/")) + file;
}

QString QueryValue(const QString& proxySetting) {
    QString value = proxySetting.trimmed();
    const int http =
        static_cast<int>(value.indexOf(QStringLiteral("http="), 0, Qt::CaseInsensitive));
    if (http >= 0) {
        value = value.mid(http + 5);
        const int end = static_cast<int>(value.indexOf(u';'));
        if (end >= 0)
            value.truncate(end);
    }
    if (value.startsWith(QStringLiteral("http://"), Qt::CaseInsensitive))
        value = value.mid(7);
    while (value.endsWith(u'/'))
        value.chop(1);
    return value;
}

QString GetProxy() {
    QString setting = qEnvironmentVariable("http_proxy");
    if (setting.isEmpty())
        setting = qEnvironmentVariable("HTTP_PROXY");
    return QueryValue(setting);
}

} // namespace twk
