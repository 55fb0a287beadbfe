#pragma once
// The tip of the day: one tip of tips.tdy at a time, the next one on request, and the
// switch that says whether tips show at start-up.

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QLabel;

namespace twk {
class Registry;
}

namespace twk::gui {

class ImageList;

class frmTipOfTheDay : public QDialog {
    Q_OBJECT
public:
    frmTipOfTheDay(Registry& registry, const QString& tipsFile, const ImageList& images,
                   QWidget* parent = nullptr);
    /// Shows the next tip and remembers the one after it.
    void nextTip();
    QString tipText() const;
    QCheckBox* chkStartup() const { return chkStartup_; }

private:
    Registry& registry_;
    QStringList tips_;
    QLabel* lbTip_;
    QCheckBox* chkStartup_;
};

} // namespace twk::gui
