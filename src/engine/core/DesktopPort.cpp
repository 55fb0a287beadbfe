#include "core/DesktopPort.h"

#include <QProcess>

namespace twk {

bool ProcessDesktop::startProgram(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

bool ProcessDesktop::openDefault(const QString& target) {
    return QProcess::startDetached(QStringLiteral("xdg-open"), {target});
}

DesktopPort& noDesktop() {
    static NoDesktop none;
    return none;
}

} // namespace twk
