#pragma once
// The open dialog of saved logfiles, frmOpenFile, as a model: it shows the facts of the
// file's header first; its open button runs the one reader of saved logfiles.

#include "logs/SavedLogfile.h"

#include <QString>

#include <memory>

namespace twk {

class Engine;

/// The labels and pictures of frmOpenFile.
struct OpenFileFacts {
    QString lbLogfile; ///< the kind, upper case
    QString lbServer;
    QString lbRecords;
    QString lbFirstEntry;
    QString lbLastEntry;
    QString lbFileSize;
    QString lbLogFilePath;
    QString firstEntryCaption; ///< "first entry", or "first abend" for an ABEND.LOG
    QString lastEntryCaption;
    QString imgFirstEntry; ///< image key of the first entry's picture
    QString imgLastEntry;
};

class OpenFileDialogModel {
public:
    OpenFileDialogModel(Engine& engine, QString path);

    OpenFileFacts facts;
    /// ProgressBar1, 0 to 100.
    int ProgressBar1 = 0;
    bool closed = false;

    /// Reads the file into the grid and closes the dialog.
    SavedLoadResult cmdOpen_Click();
    void cmdCancel_Click() { closed = true; }

private:
    Engine& engine_;
    QString path_;
};

/// Mainfrm.OpenFile: reads the header of `path` and prepares frmOpenFile with its facts.
std::unique_ptr<OpenFileDialogModel> OpenFile(Engine& engine, const QString& path);

} // namespace twk
