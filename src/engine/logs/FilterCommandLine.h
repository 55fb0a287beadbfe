#pragma once
// The criteria of `tarnwick-cli filter`, put into the event filter dialog exactly as a
// user would set them, so that the command line runs the dialog's own checks, messages
// and passes.

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace twk {

class FrmFilterSYSLOG;

/// The words for the eight severity boxes, in pass order: informational, warning,
/// recovered, aborted-nos ("Aborted (NOS not affected)"), aborted, critical, fatal,
/// unknown ("???").
extern const QStringList kSeverityWords;

struct FilterArguments {
    QString file;
    QString format = QStringLiteral("json");
    QStringList hide; ///< severity words to uncheck
    QStringList only; ///< severity words to keep checked, all others unchecked
    std::optional<QString> source;
    std::optional<QString> category;
    std::optional<QString> eventType; ///< a type name of the list or its image key
    std::optional<QString> errorNr;
    std::optional<QString> message;
    std::optional<QDate> from;
    std::optional<QDate> to;
};

/// Reads the arguments after "filter". Returns what is wrong, empty when all is well.
QString parseFilterArguments(const QStringList& args, FilterArguments& out);

/// Sets the controls of a loaded and activated dialog (Form_Load, Form_Activate) as the
/// arguments say, firing the handlers a user's clicks would fire. Returns what is wrong
/// (a name that is not in its list), empty when all is well.
QString applyFilterArguments(const FilterArguments& arguments, FrmFilterSYSLOG& form);

} // namespace twk
