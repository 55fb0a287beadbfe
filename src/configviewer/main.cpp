// tarnwick-configviewer: shows a configuration report, or compares two.
//   tarnwick-configviewer [-F1=REPORT] [-F2=REPORT]
// A report is a file, or a UNC path of the network (\\SERVER\SYS\SYSTEM\config-twk1.txt).

#include "core/AppPaths.h"
#include "core/settings/Registry.h"
#include "directory/NetworkFolder.h"
#include "gui/ConfigViewerWindow.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarnwick report viewer"));
    QString report1;
    QString report2;
    for (const QString& argument : QApplication::arguments().mid(1)) {
        if (argument.startsWith(QStringLiteral("-F1="), Qt::CaseInsensitive))
            report1 = argument.mid(4);
        else if (argument.startsWith(QStringLiteral("-F2="), Qt::CaseInsensitive))
            report2 = argument.mid(4);
    }
    const twk::AppPaths paths = twk::AppPaths::fromEnvironment();
    const twk::Registry registry(paths.registryFile());
    twk::gui::ConfigViewerWindow window(twk::resolveNetworkFolder(paths, registry));
    window.show();
    if (!report1.isEmpty() || !report2.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openReports(report1, report2); });
    return QApplication::exec();
}
