#pragma once
// The head of twk.ini: a banner that marks the file's layout version ("TreeContext v2"),
// an explanation of start contexts for the user who edits the file by hand, and the
// [TreeContext] section. A file that has the banner needs no migration.

#include <QString>
#include <QStringList>

namespace twk {

/// Marker of the current layout; any line holding it means the file is up to date.
inline const QString kTreeContextV2Marker = QStringLiteral("TreeContext v2");
inline const QString kTreeContextSection = QStringLiteral("[TreeContext]");
inline const QString kTreeContextKey = QStringLiteral("TreeContext");

/// Banner and explanation, up to (not including) the [TreeContext] section line.
/// The explanation holds no section header and no line starting "TreeContext=", so the
/// line reads of the file never mistake it for data.
QStringList twkIniBanner();

/// The banner, "[TreeContext]" and "TreeContext=" + `treeContext`.
QStringList twkIniHead(const QString& treeContext = {});

} // namespace twk
