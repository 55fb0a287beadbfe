#pragma once
// The server configuration reports: a thin window over FrmConfigReport. The server, the
// button that runs CONFIG.NLM on it, the list of the text files of its SYS:SYSTEM (a
// left click selects one, a right click offers to delete it), the two report slots and
// the button that opens the viewer; while the module runs, the animated wait bar.

#include "tools/ConfigReportForm.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace twk::gui {

class ImageList;

/// The animated bar: a block moving from left to right inside its frame.
class WaitBar : public QWidget {
    Q_OBJECT
public:
    explicit WaitBar(QWidget* parent = nullptr);
    /// The block's left edge and width in units of `scale`.
    void setBlock(int left, int width, int scale);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int left_ = 0;
    int width_ = 1;
    int scale_ = 1;
};

class frmConfigReport : public QDialog {
    Q_OBJECT
public:
    frmConfigReport(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    /// Form_Load: fills the server list and reads the files.
    void load();

    FrmConfigReport& model() { return model_; }
    QComboBox* cbServer() const { return cbServer_; }
    QPushButton* cmdCreateReport() const { return cmdCreateReport_; }
    QTableWidget* FileGrid1() const { return grid_; }
    QLineEdit* txtbSelectedReport() const { return txtbSelectedReport_; }
    QLineEdit* txtbReport1() const { return txtbReport1_; }
    QLineEdit* txtbReport2() const { return txtbReport2_; }
    QPushButton* cmdSetAsReport1() const { return cmdSetAsReport1_; }
    QPushButton* cmdSetAsReport2() const { return cmdSetAsReport2_; }
    QPushButton* cmdResetReport1() const { return cmdResetReport1_; }
    QPushButton* cmdResetReport2() const { return cmdResetReport2_; }
    QPushButton* cmdOpenConfigViewer() const { return cmdOpenConfigViewer_; }
    QPushButton* cmdExit() const { return cmdExit_; }
    WaitBar* ucWaitBar() const { return ucWaitBar_; }

    /// Esc and the frame: not while a report is made.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void render();
    void fillGrid();
    void afterAction();

    Engine& engine_;
    const ImageList& images_;
    FrmConfigReport model_;
    QComboBox* cbServer_;
    QPushButton* cmdCreateReport_;
    QTableWidget* grid_;
    QLineEdit* txtbSelectedReport_;
    QPushButton* cmdSetAsReport1_;
    QPushButton* cmdSetAsReport2_;
    QLineEdit* txtbReport1_;
    QLineEdit* txtbReport2_;
    QPushButton* cmdResetReport1_;
    QPushButton* cmdResetReport2_;
    QPushButton* cmdOpenConfigViewer_;
    QPushButton* cmdExit_;
    WaitBar* ucWaitBar_;
    int shownListing_ = -1;
};

} // namespace twk::gui
