// tarnwick-runsetup: runs a downloaded installer once the program has ended, so that the
// installer can replace the program's files, and starts the program again afterwards.
//   tarnwick-runsetup INSTALLER
// It waits for the process named by TARNWICK_WAIT_PID (at most a minute), makes the
// installer executable and runs it, then starts tarnwick from its own folder.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include <cstdio>

#include <signal.h>

namespace {

bool processRuns(qint64 pid) {
    return pid > 0 && ::kill(static_cast<pid_t>(pid), 0) == 0;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments().mid(1);
    if (args.size() != 1) {
        std::fprintf(stderr, "usage: tarnwick-runsetup INSTALLER\n");
        return 2;
    }
    const QString installer = QFileInfo(args.front()).absoluteFilePath();
    if (!QFileInfo(installer).isFile()) {
        std::fprintf(stderr, "tarnwick-runsetup: %s is missing\n", qPrintable(installer));
        return 1;
    }
    const qint64 wait = qEnvironmentVariable("TARNWICK_WAIT_PID").toLongLong();
    for (int i = 0; i < 600 && processRuns(wait); ++i)
        QThread::msleep(100);
    QFile::setPermissions(installer, QFile::permissions(installer) | QFileDevice::ExeOwner |
                                         QFileDevice::ExeUser);
    const int result = QProcess::execute(installer, {});
    if (result < 0)
        std::fprintf(stderr, "tarnwick-runsetup: %s could not be started\n", qPrintable(installer));
    const QString program =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("tarnwick"));
    if (QFileInfo(program).isExecutable())
        QProcess::startDetached(program, {});
    return result < 0 ? 1 : 0;
}
