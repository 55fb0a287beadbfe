#pragma once
// The event filter of the SYS$LOG.ERR view: a thin window over FrmFilterSYSLOG. It draws
// the model's controls, hands every user action to the model's handler and draws again.
// Shown modally; it closes itself when the filter ran or was cancelled.

#include "logs/EventFilterForm.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class ImageList;

class frmFilterSYSLOG : public QDialog {
    Q_OBJECT
public:
    frmFilterSYSLOG(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    FrmFilterSYSLOG& model() { return model_; }
    /// The eight severity boxes in pass order (chkInformational .. chkUnkown).
    QCheckBox* severityBox(int index) const { return severity_[static_cast<std::size_t>(index)]; }
    QComboBox* cbSource() const { return cbSource_; }
    QComboBox* cbCategory() const { return cbCategory_; }
    QComboBox* cbEventType() const { return cbEventType_; }
    QComboBox* cbStartDate() const { return cbStartDate_; }
    QComboBox* cbEndDate() const { return cbEndDate_; }
    QDateEdit* calStartDate() const { return calStartDate_; }
    QDateEdit* calEndDate() const { return calEndDate_; }
    QLineEdit* txbErrorNr() const { return txbErrorNr_; }
    QLineEdit* txbErrMsg() const { return txbErrMsg_; }
    QLabel* picEvent() const { return picEvent_; }
    QPushButton* cmdFilter() const { return cmdFilter_; }
    QPushButton* cmdCancel() const { return cmdCancel_; }
    QPushButton* cmdSelectAll() const { return cmdSelectAll_; }
    QPushButton* cmdDeselectAll() const { return cmdDeselectAll_; }

    /// Cancel and Esc.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* buildSeverities();
    QWidget* buildSelectors();
    QWidget* buildSearches();
    QWidget* buildDates();
    /// Runs a handler of the model, then draws the model and moves the focus it names.
    template <typename Handler> void act(Handler handler);
    void render();
    void renderCalendar(QDateEdit* field, const CalendarState& state);
    void runFilter();

    Engine& engine_;
    const ImageList& images_;
    FrmFilterSYSLOG model_;
    std::array<QCheckBox*, 8> severity_{};
    QComboBox* cbSource_;
    QComboBox* cbCategory_;
    QComboBox* cbEventType_;
    QComboBox* cbStartDate_;
    QComboBox* cbEndDate_;
    QDateEdit* calStartDate_;
    QDateEdit* calEndDate_;
    QLineEdit* txbErrorNr_;
    QLineEdit* txbErrMsg_;
    QLabel* picEvent_;
    QPushButton* cmdSelectAll_;
    QPushButton* cmdDeselectAll_;
    QPushButton* cmdFilter_;
    QPushButton* cmdCancel_;
    QString shownEventKey_;
    bool running_ = false;
};

} // namespace twk::gui
