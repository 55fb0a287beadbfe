#include "core/DeliveredFiles.h"

#include "core/AppPaths.h"

#include <QDir>
#include <QDirIterator>
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

QStringList DeliveredHelpFiles(const AppPaths& paths) {
    const QDir share(paths.shareFolder);
    QStringList names;
    // The pages show the grid's icons by relative links into icons/, so both go.
    for (const QString& folder : {QStringLiteral("help"), QStringLiteral("icons")}) {
        QDirIterator files(share.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            names.append(share.relativeFilePath(files.next()));
    }
    names.sort();
    return names;
}

} // namespace twk
