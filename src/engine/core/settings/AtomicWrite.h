#pragma once
// Replaces a file so that a crash at any moment leaves either the old or the new
// content under its name, never a half-written or missing file: the new content goes
// to a temporary file in the same folder, reaches the disk, and is renamed over it.

#include <QByteArray>
#include <QString>

namespace twk::settings {

struct AtomicWriteOptions {
    /// Name of the temporary file in the target's folder; empty gives target + ".tmp".
    QString tempName;
    /// Permission bits of a new file (narrowed by the umask); an existing file keeps its
    /// own. With forceMode the bits hold exactly, for new and existing files.
    unsigned mode = 0644;
    bool forceMode = false;
};

/// The two steps apart, for callers that act between writing and replacing.
class AtomicFileWriter {
public:
    explicit AtomicFileWriter(const QString& target, const AtomicWriteOptions& options = {});
    /// Removes the temporary file when it was not committed.
    ~AtomicFileWriter();
    AtomicFileWriter(const AtomicFileWriter&) = delete;
    AtomicFileWriter& operator=(const AtomicFileWriter&) = delete;

    /// Writes the whole content to the temporary file and flushes it to disk.
    bool prepare(const QByteArray& bytes);
    /// Renames the prepared file over the target and syncs the folder.
    bool commit();

    const QString& tempPath() const { return tempPath_; }

private:
    QString target_;
    QString tempPath_;
    AtomicWriteOptions options_;
    bool tempExists_ = false;
    bool ready_ = false; ///< the temporary file holds the whole content
};

/// Both steps at once; false (and no temporary file left) on any failure.
bool writeFileAtomically(const QString& target, const QByteArray& bytes,
                         const AtomicWriteOptions& options = {});

} // namespace twk::settings
