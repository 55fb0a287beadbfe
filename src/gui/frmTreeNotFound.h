#pragma once
// Says what to do when no NetWare tree was found.

#include <QDialog>

namespace twk::gui {

class frmTreeNotFound : public QDialog {
    Q_OBJECT
public:
    /// `network` says where the network is looked for.
    explicit frmTreeNotFound(const QString& network, QWidget* parent = nullptr);
};

} // namespace twk::gui
