#pragma once

#include <QString>

namespace twk {

/// "major.minor.revision" of this build.
inline QString versionText() {
    return QStringLiteral("%1.%2.%3")
        .arg(TWK_VERSION_MAJOR)
        .arg(TWK_VERSION_MINOR)
        .arg(TWK_VERSION_PATCH);
}

} // namespace twk
