#include "core/FileTypeRegistration.h"

#include "core/settings/AtomicWrite.h"
#include "core/settings/Registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace twk {

QString normalizedExtension(const QString& extension) {
    QString ext = extension.toLower();
    if (!ext.startsWith(QLatin1Char('.')))
        ext.prepend(QLatin1Char('.'));
    return ext;
}

QString fileClassOf(const QString& extension) {
    return normalizedExtension(extension).mid(1) + QStringLiteral("file");
}

void RegisterFileType(Registry& registry, const QString& extension, const QString& program,
                      const QString& icon) {
    const QString ext = normalizedExtension(extension);
    const QString fileClass = fileClassOf(ext);
    Registry::Batch batch(registry);
    registry.Reg_SetString(Hive::ClassesRoot, ext, QString(), fileClass);
    registry.Reg_SetString(Hive::ClassesRoot, fileClass + QStringLiteral("\\shell\\open\\command"),
                           QString(), program + QStringLiteral(" %1"));
    registry.Reg_SetString(Hive::ClassesRoot, fileClass + QStringLiteral("\\DefaultIcon"),
                           QString(), icon);
}

namespace {

QString desktopEntry(const QString& program, const QString& icon) {
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Tarnwick\n"
                          "Comment=NetWare and eDirectory server logs, monitor and health check\n"
                          "Exec=") +
           program + QStringLiteral(" %f\nIcon=") + icon +
           QStringLiteral("\nTerminal=false\n"
                          "Categories=System;Network;Monitor;\n"
                          "MimeType=") +
           kTwkMimeType + QStringLiteral(";\n");
}

QString mimePackage() {
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
               "  <mime-type type=\"") +
           kTwkMimeType +
           QStringLiteral("\">\n"
                          "    <comment>Tarnwick saved logfile</comment>\n"
                          "    <glob pattern=\"*.twk\"/>\n"
                          "  </mime-type>\n"
                          "</mime-info>\n");
}

// Writes the file when its content differs; `changed` tells whether it did.
bool writeIfDifferent(const QString& path, const QByteArray& content, bool& changed) {
    QFile existing(path);
    if (existing.open(QIODevice::ReadOnly) && existing.readAll() == content)
        return true;
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    changed = true;
    return settings::writeFileAtomically(path, content);
}

void runIfInstalled(const QString& tool, const QStringList& arguments) {
    const QString found = QStandardPaths::findExecutable(tool);
    if (!found.isEmpty())
        QProcess::startDetached(found, arguments);
}

} // namespace

bool InstallDesktopFileType(const QString& dataHome, const QString& program, const QString& icon) {
    if (dataHome.isEmpty())
        return false;
    const QString applications = dataHome + QStringLiteral("/applications");
    const QString mime = dataHome + QStringLiteral("/mime");
    bool desktopChanged = false;
    bool mimeChanged = false;
    const bool ok = writeIfDifferent(applications + QStringLiteral("/tarnwick.desktop"),
                                     desktopEntry(program, icon).toUtf8(), desktopChanged) &&
                    writeIfDifferent(mime + QStringLiteral("/packages/tarnwick.xml"),
                                     mimePackage().toUtf8(), mimeChanged);
    if (mimeChanged)
        runIfInstalled(QStringLiteral("update-mime-database"), {mime});
    if (desktopChanged)
        runIfInstalled(QStringLiteral("update-desktop-database"), {applications});
    return ok;
}

} // namespace twk
