#include "core/DebugTrace.h"

#include <QFile>
#include <QTime>

namespace twk {

namespace {
const QString kEnd = QStringLiteral("\r\n");
QString now() { return QTime::currentTime().toString(QStringLiteral("hh:mm:ss")); }
} // namespace

void DebugTrace::append(const QString& lines) {
    QFile file(path_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(lines.toUtf8());
}

void DebugTrace::traceText(const QString& text, bool header, bool blankLine) {
    QString out;
    if (header) {
        const QString underscores(21, QLatin1Char('_'));
        const QString blanks(21, QLatin1Char(' '));
        out += underscores + kEnd + blanks + kEnd + now() + kEnd + underscores + kEnd + blanks +
               kEnd;
    }
    out += text + kEnd;
    if (blankLine)
        out += QStringLiteral(" ") + kEnd;
    append(out);
}

void DebugTrace::traceEvent(const QString& text) { append(now() + QStringLiteral(" - ") + text + kEnd); }

} // namespace twk
