#pragma once
// The filter rules of the realtime monitor live in twk.ini, in the section
// [RealtimeMonitor], which is the file's last: one line per rule, 17 fields separated
// by ",". This file is the home of the rule file's operations.

#include "core/settings/IniFile.h"

#include <QString>
#include <QStringList>

namespace twk {

struct AppPaths;

inline const QString kRealtimeMonitorSection = QStringLiteral("[RealtimeMonitor]");

class FilterRuleFile {
public:
    explicit FilterRuleFile(const QString& iniPath);
    /// The rule file of the program: twk.ini in the application folder.
    static FilterRuleFile of(const AppPaths& paths);

    const IniFile& ini() const { return ini_; }

    /// Makes sure that twk.ini and its rule section exist: a missing file gets its head
    /// ([TreeContext] with an empty value), a file without a line holding
    /// "[RealtimeMonitor]" gets an empty line, the section line and the default rules.
    /// False when the file could not be read or written.
    bool CheckRealtimeMonitorSection() const;
    /// Writes a new twk.ini: the head and the bare section line, with no rules.
    bool CreateIniFile() const;

    /// The 39 default rule lines, from rule 39 down to rule 1.
    static QStringList defaultRuleLines();

private:
    IniFile ini_;
};

} // namespace twk
