#include "core/settings/IniFile.h"

#include "core/AppPaths.h"
#include "core/settings/AtomicWrite.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace twk {

IniFile::IniFile(QString path) : path_(std::move(path)) {}

IniFile IniFile::twkIni(const AppPaths& paths) {
    return IniFile(paths.inApp("twk.ini"));
}

bool IniFile::exists() const {
    return QFileInfo(path_).isFile();
}

std::optional<QStringList> IniFile::readLines() const {
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return iniFileLines(file.readAll());
}

bool IniFile::anyLineHolds(const QString& text) const {
    const auto lines = readLines();
    return lines && indexOfLineHolding(*lines, text) >= 0;
}

QString IniFile::IniValue(const QString& section, const QString& key) const {
    const auto lines = readLines();
    if (!lines)
        return {};
    const qsizetype sectionLine = indexOfLineHolding(*lines, "[" + section + "]");
    if (sectionLine < 0)
        return {};
    const QString start = key + "=";
    for (qsizetype i = sectionLine + 1; i < lines->size(); ++i) {
        const QString& line = lines->at(i);
        if (line.startsWith(start))
            return line.mid(line.indexOf(QLatin1Char('=')) + 1);
    }
    return {};
}

bool IniFile::replaceLines(const QStringList& lines, const QString& tempName) const {
    QDir().mkpath(QFileInfo(path_).absolutePath());
    settings::AtomicWriteOptions options;
    options.tempName = tempName;
    return settings::writeFileAtomically(path_, iniFileBytes(lines), options);
}

QByteArray iniFileBytes(const QStringList& lines) {
    QByteArray bytes;
    for (const QString& line : lines) {
        bytes += line.toUtf8();
        bytes += '\n';
    }
    return bytes;
}

QStringList iniFileLines(const QByteArray& content) {
    QByteArray bytes = content;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes);
    if (text.isEmpty())
        return {};
    QStringList lines = text.split(QLatin1Char('\n'));
    if (text.endsWith(QLatin1Char('\n')))
        lines.removeLast(); // the end of the last line starts no new one
    for (QString& line : lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    return lines;
}

qsizetype indexOfLineHolding(const QStringList& lines, const QString& text, qsizetype from) {
    for (qsizetype i = from; i < lines.size(); ++i)
        if (lines[i].contains(text))
            return i;
    return -1;
}

} // namespace twk
