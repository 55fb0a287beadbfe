#pragma once
// The syslog forwarding test of the monitor options: a thin view over FrmSyslogTest.

#include "alerts/SyslogTestForm.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class frmSyslogTest : public QDialog {
    Q_OBJECT
public:
    frmSyslogTest(Engine& engine, KLog& klog, SyslogSettings& shared,
                  const SyslogTestRequest& fields, QWidget* parent = nullptr);

    FrmSyslogTest& model() { return model_; }
    QLineEdit* txtbServer() const { return txtbServer_; }
    QLineEdit* txtbPort() const { return txtbPort_; }
    QComboBox* cbProtocol() const { return cbProtocol_; }
    QComboBox* cbFacility() const { return cbFacility_; }
    QComboBox* cbLevel() const { return cbLevel_; }
    QLineEdit* txtbPriority() const { return txtbPriority_; }
    QLineEdit* txtbProcess() const { return txtbProcess_; }
    QLineEdit* txtbMessage() const { return txtbMessage_; }
    QCheckBox* chkRFCHeader() const { return chkRFCHeader_; }
    QCheckBox* chkCRLF() const { return chkCRLF_; }
    QCheckBox* chkSilentErrors() const { return chkSilentErrors_; }
    QPushButton* cmdSend() const { return cmdSend_; }
    QPushButton* cmdExit() const { return cmdExit_; }

private:
    template <typename Handler> void act(Handler handler);
    void render();

    FrmSyslogTest model_;
    QLineEdit* txtbServer_;
    QLineEdit* txtbPort_;
    QComboBox* cbProtocol_;
    QComboBox* cbFacility_;
    QComboBox* cbLevel_;
    QLineEdit* txtbPriority_;
    QLineEdit* txtbProcess_;
    QLineEdit* txtbMessage_;
    QCheckBox* chkRFCHeader_;
    QCheckBox* chkCRLF_;
    QCheckBox* chkSilentErrors_;
    QPushButton* cmdSend_;
    QPushButton* cmdExit_;
};

} // namespace twk::gui
