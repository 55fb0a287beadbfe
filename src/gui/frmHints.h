#pragma once
// The small boxes around a health check: frmHints (the conditions, with "do not show
// these notes again"), frmLinuxHints, and the restart of the program after the fatal path.

#include <QDialog>

class QCheckBox;

namespace twk {
class Engine;
}

namespace twk::gui {

class frmHints : public QDialog {
    Q_OBJECT
public:
    frmHints(Engine& engine, QWidget* parent = nullptr);
    QCheckBox* chkShowHints() const { return chkShowHints_; }

private:
    QCheckBox* chkShowHints_;
};

void showHealthCheckHints(Engine& engine, QWidget* parent);
void showLinuxHints(QWidget* parent);
/// Starts this program anew and ends the running one; false when it could not be started.
bool restartThisProgram();

} // namespace twk::gui
