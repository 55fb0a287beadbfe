#include "monitor/FilterRuleList.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/Text.h"
#include "logs/GridViews.h"
#include "logs/Vocabulary.h"
#include "monitor/FilterRules.h"
#include "monitor/MonitorRows.h"
#include "monitor/RealtimeMonitor.h"

namespace twk {

namespace {

constexpr int kSwitchOff = 47;
constexpr int kSwitchOn = 46;
constexpr int kSwitchOther = 24;
constexpr int kNoEventTypeCriterion = 25;
constexpr std::array<int, 8> kStatusImages = {45, 0, 1, 2, 6, 5, 3, 4};

std::string str(std::string_view s) {
    return std::string(s);
}

void fillRow(Grid& g, int row, const FilterRule& r) {
    static const char* const kWords[] = {"ONLINE", "WARNING", "FAILURE"};
    g.setCellIcon(row, 1, led::kOnline + r.RealtimeStatus);
    g.setCellText(row, 2, kWords[r.RealtimeStatus]);
    g.setCellText(row, 3, text::right("00" + std::to_string(r.RuleNumber), 3));
    g.setCellIcon(row, 4, ruleStatusImage(r.EventStatus));
    g.setCellText(row, 5, str(sStatusIcon(r.EventStatus)));
    g.setCellText(row, 6, str(sSource(r.Source)));
    g.setCellText(row, 7, str(sCategory(r.Category)));
    g.setCellIcon(row, 8, ruleEventImage(r.EventType));
    g.setCellText(row, 9, str(sEventType(r.EventType)));
    g.setCellText(row, 10, r.SearchString1.toStdString());
    g.setCellText(row, 11, r.SearchString2.toStdString());
    g.setCellIcon(row, 12, ruleSwitchImage(r.LocalPopup));
    g.setCellIcon(row, 13, ruleSwitchImage(r.RemotePopup));
    g.setCellIcon(row, 14, ruleSwitchImage(r.EMail));
    if (r.SyslogPriority < 0)
        g.setCellIcon(row, 15, kSwitchOff);
    else
        g.setCellText(row, 15, std::to_string(r.SyslogPriority));
    g.setCellText(row, 16, r.WaveFile.toLower().toStdString());
    g.setCellIcon(row, 17, ruleSwitchImage(r.LocalLogfile));
    g.setCellIcon(row, 18, ruleSwitchImage(r.NTEventLog));
    if (r.NTEventLogCategory >= 0 && r.NTEventLogCategory < kRuleCategoryCount)
        g.setCellText(row, 19, str(RuleCategories[static_cast<std::size_t>(r.NTEventLogCategory)]));
    if (r.NTEventLogID != -1)
        g.setCellText(row, 20, std::to_string(r.NTEventLogID + 1));
}

} // namespace

int ruleStatusImage(int eventStatus) {
    if (eventStatus < 0 || eventStatus >= static_cast<int>(kStatusImages.size()))
        return kImageUnknownStatus;
    return kStatusImages[static_cast<std::size_t>(eventStatus)];
}

int ruleEventImage(int eventType) {
    if (eventType == 0)
        return kNoEventTypeCriterion;
    if (eventType < 0 || eventType > 23)
        return kImageNoEventType;
    return eventType <= 17 ? eventType + 6 : eventType + 9;
}

int ruleSwitchImage(int value) {
    return value == 0 ? kSwitchOff : value == 1 ? kSwitchOn : kSwitchOther;
}

void ShowFilterRulesList(Engine& engine) {
    withErrorTail(engine.errors, "modRealTimeMonitor.ShowFilterRulesList()", [&] {
        ReadFilterRules(engine);
        CloseFile(engine);
        CreateNewTable(engine, views::kFilterRules);
        Grid& g = engine.Grid1;
        const auto& rules = engine.monitor.FilterRules;
        int count = 0;
        for (const FilterRule& r : rules)
            if (r.RuleNumber != -1 && r.RealtimeStatus >= kStateOnline &&
                r.RealtimeStatus <= kStateFailure)
                ++count;
        g.setRedraw(false);
        // One empty row at the end: its double click makes a new rule.
        g.setRows(count + 1);
        int row = 0;
        for (int state = kStateFailure; state >= kStateOnline; --state)
            for (const FilterRule& r : rules)
                if (r.RuleNumber != -1 && r.RealtimeStatus == state)
                    fillRow(g, ++row, r);
        g.setRedraw(true);
        MainView& v = engine.view;
        v.closeEnabled = true;
        v.picCloseLogfileToolTip = ruleListText::kCloseToolTip;
        v.backgroundImage = false;
        v.changed();
    });
}

void mnuRTMFilterRules_Click(Engine& engine) {
    if (MonitorRunning(engine)) {
        if (engine.ui.messageBox(rtmText::kExitQuestion, MsgIcon::Question, MsgButtons::YesNo,
                                 kMessageTitle) != MsgResult::Yes)
            return;
        StopMonitoring(engine);
    }
    ShowFilterRulesList(engine);
}

void FilterRuleList_DblClick(Engine& engine, int row) {
    const Grid& g = engine.Grid1;
    int number = 0;
    if (row >= 1 && row <= g.Rows() && g.Cols() >= 3)
        number = static_cast<int>(text::numericReading(g.CellText(row, 3)));
    ShowFilterRule(engine, number);
}

void ShowFilterRule(Engine& engine, int ruleNumber) {
    if (engine.monitor.dialogs.showFilterRule)
        engine.monitor.dialogs.showFilterRule(ruleNumber);
}

} // namespace twk
