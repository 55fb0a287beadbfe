#include "directory/UncPath.h"

#include <QDir>
#include <QFileInfo>

namespace twk {

namespace {

bool isSeparator(QChar c) {
    return c == u'\\' || c == u'/';
}

QStringList components(const QString& text) {
    QString unified = text;
    unified.replace(u'/', u'\\');
    return unified.split(u'\\', Qt::SkipEmptyParts);
}

} // namespace

std::optional<UncPath> UncPath::parse(const QString& text) {
    if (text.size() < 3 || !isSeparator(text[0]) || !isSeparator(text[1]))
        return std::nullopt;
    QStringList parts = components(text);
    if (parts.isEmpty())
        return std::nullopt;
    UncPath path;
    path.server = parts.takeFirst();
    if (!parts.isEmpty())
        path.volume = parts.takeFirst();
    path.parts = parts;
    return path;
}

QString UncPath::toString() const {
    QString text = QStringLiteral("\\\\") + server;
    if (!volume.isEmpty())
        text += u'\\' + volume;
    for (const QString& part : parts)
        text += u'\\' + part;
    return text;
}

QString sysSystemUnc(const QString& server, const QString& name) {
    return QStringLiteral("\\\\") + server + QStringLiteral("\\SYS\\SYSTEM\\") + name;
}

QString sysEtcUnc(const QString& server, const QString& name) {
    return QStringLiteral("\\\\") + server + QStringLiteral("\\SYS\\ETC\\") + name;
}

std::optional<QString> consolePathToUnc(const QString& server, const QString& consolePath) {
    const qsizetype colon = consolePath.indexOf(u':');
    if (colon <= 0)
        return std::nullopt;
    const QString volume = consolePath.left(colon).trimmed();
    const QStringList rest = components(consolePath.mid(colon + 1));
    QString unc = QStringLiteral("\\\\") + server + u'\\' + volume;
    for (const QString& part : rest)
        unc += u'\\' + part;
    return unc;
}

QString findEntryCaseBlind(const QString& folder, const QString& name) {
    const QDir dir(folder);
    if (QFileInfo::exists(dir.filePath(name)))
        return name;
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return QString();
}

std::optional<QString> mapUncPath(const QString& networkFolder, const QString& unc) {
    const auto path = UncPath::parse(unc);
    if (!path)
        return std::nullopt;
    QStringList wanted{path->server};
    if (!path->volume.isEmpty())
        wanted << path->volume;
    wanted << path->parts;

    for (const QString& component : wanted)
        if (component == QStringLiteral(".") || component == QStringLiteral(".."))
            return std::nullopt; // a path must not leave the network folder

    QString local = QDir(networkFolder).filePath(QStringLiteral("servers"));
    // Where the path exists spelled as asked, the walk below would find each component by
    // its exact name first and so come to the same path: one look-up instead of two a
    // component (the monitor asks for a hundred logs' sizes each cycle).
    const QString exact = local + u'/' + wanted.join(u'/');
    if (QFileInfo::exists(exact))
        return exact;
    bool matching = QFileInfo(local).isDir();
    for (const QString& component : wanted) {
        QString name = component;
        if (matching) {
            const QString found = findEntryCaseBlind(local, component);
            if (found.isEmpty())
                matching = false;
            else
                name = found;
        }
        local += u'/' + name;
        if (matching && !QFileInfo(local).isDir())
            matching = false;
    }
    return local;
}

} // namespace twk
