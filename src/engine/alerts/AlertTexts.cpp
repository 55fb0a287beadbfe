#include "alerts/AlertTexts.h"

#include "core/Text.h"
#include "logs/Grid.h"
#include "logs/Vocabulary.h"

#include <QStringList>

namespace twk {

namespace {

const QString kHead = QStringLiteral("Tarnwick Realtime Event Monitor ALERT:");

QString cellText(const Grid& grid, int row, int col) {
    if (row < 1 || row > grid.Rows() || col > grid.Cols())
        return {};
    const std::string_view s = text::trim(grid.CellText(row, col));
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

int cellIcon(const Grid& grid, int row, int col) {
    if (row < 1 || row > grid.Rows() || col > grid.Cols())
        return -1;
    return grid.CellIcon(row, col);
}

QString alertBody(const QString& head, const QString& rule, const MonitorRowEvent& e) {
    const QStringList lines = {head, rule, QStringLiteral("Date:            ") + e.date, QString(),
                               QStringLiteral("Server:          ") + e.server, QString(),
                               QStringLiteral("Status:          ") + e.status,
                               // These two labels are shorter than the others, as they always were.
                               QStringLiteral("Source:         ") + e.source,
                               QStringLiteral("Category:     ") + e.category, QString(),
                               QStringLiteral("Error Message:"), e.message};
    return lines.join(text::kCrLf);
}

} // namespace

MonitorRowEvent ReadMonitorRow(const Grid& grid, int row) {
    MonitorRowEvent e;
    e.ledImage = cellIcon(grid, row, 1);
    e.server = cellText(grid, row, 2);
    e.date = cellText(grid, row, 3);
    e.status = cellText(grid, row, 4);
    e.source = cellText(grid, row, 5);
    e.category = cellText(grid, row, 6);
    e.eventImage = cellIcon(grid, row, 7);
    e.errorNumber = cellText(grid, row, 8);
    e.message = cellText(grid, row, 9);
    return e;
}

QString RealtimeStateWord(int ledImage) {
    switch (ledImage) {
    case 38:
        return QStringLiteral("ONLINE");
    case 39:
        return QStringLiteral("WARNING");
    case 40:
        return QStringLiteral("FAILURE");
    case 41:
        return QStringLiteral("Monitoring not available");
    case 42:
        return QStringLiteral("OFFLINE");
    case 43:
        return QStringLiteral("UNKNOWN");
    default:
        return QStringLiteral("???");
    }
}

QString EventTypeDescription(int eventImage) {
    const std::string_view name = EventTypeName(eventImage);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

AlertTexts BuildAlertTexts(const MonitorRowEvent& event) {
    AlertTexts texts;
    texts.PopupText =
        alertBody(kHead + QString(42, QLatin1Char(' ')), QString(67, QLatin1Char('-')), event);
    texts.MailText = alertBody(kHead, QString(59, QLatin1Char('-')), event);
    return texts;
}

} // namespace twk
