#include "monitor/FilterRules.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/Vocabulary.h"
#include "monitor/FilterRuleFile.h"
#include "monitor/MonitorRows.h"

#include <limits>

namespace twk {

namespace {

constexpr int kRuleFirstNumber = 1;
constexpr int kFilterRulesMessageColumn = 9;

std::int16_t field16(const QString& field) {
    const std::int64_t value = text::numericReading(field.toStdString());
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(errnum::Overflow, "Overflow");
    return static_cast<std::int16_t>(value);
}

// The place of a text in a table, + 1; 0 when the table does not hold it.
template <std::size_t N>
int positionIn(const std::array<std::string_view, N>& table, std::string_view cell) {
    for (std::size_t i = 0; i < N; ++i)
        if (table[i] == cell)
            return static_cast<int>(i) + 1;
    return 0;
}

// Replaces the rule section's lines of `number` (and writes `line` first when given).
bool rewriteRuleSection(const AppPaths& paths, int number, const QString* line) {
    const FilterRuleFile file = FilterRuleFile::of(paths);
    if (!file.ini().exists() && !file.CreateIniFile())
        return false;
    if (!file.CheckRealtimeMonitorSection())
        return false;
    const auto lines = file.ini().readLines();
    if (!lines)
        return false;
    QStringList out;
    qsizetype i = 0;
    for (; i < lines->size(); ++i) {
        out << lines->at(i);
        if (lines->at(i).contains(kRealtimeMonitorSection))
            break;
    }
    if (line != nullptr)
        out << *line;
    for (++i; i < lines->size(); ++i)
        if (text::numericReading(lines->at(i).toStdString()) != number)
            out << lines->at(i);
    return file.ini().replaceLines(out, QStringLiteral("twk.tmp"));
}

} // namespace

FilterRule ParseFilterRuleLine(const QString& line) {
    const std::int64_t number = text::numericReading(line.toStdString());
    if (number < kRuleFirstNumber || number > kFilterRuleCapacity)
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    const QStringList f = line.split(u',');
    if (f.size() < kRuleFieldCount)
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    FilterRule r;
    r.RuleNumber = static_cast<std::int16_t>(number);
    r.RealtimeStatus = field16(f[1]);
    r.EventStatus = field16(f[2]);
    r.EventType = field16(f[3]);
    r.Source = field16(f[4]);
    r.Category = field16(f[5]);
    r.SearchString1 = f[6];
    r.SearchString2 = f[7];
    r.LocalPopup = field16(f[8]);
    r.RemotePopup = field16(f[9]);
    r.EMail = field16(f[10]);
    r.SyslogPriority = field16(f[11]);
    r.WaveFile = f[12];
    r.LocalLogfile = field16(f[13]);
    r.NTEventLog = field16(f[14]);
    r.NTEventLogCategory = field16(f[15]);
    r.NTEventLogID = field16(f[16]);
    return r;
}

QString FilterRuleLine(const FilterRule& r) {
    const auto n = [](std::int16_t v) {
        return QString::number(v);
    };
    return QStringList{
        n(r.RuleNumber),  n(r.RealtimeStatus), n(r.EventStatus), n(r.EventType),
        n(r.Source),      n(r.Category),       r.SearchString1,  r.SearchString2,
        n(r.LocalPopup),  n(r.RemotePopup),    n(r.EMail),       n(r.SyslogPriority),
        r.WaveFile,       n(r.LocalLogfile),   n(r.NTEventLog),  n(r.NTEventLogCategory),
        n(r.NTEventLogID)}
        .join(u',');
}

void ReadFilterRules(Engine& engine) {
    auto& rules = engine.monitor.FilterRules;
    for (FilterRule& rule : rules)
        rule.RuleNumber = -1;
    withErrorTail(engine.errors, "modRealTimeMonitor.ReadFilterRules()", [&] {
        const auto lines = FilterRuleFile::of(engine.paths).ini().readLines();
        if (!lines)
            throw RunTimeError(errnum::FileNotFound, "File not found");
        const qsizetype section = indexOfLineHolding(*lines, kRealtimeMonitorSection);
        if (section < 0)
            return;
        for (qsizetype i = section + 1; i < lines->size(); ++i) {
            const QString& line = lines->at(i);
            if (text::trimBlanks(line).isEmpty())
                continue;
            withErrorTail(engine.errors, "modRealTimeMonitor.ReadFilterRules()", [&] {
                const FilterRule rule = ParseFilterRuleLine(line);
                rules[static_cast<std::size_t>(rule.RuleNumber - 1)] = rule;
            });
        }
    });
}

void CheckRealtimeStatus(Engine& engine, int gridRow) {
    const std::uint64_t run = engine.monitor.run;
    withErrorTail(engine.errors, "modRealTimeMonitor.CheckRealtimeStatus(iGridRow)", [&] {
        Grid& g = engine.Grid1;
        if (gridRow < 1 || gridRow > g.Rows() || g.Cols() < kFilterRulesMessageColumn)
            return;
        const std::int16_t severity = iStatusSelector(g.CellText(gridRow, 4));
        const int source = positionIn(LocusNames, g.CellText(gridRow, 5));
        const int category = positionIn(ClassNames, g.CellText(gridRow, 6));
        const int image = g.CellIcon(gridRow, 7);
        const int eventType = image >= 24 ? image - 9 : image - 6;
        const QString message =
            QString::fromStdString(text::toLower(g.CellText(gridRow, kFilterRulesMessageColumn)));
        for (int pass = kStateOnline; pass <= kStateFailure; ++pass) {
            for (FilterRule& rule : engine.monitor.FilterRules) {
                if (rule.RuleNumber == -1 || rule.RealtimeStatus != pass)
                    continue;
                // The rule's strings are lower-cased in the table itself; "(none)" is none.
                for (QString* s : {&rule.SearchString1, &rule.SearchString2}) {
                    *s = s->toLower();
                    if (*s == QStringLiteral("(none)"))
                        s->clear();
                }
                const bool matches = (rule.EventStatus == 0 || rule.EventStatus == severity) &&
                                     (rule.Source == 0 || rule.Source == source) &&
                                     (rule.Category == 0 || rule.Category == category) &&
                                     (rule.EventType == 0 || rule.EventType == eventType) &&
                                     message.contains(rule.SearchString1) &&
                                     message.contains(rule.SearchString2);
                if (!matches)
                    continue;
                SetRowState(engine, gridRow, pass);
                engine.alerts->RunAlertOptions(rule.RuleNumber, gridRow);
                // The monitor was stopped or restarted while an alert waited: the row
                // belongs to a grid that is gone.
                if (engine.monitor.run != run)
                    return;
            }
        }
    });
}

int NextRuleNumber(const MonitorState& state) {
    std::array<bool, kFilterRuleCapacity + 1> used{};
    for (const FilterRule& rule : state.FilterRules)
        if (rule.RuleNumber >= 1 && rule.RuleNumber <= kFilterRuleCapacity)
            used[static_cast<std::size_t>(rule.RuleNumber)] = true;
    for (int n = 1; n <= kFilterRuleCapacity; ++n)
        if (!used[static_cast<std::size_t>(n)])
            return n;
    return 0;
}

bool SaveFilterRule(const AppPaths& paths, const QString& line) {
    return rewriteRuleSection(paths, static_cast<int>(text::numericReading(line.toStdString())),
                              &line);
}

bool RemoveFilterRule(const AppPaths& paths, int number) {
    return rewriteRuleSection(paths, number, nullptr);
}

} // namespace twk
