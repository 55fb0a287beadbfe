#pragma once
// Writes the abend log of a demo server (SYS:SYSTEM\ABEND.LOG): one report for every
// abnormal end, oldest first. A report names the server and the time it halted, the
// exception, the processor's registers, the instruction, the running process, the
// additional information and the loaded modules, as NetWare writes them. Lines end in
// CR LF; German text is written in code page 850. The same options give the same bytes.

#include "logs/EventTypeRecognizer.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <vector>

namespace twk::demo {

struct AbendLogOptions {
    LogLanguage language = LogLanguage::English;
    std::uint64_t seed = 1;
    QString serverName = QStringLiteral("FS1");
    QString osVersion = QStringLiteral("Novell NetWare 5.70.03  November 14, 2004");
    std::vector<QDateTime> abends; ///< when the server halted, in any order
};

QByteArray abendLogBytes(const AbendLogOptions& options);

} // namespace twk::demo
