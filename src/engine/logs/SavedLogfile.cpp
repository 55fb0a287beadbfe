#include "logs/SavedLogfile.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/OemText.h"
#include "core/Startup.h"
#include "core/Text.h"
#include "logs/AbendLog.h"
#include "logs/ConsoleLog.h"
#include "logs/Cronlog.h"
#include "logs/GridViews.h"
#include "logs/LineReader.h"
#include "logs/LogPipeline.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdint>

namespace twk {

namespace {

constexpr int kHeaderLines = 6;

// Windows-1252 code points of the bytes 0x80 to 0x9F; the others equal Latin-1.
constexpr std::array<std::uint16_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool isValidUtf8(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c < 0x80) {
            ++i;
            continue;
        }
        std::size_t length = 0;
        std::uint32_t min = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            length = 2;
            min = 0x80;
        } else if (c >= 0xE0 && c <= 0xEF) {
            length = 3;
            min = 0x800;
        } else if (c >= 0xF0 && c <= 0xF4) {
            length = 4;
            min = 0x10000;
        } else {
            return false;
        }
        if (i + length > s.size())
            return false;
        std::uint32_t cp = c & (0x7F >> length);
        for (std::size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(s[i + k]);
            if ((next & 0xC0) != 0x80)
                return false;
            cp = (cp << 6) | (next & 0x3F);
        }
        if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        i += length;
    }
    return true;
}

QString lineText(std::string_view line) {
    std::string buffer;
    const std::string_view t = SavedLineText(line, buffer);
    return QString::fromUtf8(t.data(), static_cast<qsizetype>(t.size()));
}

// An icon line: the grid's image index + 1 as the file keeps it.
int iconOfLine(std::string_view line) {
    const std::int64_t stored = text::numericReading(line);
    return stored < 1 || stored > 128 ? kNoIcon : static_cast<int>(stored - 1);
}

// The monitor question and, on the command line's road, the question about the open
// log. False when the user keeps what is shown.
bool mayReplaceView(Engine& engine, const SavedLogfileRoad& road) {
    MainView& v = engine.view;
    if (v.CurrentView == views::kRealtimeMonitor) {
        if (engine.ui.messageBox(QStringLiteral("Exit Realtime Event Monitor?     "),
                                 MsgIcon::Question, MsgButtons::YesNo,
                                 kMessageTitle) != MsgResult::Yes)
            return false;
        if (engine.hooks.stopMonitor)
            engine.hooks.stopMonitor();
    } else if (road.fromCommandLine && logViewIsOpen(engine)) {
        if (engine.ui.messageBox(QStringLiteral("Close Logfile now?     "), MsgIcon::Question,
                                 MsgButtons::YesNo, kMessageTitle) != MsgResult::Yes)
            return false;
    }
    return true;
}

// Writes the lines of one group into its row.
class GroupFiller {
public:
    GroupFiller(Engine& engine, const QString& kind) : engine_(engine), grid_(engine.Grid1) {
        if (kind == views::kSysLogErr)
            kind_ = Kind::SysLog;
        else if (kind == views::kConsoleLog)
            kind_ = Kind::Console;
        else if (kind == views::kCronlog)
            kind_ = Kind::Cron;
        else
            kind_ = Kind::Abend;
    }

    void fill(int row, int lineOfGroup, std::string_view raw) {
        const std::string_view line = SavedLineText(raw, buffer_);
        switch (kind_) {
        case Kind::SysLog:
            if (lineOfGroup == 0 || lineOfGroup == 7)
                grid_.setCellIcon(row, lineOfGroup + 1, iconOfLine(line));
            else
                grid_.setCellText(row, lineOfGroup + 1, line);
            break;
        case Kind::Console:
            grid_.setCellText(row, lineOfGroup + 1, line);
            // The navigator's lists come back by the same tests as in a load of the log.
            if (lineOfGroup == 1)
                MarkConsoleRow(engine_, row, line);
            break;
        case Kind::Cron:
            if (lineOfGroup == 0) {
                const int icon = iconOfLine(line);
                grid_.setCellIcon(row, 1, icon);
                if (icon == kCronActionFailed)
                    ++engine_.analysis.cronErrors;
            } else {
                grid_.setCellText(row, lineOfGroup + 1, line);
                if (lineOfGroup == 2)
                    MarkCronRow(grid_, row, line);
            }
            break;
        case Kind::Abend:
            grid_.setCellText(row, 2, line);
            AddAbendLine(engine_, row, line);
            break;
        }
    }

private:
    enum class Kind { SysLog, Console, Cron, Abend };
    Engine& engine_;
    Grid& grid_;
    Kind kind_;
    std::string buffer_;
};

// Reads the groups behind the header into the grid; the rows of the header are made
// first, and rows the header did not count are added. Returns the rows written.
int readGroups(Engine& engine, const QString& path, const QString& kind,
               const SavedLogfileRoad& road) {
    Grid& grid = engine.Grid1;
    const int groupLines = SavedGroupLines(kind);
    LineReader reader(path);
    const std::uint64_t length = reader.length();
    reader.skip(kHeaderLines);
    GroupFiller filler(engine, kind);
    const int headerRows = grid.Rows();
    int row = 0;
    std::string_view line;
    while (row < INT32_MAX && !reader.atEnd()) {
        ++row;
        if (row > grid.Rows())
            grid.setRows(static_cast<int>(std::min<std::int64_t>(
                INT32_MAX, std::max<std::int64_t>(row, std::int64_t{grid.Rows()} * 2))));
        for (int i = 0; i < groupLines; ++i) {
            if (!reader.next(line))
                break;
            filler.fill(row, i, line);
        }
        if (road.progress && length > 0)
            road.progress(static_cast<int>(reader.position() * 100 / length));
        engine.yieldIfDue();
    }
    if (row > headerRows)
        grid.setRows(row);
    return row;
}

