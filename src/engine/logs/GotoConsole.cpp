#include "logs/GotoConsole.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/ConsoleLog.h"
#include "logs/GridColumns.h"
#include "logs/MarkColors.h"

#include <QtCore/qnamespace.h>

namespace twk {

namespace {

const std::array<const char*, kConsoleEventKinds + 1> kNames = {
    "", " NLM loading Events", " NLM unloading Events", " Error and Warning Messages",
    " Date Entries"};

QString countText(std::int64_t current, std::int64_t total) {
    return QStringLiteral(" ") + QString::number(current) + QStringLiteral("/") +
           QString::number(total);
}

bool validKind(int kind) {
    return kind >= 1 && kind <= kConsoleEventKinds;
}

} // namespace

std::int64_t TotalOfPane1(const Engine& engine) {
    const QString& text = engine.view.pane(EntryPos).text;
    const qsizetype slash = text.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return 0;
    return text::numericReading(text.mid(slash + 1).toStdString());
}

GotoConsoleModel::GotoConsoleModel(Engine& engine) : engine_(engine) {
    for (int kind = 1; kind <= kConsoleEventKinds; ++kind) {
        const std::uint32_t colour = ConsoleKindColor(kind);
        nameLabels[static_cast<std::size_t>(kind)] = {
            QString::fromLatin1(kNames[static_cast<std::size_t>(kind)]), colour, kWhite, {}};
        countLabels[static_cast<std::size_t>(kind)] = {countText(0, 0), colour, kWhite, {}};
    }
}

void GotoConsoleModel::Form_Load() {
    for (int kind = 1; kind <= kConsoleEventKinds; ++kind)
        countLabels[static_cast<std::size_t>(kind)].caption =
            countText(0, engine_.analysis.consoleCount(kind));
    SelectEvent(kErrorMessages);
}

int GotoConsoleModel::EventType() const {
    int kind = 0;
    for (int k = 1; k <= kConsoleEventKinds; ++k)
        if (nameLabels[static_cast<std::size_t>(k)].backColor != kWhite)
            kind = k;
    return kind;
}

void GotoConsoleModel::SelectEvent(int kind) {
    if (!validKind(kind))
        return;
    for (int k = 1; k <= kConsoleEventKinds; ++k) {
        const std::uint32_t colour = ConsoleKindColor(k);
        const bool selected = k == kind;
        for (NavigatorLabel* label : {&nameLabels[static_cast<std::size_t>(k)],
                                      &countLabels[static_cast<std::size_t>(k)]}) {
            label->foreColor = selected ? kWhite : colour;
            label->backColor = selected ? colour : kWhite;
        }
        countLabels[static_cast<std::size_t>(k)].caption =
            countText(0, engine_.analysis.consoleCount(k));
    }
    lbEventMessage.caption.clear();
    lbEventMessage.toolTip.clear();
    lbEventMessage.foreColor = ConsoleKindColor(kind);
    GotoFirstEvent();
}

void GotoConsoleModel::readCount(int kind, std::int64_t& current, std::int64_t& total) const {
    const QString& caption = countLabels[static_cast<std::size_t>(kind)].caption;
    current = text::numericReading(caption.toStdString());
    const qsizetype slash = caption.indexOf(QLatin1Char('/'));
    total = slash < 0 ? 0 : text::numericReading(caption.mid(slash + 1).toStdString());
}

void GotoConsoleModel::GotoFirstEvent() {
    const int kind = EventType();
    if (!validKind(kind))
        return;
    std::int64_t current = 0, total = 0;
    readCount(kind, current, total);
    if (total != 0)
        moveTo(kind, 1, total, true);
}

void GotoConsoleModel::GotoPreviousEvent() {
    const int kind = EventType();
    if (!validKind(kind))
        return;
    std::int64_t current = 0, total = 0;
    readCount(kind, current, total);
    if (current >= 2)
        moveTo(kind, current - 1, total, false);
}

void GotoConsoleModel::GotoNextEvent() {
    const int kind = EventType();
    if (!validKind(kind))
        return;
    std::int64_t current = 0, total = 0;
    readCount(kind, current, total);
    if (current < total)
        moveTo(kind, current + 1, total, false);
}

void GotoConsoleModel::GotoLastEvent() {
    const int kind = EventType();
    if (!validKind(kind))
        return;
    std::int64_t current = 0, total = 0;
    readCount(kind, current, total);
    if (total != 0)
        moveTo(kind, total, total, false);
}

void GotoConsoleModel::moveTo(int kind, std::int64_t number, std::int64_t total, bool first) {
    countLabels[static_cast<std::size_t>(kind)].caption = countText(number, total);
    const auto& list = engine_.analysis.consoleEvents[static_cast<std::size_t>(kind)];
    // The labels may tell more than the lists hold only if a new log came in between.
    if (number < 1 || number >= static_cast<std::int64_t>(list.size()))
        return;
    Grid& grid = engine_.Grid1;
    const int row = list[static_cast<std::size_t>(number)].row;
    if (row < 1 || row > grid.Rows())
        return;
    grid.setSelectedRow(row);
    // Only the first event repaints its row, so a row of several lists takes the colour
    // of the list whose first event it is.
    if (first)
        grid.setCellForeColor(row, consolecol::kText, ConsoleKindColor(kind));
    const QString message =
        QStringLiteral(" ") + QString::fromUtf8(text::trim(grid.CellText(row, consolecol::kText)));
    lbEventMessage.caption = message;
    lbEventMessage.toolTip = message + QStringLiteral(" ");
    MainView& v = engine_.view;
    v.pane(EntryPos).text = QString::fromUtf8(grid.CellText(row, consolecol::kRow)) +
                            QStringLiteral("/") + QString::number(grid.Rows());
    v.changed();
}

void GotoConsoleModel::cmdGoto_Click() {
    withErrorTail(engine_.errors, "frmGotoConsole.cmdGoto_Click()", [&] {
        const std::int64_t total = TotalOfPane1(engine_);
        if (txtbRow.isEmpty())
            return;
        const std::int64_t row = text::numericReading(txtbRow.toStdString());
        if (row < 1 || row > total) {
            engine_.ui.messageBox(QStringLiteral("Invalid Value!"), MsgIcon::Exclamation,
                                  MsgButtons::Ok, kMessageTitle);
            txtbRowFocusWanted = true;
            return;
        }
        if (engine_.view.CurrentView != views::kConsoleLog)
            return;
        Grid& grid = engine_.Grid1;
        if (row > grid.Rows())
            return;
        grid.setSelectedRow(static_cast<int>(row));
        engine_.view.pane(EntryPos).text =
            QString::number(row) + QStringLiteral("/") + QString::number(total);
        txtbRow.clear();
        engine_.view.changed();
    });
}

bool GotoConsoleModel::keyDown(int key) {
    switch (key) {
    case Qt::Key_F1:
        helpPageWanted = kHelpPage;
        return true;
    case Qt::Key_F5:
        GotoFirstEvent();
        return true;
    case Qt::Key_F6:
        GotoPreviousEvent();
        return true;
    case Qt::Key_F7:
        GotoNextEvent();
        return true;
    case Qt::Key_F8:
        GotoLastEvent();
        return true;
    case Qt::Key_F9:
        SelectEvent(kNlmLoads);
        return true;
    case Qt::Key_F10:
        SelectEvent(kNlmUnloads);
        return true;
    case Qt::Key_F11:
        SelectEvent(kErrorMessages);
        return true;
    case Qt::Key_F12:
        SelectEvent(kDateEntries);
        return true;
    default:
        return false;
    }
}

void GotoConsoleModel::keyPress(QChar character) {
    const char16_t c = character.unicode();
    if (c >= u'0' && c <= u'9') {
        txtbRow += character;
    } else if (c == u'\b') {
        txtbRow.chop(1);
    } else if (c == u'\r' || c == u'\n') {
        cmdGoto_Click();
    } else if (c == 27) {
        closed = true;
    }
}

std::unique_ptr<GotoConsoleModel> mnuAnalyzer_Click(Engine& engine) {
    if (engine.view.CurrentView != views::kConsoleLog)
        return nullptr;
    auto model = std::make_unique<GotoConsoleModel>(engine);
    model->lbRange.caption =
        QStringLiteral("valid range -> 1 - ") + QString::number(TotalOfPane1(engine));
    model->Form_Load();
    return model;
}

} // namespace twk
