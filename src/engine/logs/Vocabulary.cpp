#include "logs/Vocabulary.h"

namespace twk {

const std::array<std::string_view, kStatusCount> StatusNames = {
    "Informational", "Warning", "Recovered", "Critical",
    "Fatal", "Operation Aborted", "Operation Aborted (NOS not affected)"};

const std::array<std::string_view, kStatusCount> StatusHelp = {
    "You don't have to worry about entries with informational status. Such entries are records "
    "of noncritical events.",
    "Warning messages indicate potential problems or errors that won't cause damage.",
    "These entries indicate that a minor error has occurred but NetWare was able to correct it "
    "or provide a workaround. (Example: Hot Fix)",
    "Critical errors can't be fixed by NetWare but the server still continues to work. "
    "(Examples: failed disk mirror, partitions are out of sync, a fix-up was attempted and "
    "failed, ABEND recovery suspends a process)",
    "A fatal error means resources are low and the server could shutdown or an NLM failed and a "
    "shutdown has occured. (Example: a disk drive is deactivated because of driver unloading)",
    "This error occurs if an operation can't complete such as a volume running out of disk "
    "space.",
    "You 'll see this error if an operation can't complete, but NetWare will continue to "
    "operate. (Example: a compressed file is corrupt and unrecoverable)"};

const std::string_view kMissingStatusHelp =
    "Sometimes a logfile entry does not contain all event informations (e.g. third-party "
    "entries). A missing status information will be replaced by an \"?\" - icon.";

const std::array<std::string_view, kLocusCount> LocusNames = {
    "Unknown", "Memory",  "File System", "Disk",   "Network Cards",     "Protocols", "Unused",
    "TTS",     "Bindery", "Station",     "Router", "Locks",             "Kernel",    "UPS",
    "SFT III", "Resource Tracking",      "NLM",    "OS Information",    "Cache",     "Domain"};

const std::array<std::string_view, kClassCount> ClassNames = {
    "Class Unknown",       "Out Of Resources",       "Temporary Situation",
    "Authorization Failure", "Internal Error",       "Hardware Failure",
    "System Failure",      "Request Error",          "Not Found",
    "Bad Format",          "Locked",                 "Media Failure",
    "Item Exists",         "Station Failure",        "Limit Exceeded",
    "Configuration Error", "Limit almost Exceeded",  "Security Audit Information",
    "Disk Information",    "General Information",    "File Compression",
    "Protect Violation"};

const std::array<std::string_view, kEventTypeNameCount> EventTypeNames = {
    "established communication with server...",
    "lost communication with server...",
    "time synchronization has been established",
    "time synchronization has been lost",
    "local database is open",
    "local database has been closed",
    "new NCP Service Address registered",
    "NCP Service Address has been deregistered",
    "remote console connection granted",
    "remote console connection cleared",
    "remote console connection refused",
    "login is disabled",
    "intruder lock-out on account...",
    "device deactivated",
    "Transaction Tracking System shutdown",
    "Novell Licensing Services Event",
    "auditing event",
    "icon not available",
    "",
    "",
    "Bindery open request",
    "Bindery close request",
    "system time changed",
    "synthetic time on partition...",
    "policy manager event",
    "router configuration error"};

const std::array<std::string_view, kEventTypeNameCount> EventTypeKeys = {
    "CONNECTION-FOUND", "CONNECTION-LOST", "TIMESYNC-FOUND", "TIMESYNC-LOST",
    "NDS-OPEN",         "NDS-CLOSE",       "NCP-NEW",        "NCP-KILL",
    "RC-ETAB",          "RC-CANCEL",       "RC-DENIED",      "LOGIN-DISABLED",
    "INTRUDER-DETECTION", "DEVICE-DEACTIVATED", "TTS",       "NLS",
    "AUDIT",            "QUESTION",        "",               "",
    "BINDERY-OPEN",     "BINDERY-CLOSE",   "TIME-CHANGED",   "SYNTHETIC-TIME",
    "POLICY-MANAGER",   "ROUTER-ERROR"};

const std::array<std::string_view, kRuleCategoryCount> RuleCategories = {
    "Auditing",          "Authorization",        "Bindery",          "BorderManager",
    "Cache",             "Client",               "Cluster Services", "Communication",
    "Configuration Error", "Device Failure",     "DHCP",             "Directory Services",
    "DirXML",            "Disk",                 "DNS",              "Domain",
    "eDirectory",        "File System",          "File Compression", "General Information",
    "GroupWise",         "Hardware Failure",     "Intruder lock-out", "Internal Error",
    "Kernel",            "LDAP",                 "Licensing",        "Limit Almost Exceeded",
    "Limit Exceeded",    "Locks",                "Login",            "Media Failure",
    "Memory",            "MySQL",                "NDPS",             "NDS",
    "Network Cards",     "NFAP",                 "NICI",             "NLM",
    "NSS",               "Operating System",     "OS Information",   "Out Of Resources",
    "Policy Manager",    "Protect Violation",    "Protocols",        "Record Locks",
    "Remote Connection", "Request Error",        "Resource Tracking", "Routing",
    "Security",          "SFT III",              "SLP",              "Station Failure",
    "System Failure",    "Temporary Situation",  "Time Synchronization", "TTS",
    "Unknown",           "UPS",                  "ZENWorks"};

namespace {

constexpr std::string_view kAll = "(all)";
constexpr std::string_view kUnknownSelector = "???";

// Selector order of the status lists: the order of gravity.
constexpr std::array<std::string_view, 8> kStatusSelector = {
    "(all)",    "Informational", "Warning", "Recovered", "Operation Aborted (NOS not affected)",
    "Operation Aborted", "Critical", "Fatal"};

} // namespace

std::string_view sCategory(std::int16_t index) {
    if (index == 0)
        return kAll;
    if (index >= 1 && index <= kClassCount)
        return ClassNames[static_cast<std::size_t>(index - 1)];
    return kUnknownSelector;
}

std::string_view sSource(std::int16_t index) {
    if (index == 0)
        return kAll;
    if (index >= 1 && index <= kLocusCount)
        return LocusNames[static_cast<std::size_t>(index - 1)];
    return kUnknownSelector;
}

std::string_view sEventType(std::int16_t index) {
    if (index == 0)
        return kAll;
    // Positions 1..16 are table entries 0..15, 17 is "auditing event" (16), then 18..23
    // are entries 20..25: "icon not available" and the two empty slots are not offered.
    if (index >= 1 && index <= 17)
        return EventTypeNames[static_cast<std::size_t>(index - 1)];
    if (index >= 18 && index <= 23)
        return EventTypeNames[static_cast<std::size_t>(index + 2)];
    return kUnknownSelector;
}

std::string_view sStatusIcon(std::int16_t index) {
    if (index >= 0 && index <= 7)
        return kStatusSelector[static_cast<std::size_t>(index)];
    return "unknown";
}

std::int16_t iStatusSelector(std::string_view statusText) {
    // "Informational" deliberately maps to 0: a rule set to it matches nothing.
    for (std::int16_t i = 2; i <= 7; ++i)
        if (kStatusSelector[static_cast<std::size_t>(i)] == statusText)
            return i;
    return 0;
}

bool bolFilter1(std::int16_t wanted, std::string_view statusText) {
    return wanted == 0 || wanted == iStatusSelector(statusText);
}

std::string_view EventTypeName(int image) {
    if (image < kFirstEventTypeImage || image > kLastEventTypeImage)
        return {};
    return EventTypeNames[static_cast<std::size_t>(image - kFirstEventTypeImage)];
}

std::string_view EventTypeKey(int image) {
    if (image < kFirstEventTypeImage || image > kLastEventTypeImage)
        return {};
    return EventTypeKeys[static_cast<std::size_t>(image - kFirstEventTypeImage)];
}

int EventTypeImageOfKey(std::string_view key) {
    for (std::size_t i = 0; i < EventTypeKeys.size(); ++i)
        if (!EventTypeKeys[i].empty() && EventTypeKeys[i] == key)
            return static_cast<int>(i) + kFirstEventTypeImage;
    return -1;
}

} // namespace twk
