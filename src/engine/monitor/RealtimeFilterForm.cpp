#include "monitor/RealtimeFilterForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/Vocabulary.h"
#include "monitor/FilterRuleList.h"
#include "monitor/FilterRules.h"
#include "monitor/MonitorRows.h"
#include "monitor/SyslogNames.h"

#include <QDir>
#include <QFileInfo>

namespace twk {

namespace {

constexpr int kEventTypeCount = 24; // "(all)" and 23 types
constexpr int kNTEventLogIds = 9999;

void select(ListState& list, int index) {
    list.ListIndex = index >= 0 && index < list.items.size() ? index : -1;
}

void enableList(ListState& list, bool on) {
    list.enabled = on;
    if (!on)
        list.ListIndex = -1;
    else if (list.ListIndex < 0 && !list.items.isEmpty())
        list.ListIndex = 0;
}

QString shownSearch(const QString& stored) {
    return stored.isEmpty() ? ruleDialogText::kNone : stored;
}

QString storedSearch(const QString& shown) {
    return shown.isEmpty() ? ruleDialogText::kNone : shown;
}

} // namespace

FrmRealtimeFilter::FrmRealtimeFilter(Engine& engine) : engine_(engine) {
    txtbRuleNumber.enabled = true;
    cbSrvLed.items = {QStringLiteral("ONLINE"), QStringLiteral("WARNING"),
                      QStringLiteral("FAILURE")};
    cbSrvLed.icons = {led::kOnline, led::kWarning, led::kFailure};
    for (int i = 0; i <= 7; ++i) {
        cbStatusIcon.items << text::toQString(sStatusIcon(static_cast<std::int16_t>(i))) + u' ';
        cbStatusIcon.icons << ruleStatusImage(i);
    }
    for (int i = 0; i < kEventTypeCount; ++i)
        cbEventTypeFilterRule.items << text::toQString(sEventType(static_cast<std::int16_t>(i)));
    for (int i = 0; i <= kLocusCount; ++i)
        cbSourceFilterRule.items << text::toQString(sSource(static_cast<std::int16_t>(i)));
    for (int i = 0; i <= kClassCount; ++i)
        cbCategoryFilterRule.items << text::toQString(sCategory(static_cast<std::int16_t>(i)));
    for (const auto name : kSyslogFacilities)
        cbFacility.items << text::toQString(name);
    for (const auto name : kSyslogLevels)
        cbLevel.items << text::toQString(name);
    for (const auto name : RuleCategories)
        cbNTEventLogCategory.items << text::toQString(name);
    cbNTEventLogID.items.reserve(kNTEventLogIds);
    for (int i = 1; i <= kNTEventLogIds; ++i)
        cbNTEventLogID.items << QString::number(i);
}

void FrmRealtimeFilter::Form_Load(int ruleNumber) {
    const auto& rules = engine_.monitor.FilterRules;
    FilterRule rule;
    if (ruleNumber >= 1 && ruleNumber <= kFilterRuleCapacity &&
        rules[static_cast<std::size_t>(ruleNumber - 1)].RuleNumber == ruleNumber) {
        rule = rules[static_cast<std::size_t>(ruleNumber - 1)];
    } else {
        rule = FilterRule();
        rule.RuleNumber = static_cast<std::int16_t>(
            ruleNumber >= 1 && ruleNumber <= kFilterRuleCapacity ? ruleNumber
                                                                 : NextRuleNumber(engine_.monitor));
        rule.RealtimeStatus = kStateFailure;
        rule.SearchString1 = rule.SearchString2 = ruleDialogText::kNone;
    }
    showRule(rule);
    focus = QStringLiteral("cbSrvLed");
}

void FrmRealtimeFilter::showRule(const FilterRule& r) {
    txtbRuleNumber.text = QString::fromStdString(
        std::string(text::right("00" + std::to_string(std::max<int>(r.RuleNumber, 0)), 3)));
    select(cbSrvLed, r.RealtimeStatus);
    select(cbStatusIcon, r.EventStatus);
    select(cbEventTypeFilterRule, r.EventType);
    cbEventTypeFilterRule_Click();
    select(cbSourceFilterRule, r.Source);
    select(cbCategoryFilterRule, r.Category);
    txtbErrorMessage1.text = shownSearch(r.SearchString1);
    txtbErrorMessage2.text = shownSearch(r.SearchString2);
    chkLocalPopup.checked = r.LocalPopup == 1;
    chkRemotePopup.checked = r.RemotePopup == 1;
    chkEmail.checked = r.EMail == 1;
    chkLogfile.checked = r.LocalLogfile == 1;
    txtbWave.text = !r.WaveFile.isEmpty() && QFileInfo(r.WaveFile).isFile()
                        ? r.WaveFile
                        : ruleDialogText::kNoSound;
    updatePlay();
    chkEventForwarding.checked = r.SyslogPriority >= 0;
    cbFacility.enabled = cbLevel.enabled = chkEventForwarding.checked;
    if (chkEventForwarding.checked) {
        const int level = r.SyslogPriority % 8;
        select(cbLevel, level);
        select(cbFacility, (r.SyslogPriority - level) / 8);
    } else {
        cbFacility.ListIndex = cbLevel.ListIndex = -1;
    }
    chkNTEventLog.checked = r.NTEventLog == 1;
    cbNTEventLogCategory.enabled = cbNTEventLogID.enabled = chkNTEventLog.checked;
    select(cbNTEventLogCategory, chkNTEventLog.checked ? r.NTEventLogCategory : -1);
    select(cbNTEventLogID, chkNTEventLog.checked ? r.NTEventLogID : -1);
}

void FrmRealtimeFilter::txtbRuleNumber_Click() {
    focus = QStringLiteral("cbSrvLed");
}

void FrmRealtimeFilter::cbEventTypeFilterRule_Click() {
    const int type = cbEventTypeFilterRule.ListIndex;
    picEventTypeIcon = type > 0 ? ruleEventImage(type) : -1;
}

void FrmRealtimeFilter::txtbErrorMessage1_GotFocus() {
    if (txtbErrorMessage1.text == ruleDialogText::kNone)
        txtbErrorMessage1.text.clear();
}

void FrmRealtimeFilter::txtbErrorMessage2_GotFocus() {
    if (txtbErrorMessage2.text == ruleDialogText::kNone)
        txtbErrorMessage2.text.clear();
}

void FrmRealtimeFilter::chkEventForwarding_Click() {
    enableList(cbFacility, chkEventForwarding.checked);
    enableList(cbLevel, chkEventForwarding.checked);
}

void FrmRealtimeFilter::chkNTEventLog_Click() {
    enableList(cbNTEventLogCategory, chkNTEventLog.checked);
    enableList(cbNTEventLogID, chkNTEventLog.checked);
}

QString FrmRealtimeFilter::waveFolder() const {
    for (const QString& folder : {QStringLiteral("/usr/share/sounds"), QDir::homePath()})
        if (QFileInfo(folder).isDir())
            return folder;
    return engine_.paths.appFolder;
}

void FrmRealtimeFilter::waveChosen(const QString& path) {
    if (path.isEmpty())
        return;
    txtbWave.text = path;
    updatePlay();
}

void FrmRealtimeFilter::txtbWave_Change() {
    updatePlay();
}

void FrmRealtimeFilter::updatePlay() {
    cmdPlayWave.enabled =
        txtbWave.text != ruleDialogText::kNoSound && QFileInfo(txtbWave.text).isFile();
}

void FrmRealtimeFilter::cmdPlayWave_Click() {
    if (cmdPlayWave.enabled)
        engine_.sound->playAsync(txtbWave.text);
}

QString FrmRealtimeFilter::ruleLine() const {
    FilterRule r;
    r.RuleNumber =
        static_cast<std::int16_t>(text::numericReading(txtbRuleNumber.text.toStdString()));
    r.RealtimeStatus = static_cast<std::int16_t>(cbSrvLed.ListIndex);
    r.EventStatus = static_cast<std::int16_t>(cbStatusIcon.ListIndex);
    r.EventType = static_cast<std::int16_t>(cbEventTypeFilterRule.ListIndex);
    r.Source = static_cast<std::int16_t>(cbSourceFilterRule.ListIndex);
    r.Category = static_cast<std::int16_t>(cbCategoryFilterRule.ListIndex);
    r.SearchString1 = storedSearch(txtbErrorMessage1.text);
    r.SearchString2 = storedSearch(txtbErrorMessage2.text);
    r.LocalPopup = chkLocalPopup.checked ? 1 : 0;
    r.RemotePopup = chkRemotePopup.checked ? 1 : 0;
    r.EMail = chkEmail.checked ? 1 : 0;
    r.SyslogPriority = chkEventForwarding.checked
                           ? static_cast<std::int16_t>(cbFacility.ListIndex * 8 + cbLevel.ListIndex)
                           : std::int16_t{-1};
    r.WaveFile = txtbWave.text == ruleDialogText::kNoSound ? QString() : txtbWave.text;
    r.LocalLogfile = chkLogfile.checked ? 1 : 0;
    r.NTEventLog = chkNTEventLog.checked ? 1 : 0;
    r.NTEventLogCategory = static_cast<std::int16_t>(
        cbNTEventLogCategory.enabled ? cbNTEventLogCategory.ListIndex : -1);
    r.NTEventLogID =
        static_cast<std::int16_t>(cbNTEventLogID.enabled ? cbNTEventLogID.ListIndex : -1);
    return FilterRuleLine(r);
}

void FrmRealtimeFilter::cmdSave_Click() {
    withErrorTail(engine_.errors, "frmRealtimeFilter.cmdSave_Click()", [&] {
        SaveFilterRule(engine_.paths, ruleLine());
        ShowFilterRulesList(engine_);
    });
    closed = true;
}

void FrmRealtimeFilter::cmdRemove_Click() {
    withErrorTail(engine_.errors, "frmRealtimeFilter.cmdRemove_Click()", [&] {
        RemoveFilterRule(engine_.paths,
                         static_cast<int>(text::numericReading(txtbRuleNumber.text.toStdString())));
        ShowFilterRulesList(engine_);
    });
    closed = true;
}

void FrmRealtimeFilter::cmdExit_Click() {
    closed = true;
}

} // namespace twk
