#include "directory/SalvageArea.h"

#include "directory/NetworkPorts.h"
#include "directory/UncPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace twk {

namespace {

const QString kTimeFormat = QStringLiteral("yyyyMMdd-HHmmss");

/// A folder below `base`, each component matched blind to case; components that don't
/// exist are taken as written.
QString resolveBelow(const QString& base, const QString& relative) {
    QString path = base;
    bool matching = QFileInfo(path).isDir();
    for (const QString& part : relative.split(u'/', Qt::SkipEmptyParts)) {
        QString name = part;
        if (matching) {
            const QString found = findEntryCaseBlind(path, part);
            matching = !found.isEmpty();
            if (matching)
                name = found;
        }
        path += u'/' + name;
    }
    return path;
}

/// A stable number of a stored name (FNV-1a, kept positive).
std::int32_t recordId(const QString& storedName) {
    std::uint32_t hash = 2166136261u;
    for (const QChar c : storedName) {
        hash ^= c.unicode();
        hash *= 16777619u;
    }
    return static_cast<std::int32_t>(hash & 0x7FFFFFFFu);
}

QString storedName(const QString& name, const QDateTime& when, const QString& deletor) {
    return name + u';' + when.toString(kTimeFormat) + u';' + deletor;
}

bool setModified(const QString& path, const QDateTime& modified) {
    if (!modified.isValid())
        return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    return file.setFileTime(modified, QFileDevice::FileModificationTime);
}

} // namespace

QString salvageFolderOf(const QString& volumeFolder, const QString& directory) {
    return resolveBelow(resolveBelow(volumeFolder, kSalvageFolder), directory);
}

std::vector<SalvagedFile> deletedFilesOf(const QString& volumeFolder, const QString& directory) {
    std::vector<SalvagedFile> files;
    const QDir dir(salvageFolderOf(volumeFolder, directory));
    if (!dir.exists())
        return files;
    for (const QFileInfo& info : dir.entryInfoList(QDir::Files | QDir::Hidden, QDir::Name)) {
        const QStringList fields = info.fileName().split(u';');
        if (fields.size() < 2 || fields[0].isEmpty())
            continue; // not a record of the salvage area
        SalvagedFile f;
        f.name = fields[0];
        f.storedPath = info.filePath();
        f.size = info.size();
        f.deletionTime = QDateTime::fromString(fields[1], kTimeFormat);
        if (!f.deletionTime.isValid())
            continue;
        f.modifiedTime = info.lastModified();
        f.deletor = fields.mid(2).join(u';');
        f.id = recordId(info.fileName());
        files.push_back(f);
    }
    std::stable_sort(files.begin(), files.end(), [](const SalvagedFile& a, const SalvagedFile& b) {
        return a.deletionTime < b.deletionTime;
    });
    return files;
}

bool storeDeletedFile(const QString& volumeFolder, const QString& directory, const QString& name,
                      const QByteArray& content, const QDateTime& when, const QString& deletor,
                      const QDateTime& modified) {
    const QString folder = salvageFolderOf(volumeFolder, directory);
    if (!QDir().mkpath(folder))
        return false;
    const QString path = folder + u'/' + storedName(name, when, deletor);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(content) != content.size())
        return false;
    file.close();
    return setModified(path, modified.isValid() ? modified : when);
}

bool deleteToSalvage(const QString& volumeFolder, const QString& directory, const QString& name,
                     const QDateTime& when, const QString& deletor) {
    const QString folder = resolveBelow(volumeFolder, directory);
    const QString actual = findEntryCaseBlind(folder, name);
    if (actual.isEmpty())
        return false;
    const QString target = salvageFolderOf(volumeFolder, directory);
    if (!QDir().mkpath(target))
        return false;
    return QFile::rename(folder + u'/' + actual, target + u'/' + storedName(actual, when, deletor));
}

std::int32_t recoverDeletedFile(const QString& volumeFolder, const QString& directory,
                                std::int32_t id, const QString& newName) {
    const auto files = deletedFilesOf(volumeFolder, directory);
    const auto it = std::find_if(files.begin(), files.end(),
                                 [id](const SalvagedFile& f) { return f.id == id; });
    if (it == files.end())
        return neterr::kNoSuchEntry;
    if (newName.isEmpty() || newName.contains(u'/') || newName.contains(u'\\'))
        return neterr::kInvalidPath;
    const QString folder = resolveBelow(volumeFolder, directory);
    if (!QDir().mkpath(folder))
        return neterr::kInvalidPath;
    if (!findEntryCaseBlind(folder, newName).isEmpty())
        return neterr::kFileExists;
    const QDateTime modified = it->modifiedTime;
    const QString target = folder + u'/' + newName;
    if (!QFile::rename(it->storedPath, target))
        return neterr::kNoRights;
    setModified(target, modified);
    return 0;
}

} // namespace twk
