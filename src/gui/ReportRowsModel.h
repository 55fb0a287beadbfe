#pragma once
// One side of the report viewer: the rows of a comparison (or of one report) as a
// table of line number and text. Rows are decoded only when drawn, so a report of any
// size shows at once. A row this side has no line of stays empty and grey; a line that
// differs is tinted by its mark.

#include "tools/ConfigReportCompare.h"

#include <QAbstractTableModel>
#include <QColor>

namespace twk::gui {

class ReportRowsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Side { Left, Right };
    ReportRowsModel(Side side, QObject* parent = nullptr);

    /// Shows `report` by the rows of `comparison`; both must live as long as the model.
    void setRows(const ConfigReportText* report, const ReportComparison* comparison);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The line of this side's report in a row; -1 for none.
    int lineOfRow(int row) const;

    static const QColor kChanged;
    static const QColor kLeftOnly;
    static const QColor kRightOnly;
    static const QColor kNoLine;

private:
    Side side_;
    const ConfigReportText* report_ = nullptr;
    const ReportComparison* comparison_ = nullptr;
};

} // namespace twk::gui
