#pragma once
// Builds small server logs for the tests, line by line, with CR LF line ends: SYS$LOG.ERR
// entries and realistic CONSOLE.LOG, ABEND.LOG and CRONLOG files.

#include <QByteArray>

#include <initializer_list>

namespace twk::test {

/// Lines joined with CR LF, each ended by one.
inline QByteArray lines(std::initializer_list<const char*> texts) {
    QByteArray out;
    for (const char* t : texts)
        out += QByteArray(t) + "\r\n";
    return out;
}

/// One SYS$LOG.ERR entry: header, code line, message lines, closing empty line.
inline QByteArray englishEntry(const char* header, const char* code,
                               std::initializer_list<const char*> message) {
    return lines({header, code}) + lines(message) + "\r\n";
}

/// A console session of a NetWare server: a date line, NLM loads and unloads, a
/// warning and an error. Each call adds one session.
inline QByteArray consoleSession(const char* server, const char* date) {
    const QByteArray prompt = QByteArray(server) + ":";
    return QByteArray(date) + " 10:02:41 am:    SERVER-5.70-1534 [nmID=B0013]\r\n" +
           "     Volume SYS mounted.\r\n" + prompt + "load monitor\r\n" +
           lines({"Loading module MONITOR.NLM", "  NetWare Console Monitor",
                  "  Version 12.02.02  March 7, 2005"}) +
           prompt + "unload monitor\r\n" +
           lines({"Module MONITOR.NLM unloaded.", "WARNING: cache memory is low",
                  "Error loading module BADMOD.NLM"});
}

/// One abend report: a line of stars, the "halted" line, the abend line, registers,
/// the running process, additional information and the loaded modules.
inline QByteArray abendReport(const char* server, const char* when, int number) {
    return QByteArray(79, '*') + "\r\nServer " + server + " halted " + when + "\r\nAbend " +
           QByteArray::number(number) +
           " on P00: Server-5.70.05: Page Fault Processor Exception (Error code 00000000)\r\n" +
           lines({"",
                  "Registers:", "   CS = 0008 DS = 0010 ES = 0010 FS = 0010 GS = 0010 SS = 0010",
                  "Running process: Server 05 Process", "Stack pointer: 8DB2D9B0",
                  "Additional Information:",
                  "    The CPU encountered a problem executing code in BADMOD.NLM.",
                  "Loaded Modules:", "  BADMOD.NLM      Bad Module 1.0",
                  "  CPQSHD.CDM      Compaq SCSI Hard Drive", ""});
}

/// A CRONLOG with one line of each status and a line with "error" but no status word.
inline QByteArray cronSample() {
    return lines({
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

} // namespace twk::test
