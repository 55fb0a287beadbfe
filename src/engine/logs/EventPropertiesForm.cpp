#include "logs/EventPropertiesForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/GridColumns.h"
#include "logs/ViewFilter.h"
#include "logs/Vocabulary.h"
#include "tools/ErrorCodes.h"

namespace twk {

namespace {

bool namesHook(const QString& message) {
    return message.contains(QStringLiteral("file system hook ("), Qt::CaseInsensitive) ||
           message.contains(QStringLiteral("Dateisystems ("), Qt::CaseInsensitive);
}

bool namesErrorCode(const QString& message) {
    return message.contains(QStringLiteral("error #"), Qt::CaseInsensitive) ||
           message.contains(QStringLiteral("error: -"), Qt::CaseInsensitive);
}

struct SourceHelp {
    const char* source;
    QStringList lines;
};

const std::vector<SourceHelp>& sourceHelpTable() {
    static const std::vector<SourceHelp> table = {
        {"Unknown", {"Unable to determine the location.    "}},
        {"Memory",
         {"Problems related to memory. Examples:    ",
          "memory protection or out of memory.      "}},
        {"File System",
         {"Problems related to files. Examples:    ",
          "compression or file I/O (input/output).   "}},
        {"Disk",
         {"Problems related to disk storage devices.", "Examples: disks, tapes, volume dismounts,",
          "removable media, disk hotfix and disk mirroring.    "}},
        {"Network Cards",
         {"Problems related to network cards.    ", "Example: LAN drivers.",
          "Note: not used by NetWare."}},
        {"Protocols",
         {"Problems related to communication", "stacks. Examples: TCP/IP, IPX and SPX.    ",
          "Note: not used by NetWare."}},
        {"Unused", {"Reserved. No entries.    "}},
        {"TTS",
         {"Problems related to transaction tracking.", "Examples: volume dismount, TTS log and    ",
          "TTS memory allocation."}},
        {"Bindery",
         {"Problems related to user accounts and", "logins. Examples: accounts being deleted    ",
          "and logins disabled or enabled."}},
        {"Station",
         {"Problems related to connections and", "remote console. Examples: connections    ",
          "cleared and remote console access."}},
        {"Router",
         {"Problems related to the internal router.    ", "Examples: routing conflicts and invalid",
          "network or internal IPX addresses."}},
        {"Locks",
         {"Problems related to open files and", "open file locks. Example: too many    ",
          "open files."}},
        {"Kernel", {"Problems related to thread allocation    ", "and scheduling."}},
        {"UPS",
         {"Defined but not used by NetWare, can be",
          "used by other NLM's. Service Protocol NCP,    ",
          "IPX packet related issuses. Example: IPX", "incomplete packet."}},
        {"SFT III",
         {"System Fault Toleranz III related", "issuses. Example: MSL (Mirrored Server    ",
          "Link) board etablishing a connection."}},
        {"Resource Tracking",
         {"Problems related to tracking OS resources.    ",
          "Example: memory allocation for NLM's."}},
        {"NLM", {"Only used for command problems    ", "at the server console."}},
        {"OS Information",
         {"Used in many areas throughout the", "Operating System. Example: ABEND    ",
          "recovery."}},
        {"Cache",
         {"Problems related to cache memory.    ", "Examples: cache buffers or out of", "memory."}},
        {"Domain", {"Defined but not used by NetWare.    "}},
    };
    return table;
}

} // namespace

const QStringList& fileSystemHookLines() {
    static const QStringList lines = {
        QStringLiteral("  0x0      0  -  Erase File"),
        QStringLiteral("  0x1      1  -  Open File"),
        QStringLiteral("  0x2      2  -  Create File"),
        QStringLiteral("  0x3      3  -  Create and Open File"),
        QStringLiteral("  0x4      4  -  Rename Entry, Close File"),
        QStringLiteral("  0x5      5  -  Create Directory"),
        QStringLiteral("  0x6      6  -  Delete Directory"),
        QStringLiteral("  0x7      7  -  Modify Directory Entry"),
        QStringLiteral("  0x8      8  -  Salvage File"),
        QStringLiteral("  0x9      9  -  Purge File"),
        QStringLiteral("  0xA    10  -  Rename Name Space Entry"),
        QStringLiteral("  0xB    11  -  Salvage File, Purge File"),
        QStringLiteral("  0xC    12  -  Create a File or Directory"),
        QStringLiteral("  0xD    13  -  Rename a File or Directory"),
        QStringLiteral("  0xE    14  -  Erase a File or Directory"),
        QStringLiteral("  0xF    15  -  Modify DOS Information"),
        QStringLiteral("0x10    16  -  Modify Name Space Specific Information    "),
        QStringLiteral("0x11    17  -  Initialize File Search"),
        QStringLiteral("0x12    18  -  Continue File Search"),
        QStringLiteral("0x13    19  -  Search Set"),
        QStringLiteral("0x14    20  -  Directory Search"),
    };
    return lines;
}

QStringList sourceHelpLines(const QString& source) {
    for (const SourceHelp& h : sourceHelpTable())
        if (source == QLatin1String(h.source))
            return h.lines;
    return {QStringLiteral("Source unknown!     ")};
}

bool messageHasDecoding(const QString& message) {
    return namesHook(message) || namesErrorCode(message);
}

void ShowSourceHelp(Engine& engine, const QString& source) {
    engine.ui.messageBox(sourceHelpLines(source).join(text::kCrLf), MsgIcon::Information,
                         MsgButtons::Ok, QStringLiteral(" Source:  ") + source);
}

void ShowMessageDecoding(Engine& engine, const QString& message) {
    UiPort& ui = engine.ui;
    if (namesHook(message)) {
        ui.messageBox(fileSystemHookLines().join(text::kCrLf), MsgIcon::Information, MsgButtons::Ok,
                      kMessageTitle);
        return;
    }
    if (!namesErrorCode(message))
        return;
    const ErrorCodeTable* table = errorCodeTable(engine.paths);
    if (table == nullptr) {
        ui.messageBox(errorTableMissingText(), MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        return;
    }
    const QString written = errorCodeInMessage(message);
    const std::optional<std::int32_t> code = parseErrorCode(written);
    const QString description =
        code ? NWstrerror(*table, *code)
             : QStringLiteral("The message names no error code that can be read.");
    ui.messageBox(QStringLiteral("Error Code:  ") + written + text::kCrLf +
                      QStringLiteral("Description: ") + description,
                  MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

FrmEventProperties::FrmEventProperties(Engine& engine)
    : EventPropertiesBase(engine, QStringLiteral(" next event "),
                          QStringLiteral(" previous event ")) {}

bool FrmEventProperties::open(int gridRow) {
    const Grid& g = engine_.Grid1;
    if (engine_.view.CurrentView != views::kSysLogErr || g.Cols() < syscol::kMessage ||
        gridRow < 1 || gridRow > g.Rows())
        return false;
    fill(gridRow);
    visible = true;
    return true;
}

void FrmEventProperties::fill(int gridRow) {
    const Grid& g = engine_.Grid1;
    row = gridRow;
    const auto cell = [&](int col) {
        return text::toQString(text::trim(g.CellText(gridRow, col)));
    };
    lbDate.text = cell(syscol::kDate);
    lbTime.text = cell(syscol::kTime);
    lbStatus.text = cell(syscol::kState);
    lbSource.text = cell(syscol::kSource);
    lbCategory.text = cell(syscol::kCategory);
    lbEventNumber.text = cell(syscol::kEvent);
    lbErrorNumber.text = cell(syscol::kErrorNr);
    lbErrorMessage.text = cell(syscol::kMessage);
    picStatus = g.CellIcon(gridRow, syscol::kIcon);
    picErrorType = g.CellIcon(gridRow, syscol::kEventIcon);
    lbErrorDesc.text = text::toQString(EventTypeName(picErrorType));

    lbStatus.isLink = lbStatus.text == QStringLiteral("???");
    if (picStatus > kStatusCount - 1)
        lbStatusDesc.text = text::toQString(kMissingStatusHelp);
    else if (picStatus >= 0)
        lbStatusDesc.text = text::toQString(StatusHelp[static_cast<std::size_t>(picStatus)]);
    else
        lbStatusDesc.text.clear();
    lbErrorDesc.isLink = lbErrorDesc.text == kNoEventType;
    cmdFileHook.enabled = messageHasDecoding(lbErrorMessage.text);
}

void FrmEventProperties::walk(int step) {
    if (!visible)
        return;
    Grid& g = engine_.Grid1;
    MainView& v = engine_.view;
    const int selected = g.SelectedRow();
    const int limit = step > 0 ? g.Rows() : 1;
    if (selected == limit || g.Rows() == 0 || g.Cols() < syscol::kMessage)
        return;
    int next = selected + step;
    if (next < 1 || next > g.Rows() || g.CellIcon(next, syscol::kIcon) < 0)
        return;
    while (next >= 1 && next <= g.Rows() && !g.RowVisible(next))
        next += step;
    if (next < 1 || next > g.Rows())
        return; // no visible row in that direction: nothing moves
    g.setSelectedRow(next);
    if (!viewIsFiltered(v))
        v.pane(EntryPos).text = text::toQString(g.CellText(next, syscol::kEvent)) +
                                QStringLiteral("/") + QString::number(g.Rows());
    fill(next);
    v.changed();
}

void FrmEventProperties::cmdDown_Click() {
    walk(+1);
}
void FrmEventProperties::cmdUp_Click() {
    walk(-1);
}

QString FrmEventProperties::cmdCopy_Click() const {
    const QStringList lines = {
        QStringLiteral(" "),
        QStringLiteral("Event # ") + lbEventNumber.text,
        QStringLiteral(" "),
        QStringLiteral("Date: ") + lbDate.text,
        QStringLiteral("Time: ") + lbTime.text,
        QStringLiteral(" "),
        QStringLiteral("Status: ") + lbStatus.text,
        QStringLiteral(" "),
        lbStatusDesc.text,
        QStringLiteral(" "),
        QStringLiteral("Source:              ") + lbSource.text,
        QStringLiteral("Category:            ") + lbCategory.text,
        QStringLiteral(" "),
        QStringLiteral("Error Number:        ") + lbErrorNumber.text,
        QStringLiteral("Error Description:   ") + copiedEventType(),
        QStringLiteral(" "),
        QStringLiteral("Error Message"),
        QStringLiteral("-------------"),
        lbErrorMessage.text,
        QStringLiteral(" "),
        QStringLiteral(" "),
    };
    return copyText(lines);
}

} // namespace twk
