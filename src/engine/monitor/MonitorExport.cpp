#include "monitor/MonitorExport.h"

#include "core/Engine.h"
#include "monitor/MonitorRows.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace twk {

namespace {

QByteArray compact(const QJsonArray& array) {
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray monitorJsonLine(const Engine& engine, int cycle) {
    const Grid& g = engine.Grid1;
    QJsonArray rows;
    QJsonArray colors;
    for (int r = 1; r <= g.Rows(); ++r) {
        QJsonArray row;
        for (int c = 1; c <= g.Cols(); ++c) {
            if (g.column(c).iconColumn) {
                const int icon = g.CellIcon(r, c);
                row.append(icon < 0 ? QJsonValue() : QJsonValue(icon));
            } else {
                row.append(QString::fromStdString(std::string(g.CellText(r, c))));
            }
        }
        rows.append(row);
        const bool hasServerCell = g.Cols() >= rtmcol::kServer;
        colors.append(
            QJsonArray{hasServerCell ? static_cast<qint64>(g.CellForeColor(r, rtmcol::kServer)) : 0,
                       hasServerCell ? static_cast<qint64>(g.CellBackColor(r, rtmcol::kServer))
                                     : static_cast<qint64>(kDefaultBackColor)});
    }
    QJsonArray panes;
    for (int p = 1; p <= 5; ++p)
        panes.append(engine.view.pane(p).text);
    QByteArray view = compact(QJsonArray{engine.view.CurrentView});
    view = view.mid(1, view.size() - 2);
    return "{\"cycle\": " + QByteArray::number(cycle) + ", \"view\": " + view +
           ", \"rows\": " + compact(rows) + ", \"colors\": " + compact(colors) +
           ", \"panes\": " + compact(panes) + "}";
}

void writeMonitorJsonLine(const Engine& engine, int cycle, std::FILE* out) {
    const QByteArray line = monitorJsonLine(engine, cycle);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), out);
    std::fputc('\n', out);
}

} // namespace twk
