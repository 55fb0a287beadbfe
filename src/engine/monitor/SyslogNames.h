#pragma once
// The syslog facilities and levels by their codes, as the lists of the rule dialog
// and the forwarding test show them. A priority is facility * 8 + level.

#include <array>
#include <string_view>

namespace twk {

inline constexpr std::array<std::string_view, 24> kSyslogFacilities = {"Kernel",
                                                                       "User",
                                                                       "Mail",
                                                                       "Daemon",
                                                                       "Auth",
                                                                       "Syslog",
                                                                       "LPR",
                                                                       "News",
                                                                       "UUCP",
                                                                       "Cron",
                                                                       "System0 - Security",
                                                                       "System1 - FTP",
                                                                       "System2 - NTP",
                                                                       "System3 - Logaudit",
                                                                       "System4 - Logalert",
                                                                       "System5 - Clock",
                                                                       "Local0",
                                                                       "Local1",
                                                                       "Local2",
                                                                       "Local3",
                                                                       "Local4",
                                                                       "Local5",
                                                                       "Local6",
                                                                       "Local7"};

inline constexpr std::array<std::string_view, 8> kSyslogLevels = {
    "Emergency", "Alert", "Critical", "Error", "Warning", "Notice", "Information", "Debug"};

} // namespace twk
