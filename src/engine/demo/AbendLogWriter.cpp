#include "demo/AbendLogWriter.h"

#include "demo/DemoRandom.h"
#include "demo/DemoTime.h"
#include "demo/SysLogErrFormat.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace twk::demo {

namespace {

struct Culprit {
    const char* module;
    const char* title;
    const char* function;
    const char* exception;
};

constexpr std::array<Culprit, 5> kCulprits{{
    {"NWUTIL.NLM", "NetWare Utility Library", "ProcessRequest",
     "Page Fault Processor Exception (Error code 00000000)"},
    {"CE1000.LAN", "Intel(R) PRO/1000 Server Adapter Driver", "ReceiveISR",
     "General Protection Processor Exception (Error code 00000000)"},
    {"NSS.NLM", "NSS (Novell Storage Services)", "zFlushCache",
     "Invalid Opcode Processor Exception (Error code 00000000)"},
    {"BKUPAGNT.NLM", "Backup Agent for NetWare", "AgentWorker",
     "Page Fault Processor Exception (Error code 00000002)"},
    {"DS.NLM", "eDirectory 8.7.3.5", "SkulkPartition",
     "Deadlock detected in server process (Error code 00000000)"},
}};

struct LoadedModule {
    const char* file;
    const char* title;
    const char* version;
};

constexpr std::array<LoadedModule, 10> kAbendModules{{
    {"SERVER.NLM", "NetWare Server Operating System", "Version 5.70.03  November 14, 2004"},
    {"ACPIDRV.PSM", "ACPI Platform Support Module", "Version 1.05.16  February 9, 2004"},
    {"IDEATA.HAM", "Novell IDE/ATA/ATAPI/SATA Host Adapter Module", "Version 4.34  May 7, 2004"},
    {"IDEHD.CDM", "Novell ATA/IDE Disk Device Driver", "Version 3.40.01  March 3, 2003"},
    {"LONG.NAM", "Long Name Space", "Version 3.21  August 1, 2003"},
    {"CE1000.LAN", "Intel(R) PRO/1000 Server Adapter Driver", "Version 8.15  June 2, 2004"},
    {"NSS.NLM", "NSS (Novell Storage Services)", "Version 3.22.01  October 6, 2004"},
    {"DS.NLM", "eDirectory 8.7.3.5", "Version 10552.79  August 16, 2004"},
    {"NWUTIL.NLM", "NetWare Utility Library", "Version 3.02.05  March 12, 2004"},
    {"BKUPAGNT.NLM", "Backup Agent for NetWare", "Version 2.10  January 20, 2004"},
}};

QString hex8(std::uint32_t v) {
    return QStringLiteral("%1").arg(v, 8, 16, QLatin1Char('0')).toUpper();
}

class AbendLogBuilder {
public:
    explicit AbendLogBuilder(const AbendLogOptions& o)
        : o_(o), german_(o.language == LogLanguage::German), random_(o.seed ^ 0xABE4D0000ull) {}

    QByteArray build() {
        std::vector<QDateTime> times = o_.abends;
        std::sort(times.begin(), times.end());
        int number = 0;
        for (const QDateTime& when : times)
            report(++number, when);
        return bytes_;
    }

private:
    void line(const QString& text) {
        std::string out;
        appendCp850(out, text.toStdString());
        bytes_.append(out.data(), static_cast<qsizetype>(out.size()));
        bytes_.append("\r\n");
    }

    std::uint32_t address() { return 0x8C000000u + (random_.below(0x00FFFFF0u) & ~0xFu); }

