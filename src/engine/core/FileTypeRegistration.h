#pragma once
// The saved logfile type: its keys under the file classes of the registry store, and
// the desktop's own association (a .desktop entry and a MIME type for *.twk).

#include <QString>

namespace twk {

class Registry;

/// The extension lower-cased with its leading point: "TWK" -> ".twk".
QString normalizedExtension(const QString& extension);
/// The class name of an extension: ".twk" -> "twkfile".
QString fileClassOf(const QString& extension);

/// Writes, at every start and without looking first: `.twk` = "twkfile",
/// `twkfile\shell\open\command` = program + " %1" (no quotes), `twkfile\DefaultIcon`
/// = icon. Failures are ignored.
void RegisterFileType(Registry& registry, const QString& extension, const QString& program,
                      const QString& icon);

/// The MIME type of saved logfiles.
inline const QString kTwkMimeType = QStringLiteral("application/x-tarnwick-logfile");

/// Writes applications/tarnwick.desktop and mime/packages/tarnwick.xml below
/// `dataHome` (the XDG data folder) when they differ from what is there, and asks the
/// desktop's tools to read them again. False on any failure; callers ignore it.
bool InstallDesktopFileType(const QString& dataHome, const QString& program, const QString& icon);

} // namespace twk
