#pragma once
// What the update check reads: the release files on the update server and the
// settings that say where that server is and whether to ask it at start-up.
//
// A release file (twk.version, twk.update) holds at most 50 characters and at least
// one; it is cut at the first carriage return, and then must be exactly four
// characters with a point in them: the major number, a point, a minor digit and a
// revision digit, as in "2.41". The major number is read from the text before the
// point, the minor from the one character behind it, the revision from the last one.

#include <QByteArray>
#include <QString>

namespace twk {

class Registry;

struct Release {
    int major = 0;
    int minor = 0;
    int revision = 0;
    /// major x 100 + minor x 10 + revision.
    int value() const { return major * 100 + minor * 10 + revision; }
    /// "2.4.1".
    QString text() const;
};

enum class ReleaseText {
    NoContent, ///< nothing, or 51 characters or more
    WrongForm, ///< not four characters with a point as above
    Valid,
};

/// Reads a release file's content; `release` is set when it is valid.
ReleaseText ParseReleaseText(const QByteArray& content, Release& release);

/// This program's own release.
Release OwnRelease();

namespace updateFiles {
inline const QString kVersion = QStringLiteral("twk.version");
inline const QString kUpdate = QStringLiteral("twk.update");
inline const QString kWhatsNew = QStringLiteral("twknew.html");
inline const QString kSetupPath = QStringLiteral("/twk/twksetup.exe");
inline const QString kUpdatePath = QStringLiteral("/twk/twkupdate.exe");
inline const QString kSetupName = QStringLiteral("twksetup.exe");
inline const QString kUpdateName = QStringLiteral("twkupdate.exe");
} // namespace updateFiles

/// The key whose default value "1" turns the background check at start-up on.
QString autoUpdateCheckKey();
/// True when the setting reads exactly "1".
bool AutoUpdateCheck(const Registry& registry);
/// Where the update server is: key Software\Brindlex\TWK\Update, value "Server", an
/// http:// or https:// address. Empty when none is set: then no request is ever made.
QString UpdateServer(const Registry& registry);
void SetUpdateServer(Registry& registry, const QString& address);
/// The address of a file on the update server ("twk.version", "/twk/twksetup.exe");
/// empty when no server is set.
QString UpdateUrl(const Registry& registry, const QString& file);

/// The part of a proxy setting that counts for HTTP: behind "http=" up to the next ";"
/// when the setting names proxies by protocol, else the whole text; a leading
/// "http://" and a trailing "/" are dropped.
QString QueryValue(const QString& proxySetting);
/// The system's HTTP proxy as "server:port": the environment's http_proxy (or
/// HTTP_PROXY); empty when none is set.
QString GetProxy();

} // namespace twk
