#include "logs/OpenFileDialog.h"

#include "core/Engine.h"

namespace twk {

OpenFileDialogModel::OpenFileDialogModel(Engine& engine, QString path)
    : engine_(engine), path_(std::move(path)) {
    const SavedLogfileHeader header = ReadSavedLogfileHeader(path_);
    facts.lbLogfile = header.kind.toUpper();
    facts.lbServer = header.server;
    facts.lbRecords = header.rows;
    facts.lbFirstEntry = header.firstEntry;
    facts.lbLastEntry = header.lastEntry;
    facts.lbFileSize = header.fileSize;
    facts.lbLogFilePath = path_;
    const bool abend = header.kind == views::kAbendLog;
    facts.firstEntryCaption = abend ? QStringLiteral("first abend") : QStringLiteral("first entry");
    facts.lastEntryCaption = abend ? QStringLiteral("last abend") : QStringLiteral("last entry");
    // SYS$LOG.ERR is kept newest first, so its pictures are the other way round.
    const bool newestFirst = header.kind == views::kSysLogErr;
    facts.imgFirstEntry = newestFirst ? QStringLiteral("imgLast") : QStringLiteral("imgFirst");
    facts.imgLastEntry = newestFirst ? QStringLiteral("imgFirst") : QStringLiteral("imgLast");
}

SavedLoadResult OpenFileDialogModel::cmdOpen_Click() {
    SavedLogfileRoad road;
    road.progress = [this](int percent) {
        ProgressBar1 = percent;
    };
    const SavedLoadResult result = LoadSavedLogfile(engine_, path_, road);
    closed = true;
    return result;
}

std::unique_ptr<OpenFileDialogModel> OpenFile(Engine& engine, const QString& path) {
    return std::make_unique<OpenFileDialogModel>(engine, path);
}

} // namespace twk
