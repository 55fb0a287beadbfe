#pragma once
// The salvage area of a volume folder: deleted files that can still be recovered.
// A deleted file VOLUME/dir/NAME lives as VOLUME/.salvage/dir/NAME;TIME;DELETOR,
// TIME being the deletion time as yyyyMMdd-HHmmss (server time) and DELETOR who
// deleted it (may be empty). The file keeps its content and modification time.

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <vector>

namespace twk {

inline const QString kSalvageFolder = QStringLiteral(".salvage");

struct SalvagedFile {
    QString name;
    QString storedPath; ///< the file in the salvage area
    std::int64_t size = 0;
    QDateTime deletionTime;
    QDateTime modifiedTime;
    QString deletor;
    std::int32_t id = 0; ///< stable number of the record, from its stored name
};

/// The salvage folder that stands for `directory` (a folder below `volumeFolder`).
QString salvageFolderOf(const QString& volumeFolder, const QString& directory);

/// The deleted files of `directory`, oldest deletion first (then by name).
std::vector<SalvagedFile> deletedFilesOf(const QString& volumeFolder, const QString& directory);

/// Puts `content` into the salvage area as a file of `directory` deleted at `when`.
bool storeDeletedFile(const QString& volumeFolder, const QString& directory, const QString& name,
                      const QByteArray& content, const QDateTime& when, const QString& deletor,
                      const QDateTime& modified = {});

/// Moves an existing file of `directory` into the salvage area.
bool deleteToSalvage(const QString& volumeFolder, const QString& directory, const QString& name,
                     const QDateTime& when, const QString& deletor);

/// Recovers a deleted file under `newName` in its directory. 0 on success, else a client
/// error code (neterr::kFileExists when the name is taken, kNoSuchEntry when the
/// record is gone).
std::int32_t recoverDeletedFile(const QString& volumeFolder, const QString& directory,
                                std::int32_t id, const QString& newName);

} // namespace twk
