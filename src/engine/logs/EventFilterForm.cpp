#include "logs/EventFilterForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/LogDate.h"
#include "logs/Vocabulary.h"

namespace twk {

namespace {

// The event type list leaves out the two empty slots of the name table (images 25, 26).
bool listedEventType(std::size_t index) {
    return !EventTypeNames[index].empty();
}

// The date a pane's text gives a calendar; none for the placeholder or an empty pane.
QDate paneDate(const QString& text, const QString& placeholder) {
    if (text.isEmpty() || text.contains(placeholder))
        return {};
    return logDateValue(text.toStdString());
}

} // namespace

FilterDialog mnuFilter_Click(const Engine& engine) {
    const QString& kind = engine.view.CurrentView;
    if (kind == views::kSysLogErr)
        return FilterDialog::SysLog;
    if (kind == views::kCronlog)
        return FilterDialog::Cronlog;
    return FilterDialog::None;
}

FrmFilterSYSLOG::FrmFilterSYSLOG(Engine& engine) : engine_(engine) {}

CheckBoxState* FrmFilterSYSLOG::severityBox(int passIndex) {
    CheckBoxState* boxes[] = {&chkInformational, &chkWarning,  &chkRecovered, &chkAborted1,
                              &chkAborted2,      &chkCritical, &chkFatal,     &chkUnkown};
    return passIndex >= 0 && passIndex < 8 ? boxes[passIndex] : nullptr;
}

void FrmFilterSYSLOG::Form_Load() {
    cbEventType.items = QStringList{filterText::kAll};
    for (std::size_t i = 0; i < EventTypeNames.size(); ++i)
        if (listedEventType(i))
            cbEventType.items << text::toQString(EventTypeNames[i]);
    cbEventType.ListIndex = 0;

    cbStartDate.items = QStringList{filterText::kFirstEntry, filterText::kSelectedDate};
    cbStartDate.ListIndex = 0;
    cbEndDate.items = QStringList{filterText::kLastEntry, filterText::kSelectedDate};
    cbEndDate.ListIndex = 0;
    calStartDate.visible = false;
    calEndDate.visible = false;
    const MainView& v = engine_.view;
    if (const QDate d = paneDate(v.pane(FirstEntry).text, filterText::kFirstEntry); d.isValid())
        calStartDate.Value = d;
    if (const QDate d = paneDate(v.pane(LastEntry).text, filterText::kLastEntry); d.isValid())
        calEndDate.Value = d;

    cbSource.items = QStringList{filterText::kAll};
    for (const std::string_view name : LocusNames)
        cbSource.items << text::toQString(name);
    cbSource.ListIndex = 0;
    cbCategory.items = QStringList{filterText::kAll};
    for (const std::string_view name : ClassNames)
        cbCategory.items << text::toQString(name);
    cbCategory.ListIndex = 0;
    focus = QStringLiteral("chkInformational");
}

void FrmFilterSYSLOG::Form_Activate() {
    Visible = true;
    picEvent = QStringLiteral("ALL");
}

void FrmFilterSYSLOG::cbEventType_Click() {
    const std::string wanted = text::toLower(cbEventType.text().toStdString());
    picEvent = QString();
    if (wanted == "(all)") {
        picEvent = QStringLiteral("ALL");
        return;
    }
    for (std::size_t i = 0; i < EventTypeNames.size(); ++i)
        if (listedEventType(i) && text::toLower(EventTypeNames[i]) == wanted) {
            picEvent = text::toQString(EventTypeKeys[i]);
            return;
        }
}

void FrmFilterSYSLOG::cbSource_Click() {
    if (cbSource.ListIndex != 0)
        focus = QStringLiteral("cmdFilter");
}

void FrmFilterSYSLOG::cbCategory_Click() {
    if (cbCategory.ListIndex != 0)
        focus = QStringLiteral("cmdFilter");
}

void FrmFilterSYSLOG::cbStartDate_Click() {
    if (!Visible)
        return;
    if (cbStartDate.ListIndex == 1) {
        calStartDate.visible = true;
    } else {
        calStartDate.Value = paneDate(engine_.view.pane(FirstEntry).text, filterText::kFirstEntry);
        calStartDate.visible = false;
    }
    focus = QStringLiteral("cmdFilter");
}

void FrmFilterSYSLOG::cbEndDate_Click() {
    if (!Visible)
        return;
    if (cbEndDate.ListIndex == 1) {
        calEndDate.visible = true;
    } else {
        calEndDate.Value = paneDate(engine_.view.pane(LastEntry).text, filterText::kLastEntry);
        calEndDate.visible = false;
    }
    focus = QStringLiteral("cmdFilter");
}

void FrmFilterSYSLOG::txbErrorNr_GotFocus() {
    focus = QStringLiteral("txbErrorNr");
    if (txbErrorNr.text == filterText::kSearchPrompt)
        txbErrorNr.text.clear();
}

void FrmFilterSYSLOG::txbErrMsg_GotFocus() {
    focus = QStringLiteral("txbErrMsg");
    if (txbErrMsg.text == filterText::kSearchPrompt)
        txbErrMsg.text.clear();
}

void FrmFilterSYSLOG::cmdSelectAll_Click() {
    for (int i = 0; i < 8; ++i)
        severityBox(i)->checked = true;
}

void FrmFilterSYSLOG::cmdDeselectAll_Click() {
    for (int i = 0; i < 8; ++i)
        severityBox(i)->checked = false;
}

int FrmFilterSYSLOG::activeCriteriaCount() const {
    return criteria().passCount();
}

FilterCriteria FrmFilterSYSLOG::criteria() const {
    FilterCriteria c;
    const CheckBoxState* boxes[] = {&chkInformational, &chkWarning,  &chkRecovered, &chkAborted1,
                                    &chkAborted2,      &chkCritical, &chkFatal,     &chkUnkown};
    for (std::size_t i = 0; i < 8; ++i)
        c.hideSeverity[i] = !boxes[i]->checked;
    if (cbSource.ListIndex > 0)
        c.source = cbSource.text().toStdString();
    if (cbCategory.ListIndex > 0)
        c.category = cbCategory.text().toStdString();
    if (cbEventType.ListIndex > 0) {
        // The first image whose name is the selected item.
        const std::string wanted = cbEventType.text().toStdString();
        for (int image = kFirstEventTypeImage; image <= kLastEventTypeImage; ++image)
            if (EventTypeName(image) == wanted) {
                c.eventTypeImage = image;
                break;
            }
    }
    if (txbErrorNr.text != filterText::kSearchPrompt)
        c.errorNr = txbErrorNr.text.toStdString();
    if (txbErrMsg.text != filterText::kSearchPrompt)
        c.errorMessage = txbErrMsg.text.toStdString();
    if (calStartDate.visible || calEndDate.visible) {
        c.byDate = true;
        c.start = calStartDate.Value;
        c.end = calEndDate.Value;
    }
    return c;
}

bool FrmFilterSYSLOG::checksPass() {
    UiPort& ui = engine_.ui;
    if (activeCriteriaCount() == 0) {
        ui.messageBox(QStringLiteral("Please set a filter option     ") + text::kCrLf +
                          QStringLiteral("to continue."),
                      MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        return false;
    }
    const QString firstText = engine_.view.pane(FirstEntry).text;
    const QString lastText = engine_.view.pane(LastEntry).text;
    const QDate first = logDateValue(firstText.toStdString());
    const QDate last = logDateValue(lastText.toStdString());
    // The range is known when both panes hold a date; a pane that holds something else
    // than a date cannot bound it either.
    const bool rangeKnown =
        !firstText.isEmpty() && !lastText.isEmpty() && first.isValid() && last.isValid();
    const auto outside = [&](const QDate& d) {
        return d.isValid() && (d < first || d > last);
    };
    const auto rangeMessage = [&](const QString& headline) {
        ui.messageBox(headline + text::kCrLf + QStringLiteral("The valid date range is from     ") +
                          text::kCrLf + firstText.trimmed() + QStringLiteral(" to ") +
                          lastText.trimmed() + QStringLiteral("."),
                      MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
    };
    if (rangeKnown && calStartDate.visible && outside(calStartDate.Value)) {
        rangeMessage(QStringLiteral("Invalid start date!"));
        return false;
    }
    if (rangeKnown && calEndDate.visible && outside(calEndDate.Value)) {
        rangeMessage(QStringLiteral("Invalid end date!"));
        return false;
    }
    if (calStartDate.visible && calEndDate.visible && calStartDate.Value.isValid() &&
        calEndDate.Value.isValid() && calEndDate.Value < calStartDate.Value) {
        ui.messageBox(QStringLiteral("Invalid date logic!") + text::kCrLf + calStartDate.Text() +
                          QStringLiteral(" to ") + calEndDate.Text() + QStringLiteral(".     "),
                      MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        return false;
    }
    return true;
}

bool FrmFilterSYSLOG::cmdFilter_Click() {
    if (running_ || closed)
        return false;
    bool filtered = false;
    withErrorTail(engine_.errors, "frmFilterSYSLOG.cmdFilter_Click()", [&] {
        if (engine_.view.CurrentView != views::kSysLogErr || engine_.Grid1.Cols() < 10)
            return;
        if (!checksPass())
            return;
        running_ = true;
        runFilterPasses(engine_, criteria());
        running_ = false;
        closed = true;
        Visible = false;
        filtered = true;
    });
    running_ = false;
    return filtered;
}

void FrmFilterSYSLOG::cmdCancel_Click() {
    closed = true;
    Visible = false;
}

} // namespace twk
