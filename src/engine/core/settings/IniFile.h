#pragma once
// twk.ini, read as plain lines rather than as a profile, because the file carries free
// explanation text beside its sections ([TreeContext], [RealtimeMonitor]). Lines end at
// LF or CR LF when read; they are written with LF. The file is read as UTF-8, or as
// Latin-1 when it is not valid UTF-8 (files of older versions).

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace twk {

struct AppPaths;

class IniFile {
public:
    explicit IniFile(QString path);
    /// twk.ini in the application folder.
    static IniFile twkIni(const AppPaths& paths);

    const QString& path() const { return path_; }
    bool exists() const;

    /// All lines without their ends; nullopt when the file is missing or unreadable.
    std::optional<QStringList> readLines() const;
    /// Whether any line holds `text` (case-sensitive); false for a missing file.
    bool anyLineHolds(const QString& text) const;

    /// Searches the first line holding "[" + section + "]", then the first following line
    /// that starts with key + "=" and returns the text behind that line's first "=".
    /// Empty when the file, the section or the key is missing. The search for the key
    /// does not stop at the next section.
    QString IniValue(const QString& section, const QString& key) const;

    /// Replaces the content: the lines are written to `tempName` beside the file,
    /// flushed to disk, and renamed over it, so the file is never lost half-way.
    bool replaceLines(const QStringList& lines, const QString& tempName) const;

private:
    QString path_;
};

/// The bytes of lines as twk.ini stores them: UTF-8, each line ended by LF.
QByteArray iniFileBytes(const QStringList& lines);
/// The lines of file content; a last line without its end counts.
QStringList iniFileLines(const QByteArray& content);
/// Index of the first line from `from` on that holds `text`; -1 when none does.
qsizetype indexOfLineHolding(const QStringList& lines, const QString& text, qsizetype from = 0);

} // namespace twk
