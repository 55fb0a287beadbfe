#include "healthcheck/HealthCheckOptionsForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "healthcheck/HealthCheckForm.h"
#include "healthcheck/HealthCheckOptions.h"

namespace twk {

namespace {

const char* const kCheckNames[] = {"ignore replica in skulk error", "show replica in skulk errors",
                                   "include server synchronization",
                                   "show server synchronization in grid"};
const char* const kCheckValues[] = {"IgnoreSkulkErrorMessages", "ShowSkulkErrorMessages",
                                    "IncludeDSTraceDebugInfos", "ShowSynchronizationInGrid"};
const char* const kCheckDefaults[] = {"OFF", "ON", "OFF", "ON"};

QString checkDescription(int box) {
    const QString name = QLatin1String(kCheckNames[box - 1]);
    switch (box) {
    case 1:
        return QStringLiteral(
                   "If a replica is busy skulking no other replica processes can be done "
                   "until the skulk has completed. Usually this error will occur as a "
                   "normal part of a partition operation and will resolve itself. The ") +
               name +
               QStringLiteral(
                   " option allows Tarnwick to return a PASSED status if no other errors "
                   "has occured.");
    case 2:
        return QStringLiteral("The ") + name +
               QStringLiteral(" option decides if replica in skulk errors will be included in the "
                              "health check report or not (this setting is completely independent "
                              "from the ") +
               QLatin1String(kCheckNames[0]) + QStringLiteral(" option).");
    case 3:
        return QStringLiteral("The ") + name +
               QStringLiteral(" option decides if the directory services trace log with the server "
                              "synchronization details will be included in the health check "
                              "report or not.");
    default:
        return QStringLiteral("The ") + name +
               QStringLiteral(
                   " option decides if the directory services trace log with the server "
                   "synchronization details will be showed in the Tarnwick grid or not.");
    }
}

int numberOf(const QString& text) {
    return static_cast<int>(text::numericReading(text.toStdString()));
}

} // namespace

FrmHealthCheckOptions::FrmHealthCheckOptions(Engine& engine) : engine_(engine) {
    for (int tab = 0; tab < 9; ++tab) {
        const bool hasOptions = tab == 3 || tab == 4 || tab == 7;
        tabs[static_cast<std::size_t>(tab)].cmdSave.enabled = hasOptions;
        tabs[static_cast<std::size_t>(tab)].cmdPrev.enabled = tab > 0;
        tabs[static_cast<std::size_t>(tab)].cmdNext.enabled = tab < 8;
    }
}

QString FrmHealthCheckOptions::value(const char* name, const char* fallback) const {
    return engine_.registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey, QLatin1String(name),
                                         QLatin1String(fallback));
}

void FrmHealthCheckOptions::setValue(const char* name, const QString& text) {
    engine_.registry.Reg_SetString(Hive::CurrentUser, kHealthCheckKey, QLatin1String(name), text);
}

void FrmHealthCheckOptions::Form_Activate() {
    SSTab1 = 0;
    SSTab1_Click();
    focus = QStringLiteral("cmdIntroExit");
}

void FrmHealthCheckOptions::NextTab() {
    if (SSTab1 < 8)
        ++SSTab1;
    SSTab1_Click();
}

void FrmHealthCheckOptions::PreviousTab() {
    if (SSTab1 > 0)
        --SSTab1;
    SSTab1_Click();
}

void FrmHealthCheckOptions::SSTab1_Click() {
    if (SSTab1 == 3) {
        CheckBoxState* boxes[] = {&chk1Step3, &chk2Step3, &chk3Step3, &chk4Step3};
        const char* defaults[] = {"0", "1", "1", "0"};
        for (int i = 0; i < 4; ++i)
            boxes[i]->checked = value(kCheckValues[i], defaults[i]) == QStringLiteral("1");
        txtb1Step3.text = value("ServerSyncTraceTime", "90");
        showCheckHelp(1);
    } else if (SSTab1 == 4) {
        txtb1Step4.text = value("ReplicaSyncTimeDiff", "60");
        txtb1_GotFocus(4);
    } else if (SSTab1 == 7) {
        txtb1Step7.text = value("SchemaSyncTraceTime", "60");
        txtb1_GotFocus(7);
    }
}

void FrmHealthCheckOptions::cmdHelp_Click(int step) {
    if (step < 1 || step > 7)
        return;
    SSTab1 = step;
    SSTab1_Click();
}

void FrmHealthCheckOptions::roLabel_Click(int step) {
    const HealthCheckHelpText help = ShowHealthCheckHelp(step);
    lbIntroHeader.text = help.lbStepHeader;
    lbIntroDescription.text = help.lbStepHelp;
}

void FrmHealthCheckOptions::showCheckHelp(int box) {
    const CheckBoxState* boxes[] = {&chk1Step3, &chk2Step3, &chk3Step3, &chk4Step3};
    step3Help.lbHelpHeader = QLatin1String(kCheckNames[box - 1]);
    step3Help.lbHelpDescription = checkDescription(box);
    step3Help.lbDefaultValue = QLatin1String(kCheckDefaults[box - 1]);
    step3Help.lbCurrentSetting = onOff(boxes[box - 1]->checked);
    step3Help.lbRange.clear();
}

