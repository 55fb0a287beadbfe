#include "logs/ConsoleLogFiles.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/Text.h"
#include "directory/Connections.h"
#include "directory/UncPath.h"
#include "logs/LogPipeline.h"

#include <QDir>
#include <QFileInfo>

namespace twk {

namespace {

namespace texts = consoleHistoryText;
namespace column = consoleHistoryColumn;

const QString kConsoleLogFilesTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// A name as the client hands it over: a zero-ended character array.
QString upToFirstZero(const QString& name) {
    const qsizetype zero = name.indexOf(QChar(0));
    return zero < 0 ? name : name.left(zero);
}

ConsoleLogFileRow makeRow(const QString& date, const QString& name, std::int64_t size,
                          const QString& deleted, const QString& deletor) {
    ConsoleLogFileRow row;
    row.cells = QStringList{date, name, QString::number(size), deleted, deletor};
    return row;
}

// The main window made ready for a console log of the server shown: the open view goes,
// the logfile list names the kind, and the volume follows to SYS, where the logs live.
void prepareMainWindow(Engine& engine) {
    MainView& v = engine.view;
    engine.Grid1.clear();
    v.openLogPath.clear();
    v.resetPanes();
    v.caption = MainCaption(engine);
    v.closeCaption = mainText::kCloseLogfile;
    v.closeEnabled = false;
    v.setViewBullets(true);
    const qsizetype item = v.cbLogFile.items.indexOf(views::kConsoleLog);
    if (item >= 0)
        v.cbLogFile.ListIndex = static_cast<int>(item);
    for (int i = 0; i < v.cbVolume.items.size(); ++i) {
        if (v.cbVolume.items[i].left(3) == QStringLiteral("SYS")) {
            v.cbVolume.ListIndex = i;
            break;
        }
    }
    RefreshTooltips(engine);
    v.busyPointer = true;
    v.backgroundImage = false;
    v.changed();
    engine.yieldNow();
}

} // namespace

bool fitsConsoleLogMask(const QString& name) {
    // "*.*" takes every name, with a dot or without: what counts is the "con".
    return name.startsWith(QStringLiteral("con"), Qt::CaseInsensitive);
}

bool isConsoleLogName(const QString& name) {
    return name.startsWith(QStringLiteral("CONSOLE."), Qt::CaseInsensitive);
}

QString ProposedSalvageName(const QString& name, const QString& deletionTime) {
    QString time = deletionTime.right(8);
    time.replace(u':', u'.');
    return name + QStringLiteral(".(Deleted ") + deletionTime.left(10) + QStringLiteral(" - ") +
           time + QStringLiteral("h)");
}

QString consoleHistoryTime(const QDateTime& time) {
    return time.isValid() ? time.toString(kConsoleLogFilesTimeFormat) : QString();
}

bool ShowConsoleLogfile(Engine& engine, const QString& path) {
    bool loaded = false;
    withErrorTail(engine.errors, "frmConsoleLogFiles.ShowLogfile(sPath)", [&] {
        FileAccessPort& files = engine.network->files();
        const QString local = files.localPath(path);
        if (files.accessError(path) != 0 || !QFileInfo(local).isFile()) {
            engine.ui.messageBox(QStringLiteral("Access to logfile...\r    ") + path +
                                     QStringLiteral("\rimpossible!"),
                                 MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
            return;
        }
        prepareMainWindow(engine);
        MainView& v = engine.view;
        loaded = LoadLogFile(engine, views::kConsoleLog, local);
        v.busyPointer = false;
        if (loaded) {
            v.openLogPath = local;
            v.closeEnabled = true;
        }
        v.changed();
        engine.yieldNow();
    });
    return loaded;
}

FrmConsoleLogFiles::FrmConsoleLogFiles(Engine& engine) : engine_(engine) {
    txtbFileName.enabled = false;
    txtbFileName.greyBackground = true;
    cmdShow.enabled = false;
    cmdShow.isDefault = true;
}

FrmConsoleLogFiles::~FrmConsoleLogFiles() {
    Form_Unload();
}

bool FrmConsoleLogFiles::Form_Load() {
    withErrorTail(engine_.errors, "frmConsoleLogFiles.Form_Load()", [&] {
        server_ = twk::text::trimBlanks(engine_.view.cbServer.text());
        basePath_ = sysEtcUnc(server_, QString());
        caption = texts::kCaption + server_;

        // A failed connection has told the user already; there is nothing to list then.
        if (!GetServerConnectionHandle(engine_)) {
            closed = true;
            return;
        }
        connection_ = engine_.directory.ServerConnectionHandle;
        if (engine_.network->salvage().NWAllocTemporaryDirectoryHandle(
                connection_, texts::kSalvageDirectory, dirHandle_) != 0) {
            dirHandle_ = 0;
            engine_.ui.messageBox(texts::kNoDirectoryHandle, MsgIcon::Critical, MsgButtons::Ok,
                                  kMessageTitle);
            closed = true;
            return;
        }
        holdsHandle_ = true;

        listPresentFiles();
        listDeletedFiles();
        int deleted = 0;
        for (const ConsoleLogFileRow& row : FileGrid1)
            deleted += row.deleted() ? 1 : 0;
        lbUndeletedFiles.text = QString::number(static_cast<int>(FileGrid1.size()) - deleted);
        lbDeletedFiles.text = QString::number(deleted);
        if (!FileGrid1.empty())
            FileGrid1_Click(1);
    });
    return !closed;
}

void FrmConsoleLogFiles::listPresentFiles() {
    FileAccessPort& files = engine_.network->files();
    const QString local = files.localPath(basePath_);
    // An empty path would be the working folder: no listing without a real one.
    if (local.isEmpty() || files.accessError(basePath_) != 0)
        return;
    const QDir folder(local);
    for (const QFileInfo& info : folder.entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        if (!fitsConsoleLogMask(info.fileName()))
            continue;
        FileGrid1.push_back(makeRow(consoleHistoryTime(info.lastModified()), info.fileName(),
                                    info.size(), texts::kNotDeleted, QString()));
        engine_.yieldNow();
    }
}

void FrmConsoleLogFiles::listDeletedFiles() {
    SalvageCalls& salvage = engine_.network->salvage();
    std::int32_t iterator = -1;
    DeletedFileInfo entry;
    // A scan that ends with an error ends the list like its regular end.
    while (salvage.NWScanForDeletedFiles(connection_, dirHandle_, iterator, entry) == 0) {
        const QString name = upToFirstZero(entry.name);
        if (fitsConsoleLogMask(name) && isConsoleLogName(name)) {
            ConsoleLogFileRow row =
                makeRow(consoleHistoryTime(entry.modifiedTime), name, entry.size,
                        consoleHistoryTime(entry.deletionTime), entry.deletorName);
            row.iterator = entry.iterator;
            row.deletedName = entry.name;
            FileGrid1.push_back(row);
        }
        entry = DeletedFileInfo();
        engine_.yieldNow();
    }
}

void FrmConsoleLogFiles::FileGrid1_Click(int row) {
    if (row < 1 || row > static_cast<int>(FileGrid1.size()))
        return;
    selectedRow = row;
    const ConsoleLogFileRow& file = FileGrid1[static_cast<std::size_t>(row - 1)];
    cmdShow.enabled = true;
    if (file.cell(column::Deleted) == texts::kNotDeleted) {
        cmdShow.caption = texts::kShowLogfile;
        txtbFileName.text = file.cell(column::Name);
        txtbFileName.enabled = false;
        txtbFileName.greyBackground = true;
    } else {
        cmdShow.caption = texts::kSalvageAndShow;
        txtbFileName.text =
            ProposedSalvageName(file.cell(column::Name), file.cell(column::Deleted));
        txtbFileName.enabled = true;
        txtbFileName.greyBackground = false;
    }
}

void FrmConsoleLogFiles::cmdShow_Click() {
    withErrorTail(engine_.errors, "frmConsoleLogFiles.cmdShow_Click()", [&] {
        if (selectedRow < 1 || selectedRow > static_cast<int>(FileGrid1.size()))
            return;
        const QString name = txtbFileName.text;
        if (cmdShow.caption == texts::kSalvageAndShow) {
            ConsoleLogFileRow& file = FileGrid1[static_cast<std::size_t>(selectedRow - 1)];
            const std::int32_t code = engine_.network->salvage().NWRecoverDeletedFile(
                connection_, dirHandle_, file.iterator, file.deletedName, name);
            if (code != 0) {
                engine_.ui.messageBox(texts::kRecoverFailed + QString::number(code),
                                      MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
                return;
            }
            // The record is a present file now: the row says so, and the counts follow.
            file.cells[column::Name - 1] = name;
            file.cells[column::Deleted - 1] = texts::kNotDeleted;
            file.cells[column::Deletor - 1].clear();
            lbUndeletedFiles.text = QString::number(lbUndeletedFiles.text.toInt() + 1);
            lbDeletedFiles.text = QString::number(lbDeletedFiles.text.toInt() - 1);
            FileGrid1_Click(selectedRow);
        }
        if (ShowLogfile(basePath_ + name))
            closed = true;
    });
}

bool FrmConsoleLogFiles::ShowLogfile(const QString& path) {
    return ShowConsoleLogfile(engine_, path);
}

void FrmConsoleLogFiles::cmdConnectionInfos_Click() {
    ConnectionInfo info;
    info.Server = server_;
    for (const ConnectionInfo& row : engine_.directory.connections) {
        if (connection_ != -1 && row.ConnectionHandle == connection_) {
            info = row;
            break;
        }
    }
    const QStringList lines = {QStringLiteral("Server: ") + info.Server,
                               QStringLiteral("User: ") + info.User,
                               QStringLiteral("ConnectionHandle: ") +
                                   QString::number(info.ConnectionHandle),
                               QStringLiteral("Authentication: ") + info.Authentication,
                               QStringLiteral("Tree: ") + info.Tree,
                               QStringLiteral("Protocol: ") + info.Protocol,
                               QStringLiteral("Address: ") + info.Address};
    engine_.ui.messageBox(lines.join(u'\r'), MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

void FrmConsoleLogFiles::Form_Unload() {
    if (!holdsHandle_)
        return;
    holdsHandle_ = false;
    engine_.network->salvage().NWDeallocateDirectoryHandle(connection_, dirHandle_);
    dirHandle_ = 0;
}

} // namespace twk
