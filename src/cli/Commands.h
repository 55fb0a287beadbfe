#pragma once

#include <QStringList>

namespace twk::cli {

/// Exit codes: 0 done, 1 the work failed (the reason is on standard error), 2 usage.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

int usage(const char* problem);
int runShow(const QStringList& args);

} // namespace twk::cli
