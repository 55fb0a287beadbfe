#include "gui/LogfileDialogs.h"

#include <QFileDialog>
#include <QStringList>

namespace twk::gui {

QString qtFileFilter(const QString& pipeFilter) {
    const QStringList parts = pipeFilter.split(QLatin1Char('|'));
    if (parts.size() < 2)
        return pipeFilter;
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        const QString patterns = QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' '));
        if (!name.contains(QLatin1Char('(')))
            name += QStringLiteral(" (") + patterns + QStringLiteral(")");
        filters << name;
    }
    return filters.join(QStringLiteral(";;"));
}

QString askOpenLogfilePath(QWidget* parent, const QString& folder) {
    return QFileDialog::getOpenFileName(parent, kOpenDialogTitle, folder, kOpenDialogFilter);
}

QString askSaveLogfilePath(QWidget* parent, const SaveDialogRequest& request) {
    QFileDialog dialog(parent, request.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(request.defaultExtension);
    const QStringList filters = qtFileFilter(request.filter).split(QStringLiteral(";;"));
    dialog.setNameFilters(filters);
    // The program's own files are what the dialog is for.
    if (filters.size() > 1)
        dialog.selectNameFilter(filters.last());
    dialog.selectFile(request.proposedPath);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().front();
}

} // namespace twk::gui
