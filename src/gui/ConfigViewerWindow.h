#pragma once
// The window of the report viewer (tarnwick-configviewer): one configuration report, or
// two side by side, their rows aligned and scrolled together, the rows that differ
// tinted. On the left a list of the differences (of the sections, for one report); a
// click, or F8 and Shift+F8, jumps to the next or previous one. Ctrl+F and F3 search
// the report on the side last clicked, blind to case.

#include "tools/ConfigReportCompare.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QTableView;

namespace twk::gui {

class ReportRowsModel;

class ConfigViewerWindow : public QMainWindow {
    Q_OBJECT
public:
    /// `networkFolder` resolves reports given as UNC paths.
    explicit ConfigViewerWindow(QString networkFolder, QWidget* parent = nullptr);
    ~ConfigViewerWindow() override;

    /// Shows `report1` alone, or beside `report2`. A report that cannot be read is said
    /// in a box; false then.
    bool openReports(const QString& report1, const QString& report2 = {});

    void nextDifference();
    void previousDifference();
    /// Searches the text of the find field from the current row on; false when it is
    /// nowhere in the report.
    bool find(bool forward);

    int currentRow() const { return currentRow_; }
    void goToRow(int row);
    bool comparing() const { return right_ != nullptr; }
    const ReportComparison& comparison() const { return comparison_; }
    QTableView* leftView() const { return leftView_; }
    QTableView* rightView() const { return rightView_; }
    QListWidget* navigator() const { return navigator_; }
    QLineEdit* findField() const { return findField_; }
    QLabel* summary() const { return summary_; }

    /// Shows a problem (a box titled " Tarnwick"; tests record it).
    std::function<void(const QString& text)> showProblem;

private:
    void buildActions();
    void showReports();
    void fillNavigator();
    void navigatorClicked(int item);
    void openFile(bool second);
    void rowChosen(int row, bool rightSide);
    /// The row of the next line of one side that holds `text`, -1 when none does.
    int findOnSide(bool right, const QString& text, bool forward, bool& wrapped) const;
    bool loadReport(const QString& path, std::unique_ptr<ConfigReportText>& into);

    QString networkFolder_;
    std::unique_ptr<ConfigReportText> left_;
    std::unique_ptr<ConfigReportText> right_;
    ReportComparison comparison_;
    std::vector<int> leftRowOfLine_;
    std::vector<int> rightRowOfLine_;
    ReportRowsModel* leftModel_;
    ReportRowsModel* rightModel_;
    QTableView* leftView_;
    QTableView* rightView_;
    QListWidget* navigator_;
    QLineEdit* findField_;
    QLabel* summary_;
    int currentRow_ = 0;
    bool searchRight_ = false;
};

} // namespace twk::gui
