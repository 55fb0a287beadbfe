#pragma once
// The checks and codings of the monitor options: the IP address test (also used before
// a server is pinged), the mail address test, the rolling coding of the mail password,
// and the split of a logfile path.

#include <QString>

namespace twk {

/// The key of the mail password's coding.
inline const QString kPasswordKey = QStringLiteral("7QkuRM3PV%");

/// At most 15 characters, four numeric parts at "."; the first 10 to 255, the second
/// and third 0 to 255, the fourth 1 to 255.
bool fCheckIP(const QString& text);

/// Lower-cases `address` in place, then: exactly one "@", at least two parts at "."
/// behind it, the last one a known top-level domain, and only the characters
/// "abcdefghijklmnopqrstuvwxyz0123456789.-_@".
bool IsValidEMailAddress(QString& address);

/// Adds the key's codes to the text's, wrapping at 255 (not 256); DecodeString undoes it.
/// Characters are taken by their Latin-1 codes.
QString EncodeString(const QString& text, const QString& key);
QString DecodeString(const QString& text, const QString& key);

/// With `folder` true the part before the last "\" (or "/"), else the part behind it.
QString GetPathOrFileName(const QString& path, bool folder);

} // namespace twk
