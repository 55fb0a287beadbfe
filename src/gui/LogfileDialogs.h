#pragma once
// The common file dialogs of saved logfiles: " open logfile..." for *.twk files, and
// " Save logfile..." with the proposed name, the default extension and the two filters.

#include "logs/SaveLogfile.h"

#include <QString>

class QWidget;

namespace twk::gui {

/// A filter list written "Name|pattern|Name|pattern" as Qt writes it: "Name;;Name". A
/// name that lacks its pattern in brackets gets it added.
QString qtFileFilter(const QString& pipeFilter);

/// Asks for a saved logfile to open, starting in `folder`; empty when cancelled.
QString askOpenLogfilePath(QWidget* parent, const QString& folder);

/// Asks where to save the view; empty when cancelled.
QString askSaveLogfilePath(QWidget* parent, const SaveDialogRequest& request);

} // namespace twk::gui
