#include "monitor/FilterRuleFile.h"

#include "core/AppPaths.h"
#include "core/settings/TwkIniHead.h"

namespace twk {

namespace {

// Temporary file of the rule file's replacements, beside twk.ini.
const QString kRuleTempFile = QStringLiteral("twk.tmp");

// Fields 1 to 9 of the default rules: number, realtime status (0 ONLINE, 1 WARNING,
// 2 FAILURE), event status, event type, source (locus + 1), category (class + 1),
// search string 1, search string 2, local popup. 0 and "(none)" mean any.
constexpr const char* kDefaultRuleHeads[] = {
    "39,0,0,18,0,0,(none),(none),0", // Bindery open request
    "38,0,0,10,0,0,(none),(none),0", // remote console connection cleared
    "37,0,0,9,0,0,(none),(none),0",  // remote console connection granted
    "36,0,0,7,0,0,(none),(none),0",  // new NCP Service Address registered
    "35,0,0,5,0,0,(none),(none),0",  // local database is open
    "34,0,0,3,0,0,(none),(none),0",  // time synchronization has been established
    "33,0,0,1,0,0,(none),(none),0",  // established communication with server...
    "32,0,1,0,0,0,(none),(none),0",  // Informational
    "31,1,0,0,12,0,(none),(none),1", // source Locks
    "30,1,0,20,0,0,(none),(none),1", // system time changed
    "29,1,0,16,0,0,(none),(none),1", // Novell Licensing Services Event
    "28,1,0,8,0,0,(none),(none),1",  // NCP Service Address has been deregistered
    "27,1,0,6,0,0,(none),(none),1",  // local database has been closed
    "26,1,0,17,0,0,(none),(none),1", // auditing event
    "25,1,0,22,0,0,(none),(none),1", // policy manager event
    "24,1,0,2,0,0,(none),(none),1",  // lost communication with server...
    "23,1,0,4,0,0,(none),(none),1",  // time synchronization has been lost
    "22,1,3,0,0,0,(none),(none),1",  // Recovered
    "21,2,0,0,0,5,(none),(none),1",  // category Internal Error
    "20,2,0,0,0,22,(none),(none),1", // category Protect Violation
    "19,2,0,0,0,7,experienced a critical error,(none),1", // category System Failure
    "18,2,0,0,0,6,(none),(none),1",                       // category Hardware Failure
    "17,2,0,0,0,12,(none),(none),1",                      // category Media Failure
    "16,2,0,0,0,2,(none),(none),1",                       // category Out Of Resources
    "15,2,0,0,0,15,(none),(none),1",                      // category Limit Exceeded
    "14,2,0,0,0,11,(none),(none),1",                      // category Locked
    "13,2,0,0,2,0,out of,memory,1",                       // source Memory
    "12,2,0,14,0,0,(none),(none),1",                      // device deactivated
    "11,2,0,23,0,0,(none),(none),1",                      // router configuration error
    "10,2,0,21,0,0,(none),(none),1",                      // synthetic time on partition...
    "9,2,0,13,0,0,(none),(none),1",                       // intruder lock-out on account...
    "8,2,0,12,0,0,(none),(none),1",                       // login is disabled
    "7,2,0,11,0,0,(none),(none),1",                       // remote console connection refused
    "6,2,5,0,0,0,(none),(none),1",                        // Operation Aborted
    "5,2,6,0,11,0,(none),(none),1",                       // Critical, source Router
    "4,2,4,0,0,0,(none),(none),1",                        // Operation Aborted (NOS not affected)
    "3,2,7,0,4,7,(none),(none),1", // Fatal, source Disk, category System Failure
    "2,2,7,0,3,7,(none),(none),1", // Fatal, source File System, category System Failure
    "1,2,7,0,8,0,(none),(none),1", // Fatal, source TTS
};

// Fields 10 to 17 of every default rule: no remote popup, no mail, no forwarding, no
// wave file, no local log, no event log, no event log category and id.
constexpr const char* kDefaultRuleTail = ",0,0,-1,,0,0,-1,-1";

} // namespace

FilterRuleFile::FilterRuleFile(const QString& iniPath) : ini_(iniPath) {}

FilterRuleFile FilterRuleFile::of(const AppPaths& paths) {
    return FilterRuleFile(IniFile::twkIni(paths).path());
}

QStringList FilterRuleFile::defaultRuleLines() {
    QStringList lines;
    for (const char* head : kDefaultRuleHeads)
        lines << QLatin1String(head) + QLatin1String(kDefaultRuleTail);
    return lines;
}

bool FilterRuleFile::CheckRealtimeMonitorSection() const {
    QStringList lines;
    if (!ini_.exists()) {
        lines = twkIniHead();
    } else {
        const auto existing = ini_.readLines();
        if (!existing)
            return false; // unreadable: never replace what we could not see
        lines = *existing;
    }
    if (indexOfLineHolding(lines, kRealtimeMonitorSection) >= 0)
        return true; // the user's rules stay as they are, even an empty section
    lines << QString() << kRealtimeMonitorSection << defaultRuleLines();
    return ini_.replaceLines(lines, kRuleTempFile);
}

bool FilterRuleFile::CreateIniFile() const {
    return ini_.replaceLines(twkIniHead() << kRealtimeMonitorSection, kRuleTempFile);
}

} // namespace twk