    void report(int number, const QDateTime& when) {
        const Culprit& c = kCulprits[random_.below(kCulprits.size())];
        const std::uint32_t eip = address();
        const std::uint32_t stack = 0x8D000000u + (random_.below(0x00FFFFu) & ~0x3u);
        line(QStringLiteral("*********************************************************"));
        line(QString());
        line(o_.osVersion);
        line(QStringLiteral("PVER: ") + o_.osVersion.section(u' ', 2, 2));
        line(QString());
        line(QStringLiteral("Server %1 halted %2")
                 .arg(o_.serverName.toUpper(), abendStamp(when, o_.language)));
        line(QStringLiteral("Abend %1 on P00: Server-%2: %3")
                 .arg(number)
                 .arg(o_.osVersion.section(u' ', 2, 2), QLatin1String(c.exception)));
        line(QString());
        line(QStringLiteral("Registers:"));
        line(QStringLiteral("        CS = 0008 DS = 0010 ES = 0010 FS = 0010 GS = 0010 SS = 0010"));
        line(QStringLiteral("        EAX = %1 EBX = %2 ECX = %3 EDX = %4")
                 .arg(hex8(random_.below(0xFFFFu)), hex8(address()), hex8(random_.below(0x100u)),
                      hex8(random_.below(4))));
        line(QStringLiteral("        ESI = %1 EDI = %2 EBP = %3 ESP = %4")
                 .arg(hex8(stack), hex8(0), hex8(stack + 0x2C), hex8(stack)));
        line(QStringLiteral("        EIP = %1 FLAGS = 00010246").arg(hex8(eip)));
        line(QStringLiteral("        %1 8B4008          MOV     EAX, [EAX+08]=?").arg(hex8(eip)));
        line(QStringLiteral("        EIP in %1 at code start +%2h")
                 .arg(QLatin1String(c.module), hex8(eip & 0xFFFFu)));
        line(QStringLiteral("Access Location: 0x00000008"));
        line(QString());
        line(QStringLiteral("The violation occurred while processing the following instruction:"));
        line(QStringLiteral("%1 8B4008          MOV     EAX, [EAX+08]").arg(hex8(eip)));
        line(QString());
        line(QStringLiteral("Running process: Server %1 Process").arg(random_.between(1, 40)));
        line(QStringLiteral("Thread Owned by NLM: SERVER.NLM"));
        line(QStringLiteral("Stack pointer: %1").arg(hex8(stack)));
        line(QStringLiteral("OS Stack limit: %1").arg(hex8(stack - 0xFE5C)));
        line(QStringLiteral("Scheduling priority: 67371008"));
        line(QStringLiteral("Wait state: 3030070  Waiting for work"));
        line(QStringLiteral("Stack: %1  (%2|%3+%4)")
                 .arg(hex8(eip - 0x1C2), QLatin1String(c.module), QLatin1String(c.function))
                 .arg(random_.between(0x10, 0x3FF), 0, 16));
        line(QStringLiteral("       %1  (SERVER.NLM|WorkerThread+5C)").arg(hex8(address())));
        line(QString());
        line(QStringLiteral("Additional Information:"));
        line(
            german_
                ? QStringLiteral(
                      "    Die CPU hat bei der Ausführung von Code in %1 ein Problem festgestellt.")
                      .arg(QLatin1String(c.module))
                : QStringLiteral("    The CPU encountered a problem executing code in %1.  The "
                                 "problem may be in that module or in data passed to that "
                                 "module by a process owned by SERVER.NLM.")
                      .arg(QLatin1String(c.module)));
        line(QString());
        line(QStringLiteral("Loaded Modules:"));
        for (const LoadedModule& m : kAbendModules) {
            const std::uint32_t code = address();
            line(QStringLiteral("  %1 %2").arg(QString::fromLatin1(m.file).leftJustified(14),
                                               QLatin1String(m.title)));
            line(QStringLiteral("    %1").arg(QLatin1String(m.version)));
            line(QStringLiteral("    Code Address: %1  Length: 0x%2")
                     .arg(hex8(code), hex8(random_.below(0x80000u))));
            line(QStringLiteral("    Data Address: %1  Length: 0x%2")
                     .arg(hex8(address()), hex8(random_.below(0x8000u))));
        }
        line(QString());
    }

    const AbendLogOptions& o_;
    bool german_;
    DemoRandom random_;
    QByteArray bytes_;
};

} // namespace

QByteArray abendLogBytes(const AbendLogOptions& options) {
    return AbendLogBuilder(options).build();
}

} // namespace twk::demo