void FrmHealthCheckOptions::chkStep3_Click(int box) {
    if (box >= 1 && box <= 4)
        showCheckHelp(box);
}

void FrmHealthCheckOptions::txtb1_GotFocus(int tab) {
    if (tab == 3) {
        step3Help.lbHelpHeader = QStringLiteral("health check duration");
        step3Help.lbHelpDescription =
            QStringLiteral("The health check duration decides, how long the directory services "
                           "synchronization processes will be traced.");
        step3Help.lbDefaultValue = QStringLiteral("90s");
        step3Help.lbCurrentSetting = value("ServerSyncTraceTime", "90") + QStringLiteral("s");
        step3Help.lbRange = QStringLiteral("30 - 600 seconds");
    } else if (tab == 4) {
        step4Help.lbHelpHeader = QStringLiteral("replica synchronization time difference");
        step4Help.lbHelpDescription =
            QStringLiteral("Tarnwick returns a PASSED status only if every replica of the "
                           "server's partitions has a current synchronization time stamp: one "
                           "that is not older than this time difference.");
        step4Help.lbDefaultValue = QStringLiteral("60 min.");
        step4Help.lbCurrentSetting = value("ReplicaSyncTimeDiff", "60") + QStringLiteral(" min.");
        step4Help.lbRange = QStringLiteral("5 - 360 minutes");
    } else if (tab == 7) {
        step7Help.lbHelpHeader = QStringLiteral("health check duration");
        step7Help.lbHelpDescription =
            QStringLiteral("The health check duration decides, how long the schema "
                           "synchronization process will be traced.");
        step7Help.lbDefaultValue = QStringLiteral("120s");
        step7Help.lbCurrentSetting = value("SchemaSyncTraceTime", "60") + QStringLiteral("s");
        step7Help.lbRange = QStringLiteral("30 - 600 seconds");
    }
}

bool FrmHealthCheckOptions::cmdStep3Save_Click() {
    const CheckBoxState* boxes[] = {&chk1Step3, &chk2Step3, &chk3Step3, &chk4Step3};
    for (int i = 0; i < 4; ++i)
        setValue(kCheckValues[i], boxes[i]->checked ? QStringLiteral("1") : QStringLiteral("0"));
    const int seconds = numberOf(txtb1Step3.text);
    if (seconds < 30 || seconds > 600) {
        engine_.ui.messageBox(optionsText::kStep3Range, MsgIcon::Exclamation, MsgButtons::Ok,
                              optionsText::kInvalidTitle);
        return false;
    }
    setValue("ServerSyncTraceTime", QString::number(seconds));
    if (step3Help.lbHelpHeader == QStringLiteral("health check duration"))
        step3Help.lbCurrentSetting = QString::number(seconds) + QStringLiteral("s");
    return true;
}

bool FrmHealthCheckOptions::cmdStep4Save_Click() {
    const int minutes = numberOf(txtb1Step4.text);
    if (minutes < 5 || minutes > 360) {
        engine_.ui.messageBox(optionsText::kStep4Range, MsgIcon::Exclamation, MsgButtons::Ok,
                              optionsText::kInvalidTitle);
        return false;
    }
    setValue("ReplicaSyncTimeDiff", QString::number(minutes));
    step4Help.lbCurrentSetting = QString::number(minutes) + QStringLiteral(" min.");
    return true;
}

bool FrmHealthCheckOptions::cmdStep7Save_Click() {
    const int seconds = numberOf(txtb1Step7.text);
    if (seconds < 30 || seconds > 240) {
        engine_.ui.messageBox(optionsText::kStep7Range, MsgIcon::Exclamation, MsgButtons::Ok,
                              optionsText::kInvalidTitle);
        return false;
    }
    setValue("SchemaSyncTraceTime", QString::number(seconds));
    step7Help.lbCurrentSetting = QString::number(seconds) + QStringLiteral("s");
    return true;
}

void FrmHealthCheckOptions::cmdExit_Click() {
    closed = true;
}

bool FrmHealthCheckOptions::Form_KeyPress(int keyAscii) const {
    const bool inField = focus == QStringLiteral("txtb1Step3") ||
                         focus == QStringLiteral("txtb1Step4") ||
                         focus == QStringLiteral("txtb1Step7");
    if (!inField)
        return true;
    const bool digit = keyAscii >= '0' && keyAscii <= '9';
    const bool editing = keyAscii == 8 || keyAscii == 13 || keyAscii == 127 || keyAscii < 32;
    return digit || editing;
}

bool FrmHealthCheckOptions::enterInField(int tab) {
    if (tab == 3)
        return cmdStep3Save_Click();
    if (tab == 7)
        return cmdStep7Save_Click();
    const int minutes = numberOf(txtb1Step4.text);
    if (minutes < 5 || minutes > 360) {
        engine_.ui.messageBox(optionsText::kStep4RangeEnter, MsgIcon::Exclamation, MsgButtons::Ok,
                              optionsText::kInvalidTitle);
        return false;
    }
    return cmdStep4Save_Click();
}

QString FrmHealthCheckOptions::helpTopic() const {
    if (SSTab1 == 0)
        return QStringLiteral("_hc/hcointro.htm");
    if (SSTab1 == 8)
        return QStringLiteral("_hc/hcomisc.htm");
    return QStringLiteral("_hc/hcostep%1.htm").arg(SSTab1);
}

} // namespace twk
