#include "core/DeliveredFiles.h"

#include "core/AppPaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk {

QStringList CopyDeliveredFiles(const AppPaths& paths, const QStringList& names) {
    QStringList copied;
    for (const QString& name : names) {
        const QString target = paths.inApp(name);
        const QString source = QDir(paths.shareFolder).filePath(name);
        if (QFileInfo::exists(target) || !QFileInfo(source).isFile())
            continue;
        QDir().mkpath(QFileInfo(target).absolutePath());
        if (QFile::copy(source, target)) {
            // The copy is the user's now: writable, whatever share/ allowed.
            QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner);
            copied.append(name);
        }
    }
    return copied;
}

} // namespace twk
