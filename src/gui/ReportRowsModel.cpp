#include "gui/ReportRowsModel.h"

#include <QFileInfo>

namespace twk::gui {

const QColor ReportRowsModel::kChanged(0xff, 0xf1, 0xa8);
const QColor ReportRowsModel::kLeftOnly(0xff, 0xd4, 0xd4);
const QColor ReportRowsModel::kRightOnly(0xd2, 0xf4, 0xd2);
const QColor ReportRowsModel::kNoLine(0xee, 0xee, 0xee);

ReportRowsModel::ReportRowsModel(Side side, QObject* parent)
    : QAbstractTableModel(parent), side_(side) {}

void ReportRowsModel::setRows(const ConfigReportText* report, const ReportComparison* comparison) {
    beginResetModel();
    report_ = report;
    comparison_ = comparison;
    endResetModel();
}

int ReportRowsModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || comparison_ == nullptr)
        return 0;
    return static_cast<int>(comparison_->rows.size());
}

int ReportRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

int ReportRowsModel::lineOfRow(int row) const {
    if (comparison_ == nullptr || row < 0 || row >= rowCount())
        return -1;
    const ComparedRow& r = comparison_->rows[static_cast<std::size_t>(row)];
    return side_ == Left ? r.left : r.right;
}

QVariant ReportRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || report_ == nullptr)
        return {};
    const int line = lineOfRow(index.row());
    switch (role) {
    case Qt::DisplayRole:
        if (line < 0)
            return QString();
        return index.column() == 0 ? QString::number(line + 1) : report_->line(line);
    case Qt::TextAlignmentRole:
        return index.column() == 0 ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                   : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::BackgroundRole: {
        if (line < 0)
            return kNoLine;
        switch (comparison_->marks[static_cast<std::size_t>(index.row())]) {
        case RowMark::Changed:
            return kChanged;
        case RowMark::LeftOnly:
            return kLeftOnly;
        case RowMark::RightOnly:
            return kRightOnly;
        case RowMark::Same:
            break;
        }
        return {};
    }
    case Qt::ForegroundRole:
        return index.column() == 0 ? QVariant(QColor(0x80, 0x80, 0x80)) : QVariant();
    default:
        return {};
    }
}

QVariant ReportRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == 0)
        return QStringLiteral("line");
    return report_ != nullptr ? QFileInfo(report_->path()).fileName() : QString();
}

} // namespace twk::gui