// The header's row count, kept within what the file can hold (a group needs at least
// one byte per line), so that a damaged count cannot ask for more rows than that.
int rowsOfHeader(const QString& text, std::uint64_t fileLength, int groupLines) {
    const std::int64_t stated = text::numericReading(text.toStdString());
    const auto possible =
        static_cast<std::int64_t>(fileLength / static_cast<std::uint64_t>(groupLines)) + 1;
    return static_cast<int>(std::clamp<std::int64_t>(std::min(stated, possible), 0, INT32_MAX));
}

} // namespace

int SavedGroupLines(const QString& kind) {
    if (kind == views::kSysLogErr)
        return 10;
    if (kind == views::kConsoleLog)
        return 2;
    if (kind == views::kCronlog)
        return 3;
    if (kind == views::kAbendLog)
        return 1;
    return 0;
}

std::string_view SavedLineText(std::string_view line, std::string& buffer) {
    if (isValidUtf8(line))
        return line;
    buffer.clear();
    buffer.reserve(line.size() * 2);
    for (const char ch : line) {
        const auto c = static_cast<unsigned char>(ch);
        appendUtf8(buffer, c >= 0x80 && c <= 0x9F ? kCp1252High[c - 0x80] : c);
    }
    return buffer;
}

SavedLogfileHeader ReadSavedLogfileHeader(const QString& path) {
    SavedLogfileHeader header;
    LineReader reader(path);
    std::string_view line;
    QString* const fields[kHeaderLines] = {&header.kind,       &header.server,    &header.rows,
                                           &header.firstEntry, &header.lastEntry, &header.fileSize};
    for (QString* field : fields) {
        if (!reader.next(line))
            break;
        *field = lineText(line);
    }
    return header;
}

bool hasSavedLogfileExtension(const QString& path) {
    return path.endsWith(QStringLiteral(".twk"), Qt::CaseInsensitive);
}

SavedLoadResult LoadSavedLogfile(Engine& engine, const QString& path,
                                 const SavedLogfileRoad& road) {
    SavedLoadResult result = SavedLoadResult::NotReadable;
    withErrorTail(engine.errors, "modSavedLogfile.LoadSavedLogfile(sPath)", [&] {
        MainView& v = engine.view;
        Grid& grid = engine.Grid1;
        if (!fileReadable(path)) {
            ShowLogfileNotAccessible(engine, path);
            return;
        }
        const SavedLogfileHeader header = ReadSavedLogfileHeader(path);
        const QString kind = header.kind;
        const int groupLines = SavedGroupLines(kind);
        if (groupLines == 0) {
            result = SavedLoadResult::UnknownKind;
            return;
        }
        if (!mayReplaceView(engine, road)) {
            result = SavedLoadResult::Declined;
            return;
        }

        CloseFile(engine);
        CreateNewTable(engine, kind);
        QString caption =
            QStringLiteral(" TWK     LOGFILE:   ") + QFileInfo(path).absoluteFilePath().toLower();
        if (engine.DebugMode)
            caption += QStringLiteral(" [DEBUG MODE=ON]");
        v.caption = caption;

        engine.analysis.resetConsole();
        engine.analysis.resetAbends();
        engine.analysis.cronErrors = 0;
        grid.setRows(rowsOfHeader(header.rows, fileLength(path), groupLines));
        grid.setRedraw(false);
        readGroups(engine, path, kind, road);

        if (kind == views::kSysLogErr) {
            grid.setSelectedRow(grid.Rows() > 0 ? 1 : 0);
            grid.setRedraw(true);
            v.CurrentView = kind;
            v.setMenusLogOpen(kind);
            v.closeEnabled = true;
            v.pane(EntryPos).text = QStringLiteral("1/") + QString::number(grid.Rows());
        } else if (kind == views::kConsoleLog) {
            FinishConsoleLog(engine);
        } else if (kind == views::kCronlog) {
            FinishCronlog(engine);
        } else {
            FinishAbendLog(engine, false, false);
        }
        if (kind != views::kAbendLog) {
            v.pane(LastEntry).text = header.lastEntry;
            v.pane(FirstEntry).text = header.firstEntry;
        }
        v.pane(FileSize).text = header.fileSize;

        for (int i = 1; i < v.cbVolume.items.size(); ++i) {
            if (v.cbVolume.items[i].left(3) == QStringLiteral("SYS")) {
                v.cbVolume.ListIndex = i;
                break;
            }
        }
        // No live tree stands behind a saved view.
        v.cbTree.resetTo(QStringLiteral("TREE"));
        v.cbServer.resetTo(header.server);
        v.backgroundImage = false;
        RefreshTooltips(engine);
        v.changed();
        result = SavedLoadResult::Loaded;
    });
    return result;
}

void InstallSavedLogfileHook(Engine& engine) {
    engine.hooks.LoadSavedLogfile = [&engine](const QString& path) {
        SavedLogfileRoad road;
        road.fromCommandLine = true;
        LoadSavedLogfile(engine, path, road);
    };
}

} // namespace twk
