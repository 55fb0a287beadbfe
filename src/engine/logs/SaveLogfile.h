#pragma once
// Writing a view as a saved logfile (*.twk), and the save command of the main window.

#include <QDate>
#include <QString>

#include <functional>

namespace twk {

class Engine;

inline const QString kSaveDialogTitle = QStringLiteral(" Save logfile...");
inline const QString kSaveDefaultExtension = QStringLiteral("twk");
inline const QString kSaveDialogFilter =
    QStringLiteral("All Files (*.*)|*.*|Tarnwick Files (*.twk)|*.twk");
inline const QString kOpenDialogTitle = QStringLiteral(" open logfile...");
inline const QString kOpenDialogFilter = QStringLiteral("*.twk");

/// The file name the save command proposes, in the program's folder: kind, server,
/// first and last entry ("/" taken out of the dates); a console log has `today` in
/// place of the two entries.
QString ProposedSaveName(const Engine& engine, const QDate& today);

/// Writes the open log view to `path`: all rows, hidden ones too. False when no log
/// view is open or the file could not be written (the failure is captured).
bool SaveLogfile(Engine& engine, const QString& path);

/// What the save dialog is opened with.
struct SaveDialogRequest {
    QString title;
    QString defaultExtension;
    QString filter;
    QString proposedPath;
};

/// mnuSave_Click: `askPath` shows the dialog and returns the chosen path, or an empty
/// one when the user cancels. True when the view was saved.
bool mnuSave_Click(Engine& engine, const std::function<QString(const SaveDialogRequest&)>& askPath,
                   const QDate& today = QDate::currentDate());

} // namespace twk
