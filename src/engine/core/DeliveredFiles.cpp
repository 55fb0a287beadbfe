#include "core/DeliveredFiles.h"

#include "core/AppPaths.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSaveFile>

namespace twk {

namespace {

// What the application folder got from share/: name to the checksum of the copy, so that
// a copy the user never changed can be brought up to date by a later release.
const QString kManifestName = QStringLiteral("delivered.sha1");

QByteArray checksumOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(&file);
    return hash.result().toHex();
}

QMap<QString, QByteArray> readManifest(const AppPaths& paths) {
    QMap<QString, QByteArray> manifest;
    QFile file(paths.inApp(kManifestName));
    if (!file.open(QIODevice::ReadOnly))
        return manifest;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const qsizetype blank = line.indexOf(' ');
        if (blank > 0)
            manifest.insert(QString::fromUtf8(line.mid(blank + 1)), line.left(blank));
    }
    return manifest;
}

void writeManifest(const AppPaths& paths, const QMap<QString, QByteArray>& manifest) {
    QSaveFile file(paths.inApp(kManifestName));
    if (!file.open(QIODevice::WriteOnly))
        return;
    for (auto it = manifest.cbegin(); it != manifest.cend(); ++it)
        file.write(it.value() + ' ' + it.key().toUtf8() + '\n');
    file.commit();
}

bool copyOver(const QString& source, const QString& target) {
    QDir().mkpath(QFileInfo(target).absolutePath());
    if (QFileInfo::exists(target) && !QFile::remove(target))
        return false;
    if (!QFile::copy(source, target))
        return false;
    // The copy is the user's now: writable, whatever share/ allowed.
    QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner);
    return true;
}

} // namespace

QStringList CopyDeliveredFiles(const AppPaths& paths, const QStringList& names) {
    QMap<QString, QByteArray> manifest = readManifest(paths);
    const QMap<QString, QByteArray> before = manifest;
    QStringList copied;
    for (const QString& name : names) {
        const QString target = paths.inApp(name);
        const QString source = QDir(paths.shareFolder).filePath(name);
        if (!QFileInfo(source).isFile())
            continue;
        const QByteArray delivered = checksumOf(source);
        if (QFileInfo::exists(target)) {
            const QByteArray present = checksumOf(target);
            if (present == delivered) {
                manifest.insert(name, delivered); // the same as ours: ours to update later
                continue;
            }
            // Changed by the user, or of unknown origin: left alone.
            if (!manifest.contains(name) || manifest.value(name) != present)
                continue;
        }
        if (copyOver(source, target)) {
            manifest.insert(name, delivered);
            copied.append(name);
        }
    }
    if (manifest != before)
        writeManifest(paths, manifest);
    return copied;
}

QStringList DeliveredHelpFiles(const AppPaths& paths) {
    // The pages show the grid's icons by relative links into icons/, so both go.
    return DeliveredFilesIn(paths, {QStringLiteral("help"), QStringLiteral("icons")});
}

QStringList DeliveredFilesIn(const AppPaths& paths, const QStringList& folders) {
    const QDir share(paths.shareFolder);
    QStringList names;
    for (const QString& folder : folders) {
        QDirIterator files(share.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            names.append(share.relativeFilePath(files.next()));
    }
    names.sort();
    return names;
}

} // namespace twk
