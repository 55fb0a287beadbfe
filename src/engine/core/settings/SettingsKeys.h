#pragma once
// Where the program's settings live in the registry store.

#include <QString>

namespace twk {

/// The program's own key in the current user's hive.
inline const QString kTwkRootKey = QStringLiteral("Software\\Brindlex\\TWK");

/// A key below the program's own key, e.g. twkKey("HealthCheck").
inline QString twkKey(const QString& subkey) {
    return kTwkRootKey + "\\" + subkey;
}

} // namespace twk
