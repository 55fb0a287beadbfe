#pragma once
// Builds realistic CONSOLE.LOG, ABEND.LOG and CRONLOG files for the tests, and a test
// fixture that loads them as the window does.

#include "TestSupport.h"
#include "core/Engine.h"
#include "logs/LogPipeline.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace twk::test {

/// Lines joined with CR LF, each ended by one.
inline QByteArray crlfLines(std::initializer_list<const char*> texts) {
    QByteArray out;
    for (const char* t : texts) {
        out += t;
        out += "\r\n";
    }
    return out;
}

/// A console session of a NetWare server: a date line, NLM loads and unloads, a
/// warning and an error. Each call adds one session.
inline QByteArray consoleSession(const char* server, const char* date) {
    QByteArray out;
    out += QByteArray(date) + " 10:02:41 am:    SERVER-5.70-1534 [nmID=B0013]\r\n";
    out += "     Volume SYS mounted.\r\n";
    out += QByteArray(server) + ":load monitor\r\n";
    out += "Loading module MONITOR.NLM\r\n";
    out += "  NetWare Console Monitor\r\n";
    out += "  Version 12.02.02  March 7, 2005\r\n";
    out += QByteArray(server) + ":unload monitor\r\n";
    out += "Module MONITOR.NLM unloaded.\r\n";
    out += "WARNING: cache memory is low\r\n";
    out += "Error loading module BADMOD.NLM\r\n";
    return out;
}

/// One abend report: a line of stars, the "halted" line, the abend line, registers,
/// the running process, additional information and the loaded modules.
inline QByteArray abendReport(const char* server, const char* when, int number) {
    QByteArray out;
    out += "*******************************************************************************\r\n";
    out += QByteArray("Server ") + server + " halted " + when + "\r\n";
    out += QByteArray("Abend ") + QByteArray::number(number) +
           " on P00: Server-5.70.05: Page Fault Processor Exception (Error code 00000000)\r\n";
    out += "\r\n";
    out += "Registers:\r\n";
    out += "   CS = 0008 DS = 0010 ES = 0010 FS = 0010 GS = 0010 SS = 0010\r\n";
    out += "Running process: Server 05 Process\r\n";
    out += "Stack pointer: 8DB2D9B0\r\n";
    out += "Additional Information:\r\n";
    out += "    The CPU encountered a problem executing code in BADMOD.NLM.\r\n";
    out += "Loaded Modules:\r\n";
    out += "  BADMOD.NLM      Bad Module 1.0\r\n";
    out += "  CPQSHD.CDM      Compaq SCSI Hard Drive\r\n";
    out += "\r\n";
    return out;
}

/// A CRONLOG with one line of each status and a line with "error" but no status word.
inline QByteArray cronSample() {
    return crlfLines({
        "Cron service started.",                            // 36
        "Cronlog size set to 64 KB",                        // 33
        "11-15-2005 02:00:00 Executing: load dsrepair -rc", // 34, date line
        "Job failed: sys:system\\backup.ncf",               // 35
        "Can't access crontab file sys:etc\\crontab",       // 35
        "error in line 3 of crontab",                       // 34
        " Invalid entry skipped",                           // 35
        "Cron shutdown complete",                           // 37
    });
}

/// An engine on a throw-away folder tree, with helpers to load a file of a kind.
class LineLogFixture : public ::testing::Test {
protected:
    TempTree tree;
    FakeUi ui;
    RecordingProgress progress;
    Engine engine{tree.paths(), ui, progress};

    QString write(const QString& name, const QByteArray& bytes) { return tree.write(name, bytes); }
    bool load(const QString& kind, const QByteArray& bytes) {
        return LoadLogFile(engine, kind, write(kind, bytes));
    }
    QString pane(int n) const { return engine.view.pane(n).text; }
    std::string cell(int row, int col) const {
        return std::string(engine.Grid1.CellText(row, col));
    }
    std::uint32_t colour(int row, int col) const { return engine.Grid1.CellForeColor(row, col); }
    bool bold(int row, int col) const { return engine.Grid1.CellFontBold(row, col); }
    bool menuEnabled(const char* name) const {
        return engine.view.menuEnabled(QString::fromLatin1(name));
    }
    bool menuVisible(const char* name) const {
        return engine.view.menuVisible(QString::fromLatin1(name));
    }
    /// The rows of one console list, in list order.
    std::vector<int> listRows(int kind) const {
        std::vector<int> rows;
        const auto& list = engine.analysis.consoleEvents[static_cast<std::size_t>(kind)];
        for (std::size_t i = 1; i < list.size(); ++i)
            rows.push_back(list[i].row);
        return rows;
    }
};

} // namespace twk::test
