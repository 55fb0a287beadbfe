#pragma once
// Paths of the network: "\\SERVER\VOLUME\dir\file" for files, "sys:system\name" for
// the arguments of console commands. The embedded network keeps every server in a
// folder: \\SERVER\VOLUME\path is NETWORK/servers/SERVER/VOLUME/path, each component
// matched blind to case, as NetWare names are.

#include <QString>
#include <QStringList>

#include <optional>

namespace twk {

/// A UNC path taken apart. `server` and `volume` may be empty for "\\SERVER" alone.
struct UncPath {
    QString server;
    QString volume;
    QStringList parts; ///< the components below the volume, in order

    /// "\\SERVER\VOLUME\a\b"; "/" is taken as "\" too. Empty components are dropped.
    /// Nothing when the text does not start with two separators or names no server.
    static std::optional<UncPath> parse(const QString& text);
    /// The path written back with "\" separators.
    QString toString() const;
};

/// "\\" + server + "\SYS\SYSTEM\" + name: where a server keeps its logs and scripts.
QString sysSystemUnc(const QString& server, const QString& name);
/// "\\" + server + "\SYS\ETC\" + name: CRONLOG and the console logs.
QString sysEtcUnc(const QString& server, const QString& name);

/// A console path such as "sys:system\twkhc12.sk" as a UNC path on `server`;
/// nothing when it names no volume.
std::optional<QString> consolePathToUnc(const QString& server, const QString& consolePath);

/// The folder of the network folder that stands for a UNC path. Components are
/// matched blind to case against what exists; from the first missing one on, the
/// components are appended as written. Nothing when `unc` is no UNC path.
std::optional<QString> mapUncPath(const QString& networkFolder, const QString& unc);

/// The entry of `folder` whose name equals `name` blind to case (exact spelling
/// first); empty when there is none.
QString findEntryCaseBlind(const QString& folder, const QString& name);

} // namespace twk
