#pragma once
// Judging a server by the log DSREPAIR leaves in SYS:SYSTEM (steps 1, 2, 4, 5). The
// evaluators look for a few literal words and pass or fail on them; that looseness is
// their behaviour and is kept. They read the English form of the log only.
//
// A log that can't be opened, and the few texts the rules can't take apart, throw a
// RunTimeError; the caller's error tail captures it and the step counts as failed.

#include <QDateTime>
#include <QString>

#include <string_view>

namespace twk {

class UiPort;

/// Step 1: every server of the tree runs one DS version.
bool bDSVersion(const QString& sFile);
/// Step 2: every server's time is in sync. A log without the table passes.
bool bTimeSync(const QString& sFile);

/// Step 4: every replica line is at most `limitSeconds` older than `ReplicaCheckTime`.
/// Invalid dates show their message on `ui` and fail.
bool bReplicaSync(const QString& sFile, std::int64_t limitSeconds,
                  const QDateTime& ReplicaCheckTime, UiPort& ui);
/// "DE" or "US": the date style of the log's banner date (the last "start:" line).
QString ReplicaTimeZone(const QString& sFile);
/// The date and time at the end of a replica line, "yyyy-MM-dd" + " " + the time; empty
/// when there is no date or a part is out of range (with its message on `ui`, when given).
QString sReplicaStamp(std::string_view sReportZeile, const QString& sTimeZone, UiPort* ui);
/// The time a stamp of sReplicaStamp stands for; throws "Type mismatch" for a time it
/// can't read.
QDateTime ReplicaStampTime(const QString& stamp);

/// Step 5: the check of external references reports no error and no obituary.
bool bExtReferences(const QString& sFile);
/// Copies the file line by line with every LF inside a line turned into CR LF, by way
/// of sFile + ".tmp".
void ReplaceLineFeed(const QString& sFile);

namespace repairText {
inline const QString kInvalidDay =
    QStringLiteral("Function sReplicaStamp:\r\nInvalid DAY specification!     ");
inline const QString kInvalidMonth =
    QStringLiteral("Function sReplicaStamp:\r\nInvalid MONTH specification!     ");
inline const QString kInvalidYear =
    QStringLiteral("Function sReplicaStamp:\r\nInvalid YEAR specification!     ");
} // namespace repairText

} // namespace twk
