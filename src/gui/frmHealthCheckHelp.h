#pragma once
// The description of one health check step (frmHealthCheckHelp) and the synchronization
// statistics of step 3 (frmStatistics): read-only views of their texts.

#include "healthcheck/DsTraceAnalysis.h"

#include <QDialog>

class QLabel;

namespace twk::gui {

class frmHealthCheckHelp : public QDialog {
    Q_OBJECT
public:
    frmHealthCheckHelp(int step, QWidget* parent = nullptr);
};

class frmStatistics : public QDialog {
    Q_OBJECT
public:
    frmStatistics(const StatisticsForm& form, QWidget* parent = nullptr);
};

} // namespace twk::gui
