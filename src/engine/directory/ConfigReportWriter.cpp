#include "directory/ConfigReportWriter.h"

#include <QLocale>
#include <QStringList>

#include <array>
#include <cstdint>

namespace twk {

namespace {

const QString kFrame = QString(80, u'*');

/// A number that stays the same for a server and a salt (FNV-1a).
std::uint64_t stable(const QString& text, std::uint64_t salt) {
    std::uint64_t h = 1469598103934665603ull ^ salt;
    for (const QChar c : text) {
        h ^= c.unicode();
        h *= 1099511628211ull;
    }
    return h;
}

QString grouped(qint64 number) {
    return QLocale(QLocale::English).toString(number);
}

/// "Name: value".
QString field(const QString& name, const QString& value) {
    return name + QStringLiteral(": ") + value;
}

QString framedLine(const QString& text) {
    const int inner = 78;
    const int left = (inner - static_cast<int>(text.size())) / 2;
    return u'*' + QString(left, u' ') + text.leftJustified(inner - left, u' ') + u'*';
}

QString sectionHead(const QString& title) {
    return QStringLiteral("***** ") + title + QStringLiteral(" *****");
}

QString dottedContext(const ServerEntry& server) {
    QStringList parts;
    for (auto it = server.context.crbegin(); it != server.context.crend(); ++it)
        parts << *it;
    return parts.join(u'.');
}

QString upTime(qint64 seconds) {
    const qint64 days = seconds / 86400;
    return QStringLiteral("%1 Days %2 Hours %3 Minutes %4 Seconds")
        .arg(days)
        .arg((seconds / 3600) % 24)
        .arg((seconds / 60) % 60)
        .arg(seconds % 60);
}

struct Module {
    const char* name;
    const char* version;
    const char* date;
    const char* description;
};

// The modules a NetWare server of these years has loaded, in load order.
constexpr std::array<Module, 26> kModules{{
    {"SERVER.NLM", "5.70.03", "November 14, 2004", "NetWare Server Operating System"},
    {"ACPIDRV.PSM", "1.05.08", "October 27, 2004", "ACPI Platform Support Module"},
    {"IDEATA.HAM", "4.12.00", "August 3, 2004", "Novell IDE/ATA/ATAPI/SATA Host Adapter Module"},
    {"SCSIHD.CDM", "3.03.06", "September 9, 2004", "Novell NetWare SCSI Fixed Disk CDM"},
    {"NSS.NLM", "3.22.03", "November 2, 2004", "NSS (Novell Storage Services)"},
    {"NWPA.NLM", "3.21.02", "September 20, 2004", "NetWare Peripheral Architecture"},
    {"CE1000.LAN", "6.57.00", "May 19, 2004", "Intel(R) PRO/1000 Server Driver"},
    {"ETHERTSM.NLM", "3.90.00", "March 18, 2004", "Novell Ethernet Topology Specific Module"},
    {"MSM.NLM", "4.12.00", "March 18, 2004", "Novell Multi-Processor Media Support Module"},
    {"TCPIP.NLM", "6.80.00", "October 5, 2004", "Novell TCP/IP Stack - Transport module"},
    {"IPXS.NLM", "5.75.00", "June 9, 2004", "NetWare STREAMS IPX Protocol"},
    {"SLP.NLM", "2.01.05", "February 26, 2004", "Service Location Protocol"},
    {"TIMESYNC.NLM", "6.61.01", "October 14, 2003", "NetWare Time Synchronization Services"},
    {"DS.NLM", "10552.79", "October 28, 2004", "Novell eDirectory Version 8.7.3.5 SMP"},
    {"DSLOADER.NLM", "10552.79", "October 28, 2004", "Directory Services Loader"},
    {"NLDAP.NLM", "10552.79", "October 28, 2004", "LDAP Agent for Novell eDirectory 8.7.3.5"},
    {"PKI.NLM", "2.23.10", "July 7, 2004", "Novell Certificate Server"},
    {"NICI.NLM", "2.6.4", "May 4, 2004", "NICI Cryptographic Module"},
    {"NDPSM.NLM", "3.01.03", "August 12, 2004", "NDPS Manager"},
    {"MONITOR.NLM", "12.02.02", "March 7, 2005", "NetWare Console Monitor"},
    {"CONLOG.NLM", "3.01.02", "August 8, 2003", "System Console Logger"},
    {"CRON.NLM", "1.14.00", "February 12, 2002", "NetWare Cron Scheduler"},
    {"PORTAL.NLM", "4.03.00", "September 23, 2004", "NetWare Remote Manager"},
    {"APACHE2.NLM", "2.00.52", "October 21, 2004", "Apache Web Server 2.0.52"},
    {"TOMCAT4.NLM", "4.01.30", "September 14, 2004", "Tomcat Servlet Container"},
    {"NTPJ.NLM", "1.08.00", "April 22, 2004", "Network Time Protocol Daemon"},
}};

struct SetParameter {
    const char* category;
    const char* name;
    const char* value;
};

constexpr std::array<SetParameter, 34> kSetParameters{{
    {"Communications", "Maximum Packet Receive Buffers", "10000"},
    {"Communications", "Minimum Packet Receive Buffers", "2000"},
    {"Communications", "Maximum Physical Receive Packet Size", "4224"},
    {"Communications", "New Packet Receive Buffer Wait Time", "0.1 sec"},
    {"Memory", "Average Page In Alert Threshold", "2000"},
    {"Memory", "Garbage Collection Interval", "1 min 0 sec"},
    {"Memory", "Reserved Buffers Below 16 Meg", "300"},
    {"File Caching", "Read Ahead Enabled", "ON"},
    {"File Caching", "Minimum File Cache Buffers", "20"},
    {"File Caching", "Dirty Disk Cache Delay Time", "3.3 sec"},
    {"Directory Caching", "Maximum Directory Cache Buffers", "4000"},
    {"Directory Caching", "Minimum Directory Cache Buffers", "2000"},
    {"Directory Caching", "Directory Cache Allocation Wait Time", "0.5 sec"},
    {"File System", "Immediate Purge Of Deleted Files", "OFF"},
    {"File System", "Minimum File Delete Wait Time", "1 min 5.9 sec"},
    {"File System", "Maximum Extended Attributes Per File Or Path", "16"},
    {"Locks", "Maximum Record Locks Per Connection", "500"},
    {"Locks", "Maximum File Locks Per Connection", "250"},
    {"Transaction Tracking", "Auto TTS Backout Flag", "ON"},
    {"Transaction Tracking", "Maximum Transactions", "10000"},
    {"Disk", "Enable Hardware Write Back", "OFF"},
    {"Disk", "Enable Disk Read After Write Verify", "OFF"},
    {"NCP", "NCP Packet Signature Option", "1"},
    {"NCP", "Maximum Outstanding NCP Searches", "51"},
    {"Miscellaneous", "Maximum Service Processes", "750"},
    {"Miscellaneous", "Allow Unencrypted Passwords", "OFF"},
    {"Miscellaneous", "Console Display Watchdog Logouts", "OFF"},
    {"Error Handling", "Auto Restart After Abend", "1"},
    {"Error Handling", "Auto Restart After Abend Delay Time", "2"},
    {"Directory Services", "NDS Trace To File", "OFF"},
    {"Directory Services", "NDS Inactivity Synchronization Interval", "60"},
    {"Directory Services", "NDS Janitor Interval", "2"},
    {"Service Location Protocol", "SLP DA Discovery Options", "15"},
    {"Licensing Services", "NLS Search Type", "0"},
}};

class Report {
public:
    Report(const ServerEntry& server, const QDateTime& now, ConfigState state)
        : s_(server), now_(now), earlier_(state == ConfigState::BeforeLastMaintenance),
          seed_(stable(server.name.toUpper(), 0)),
          hourSeed_(stable(server.name.toUpper(),
                           static_cast<std::uint64_t>(now.toSecsSinceEpoch() / 600))) {}

    QByteArray text() {
        head();
        serverInformation();
        directoryServices();
        timeSynchronization();
        volumes();
        disks();
        networkBoards();
        loadedModules();
        setParameters();
        startupFiles();
        connections();
        lines_ << QString() << QStringLiteral("***** End of report *****");
        QByteArray out;
        for (const QString& line : lines_) {
            out += line.toLatin1();
            out += "\r\n";
        }
        return out;
    }

private:
    /// A counter that moves with the time of the report.
    qint64 varying(qint64 base, qint64 spread, std::uint64_t salt) const {
        return base + static_cast<qint64>((hourSeed_ ^ (salt * 0x9E3779B97F4A7C15ull)) %
                                          static_cast<std::uint64_t>(spread));
    }
    /// A fact that stays the same for the server.
    qint64 fixed(qint64 base, qint64 spread, std::uint64_t salt) const {
        return base + static_cast<qint64>((seed_ ^ (salt * 0x9E3779B97F4A7C15ull)) %
                                          static_cast<std::uint64_t>(spread));
    }
    void section(const QString& title) { lines_ << QString() << sectionHead(title) << QString(); }

    void head() {
        lines_ << kFrame << framedLine(QString())
               << framedLine(QStringLiteral("Novell Server Configuration Report"))
               << framedLine(QStringLiteral("CONFIG.NLM v2.70 (fconfig16)"))
               << framedLine(QString()) << kFrame << QString()
               << field(QStringLiteral("Report for server"), s_.name.toUpper())
               << field(QStringLiteral("Created"),
                        now_.toString(QStringLiteral("M-d-yyyy  h:mm:ss")))
               << field(QStringLiteral("Options"), QStringLiteral("/all /f"));
    }

    void serverInformation() {
        section(QStringLiteral("Server Information"));
        const qint64 bootAgo = fixed(3 * 86400, 40 * 86400, 1) + (now_.toSecsSinceEpoch() % 86400);
        const qint64 memoryMb = fixed(2, 3, 2) * 1024;
        const qint64 cachePercent = varying(61, 14, 3);
        lines_ << field(QStringLiteral("Server name"), s_.name.toUpper())
               << field(QStringLiteral("OS version"), s_.version)
               << field(QStringLiteral("Server up time"), upTime(bootAgo))
               << field(QStringLiteral("Processors"),
                        QStringLiteral("%1 x Intel(R) Xeon(TM) CPU %2 MHz")
                            .arg(fixed(1, 2, 4) * 2)
                            .arg(fixed(24, 10, 5) * 100))
               << field(QStringLiteral("Total server memory"),
                        grouped(memoryMb * 1024) + QStringLiteral(" KB"))
               << field(QStringLiteral("Cache buffers"),
                        QStringLiteral("%1 % of original").arg(cachePercent))
               << field(QStringLiteral("Dirty cache buffers"), grouped(varying(0, 40, 6)))
               << field(QStringLiteral("Current disk requests"), grouped(varying(0, 12, 7)))
               << field(QStringLiteral("Current service processes"),
                        grouped(varying(earlier_ ? 180 : 240, 90, 8)))
               << field(QStringLiteral("Server address"),
                        s_.address.isEmpty() ? QStringLiteral("(none)") : s_.address)
               << field(QStringLiteral("Internal IPX network"),
                        QStringLiteral("%1")
                            .arg(fixed(0x10000000, 0x0FFFFFFF, 9), 8, 16, QLatin1Char('0'))
                            .toUpper());
    }

    void directoryServices() {
        section(QStringLiteral("Directory Services"));
        lines_ << field(QStringLiteral("Directory tree"), s_.tree)
               << field(QStringLiteral("Server context"), dottedContext(s_))
               << field(QStringLiteral("Bindery context"),
                        s_.context.isEmpty() ? QString()
                                             : QStringLiteral("OU=") + dottedContext(s_))
               << field(QStringLiteral("DS version"),
                        earlier_ ? QStringLiteral("10552.74") : s_.scenario.dsVersion)
               << field(QStringLiteral("Replicas held"), QString::number(s_.replicas.size()));
        for (const ReplicaInfo& r : s_.replicas)
            lines_ << QStringLiteral("  %1  %2  %3")
                          .arg(r.PartitionFullName.leftJustified(28),
                               replicaTypeName(r.ReplicaType).leftJustified(12),
                               replicaStateName(r.ReplicaState));
    }

    void timeSynchronization() {
        section(QStringLiteral("Time Synchronization"));
        const bool single = s_.scenario.timeInSync;
        lines_ << field(QStringLiteral("Timesync type"),
                        single ? QStringLiteral("SINGLE") : QStringLiteral("SECONDARY"))
               << field(QStringLiteral("Time is synchronized"),
                        single ? QStringLiteral("YES") : QStringLiteral("NO"))
               << field(QStringLiteral("Time zone"), QStringLiteral("CET-1CEST"))
               << field(QStringLiteral("Polling interval"), QStringLiteral("600 seconds"))
               << field(QStringLiteral("Time sources"),
                        single ? QStringLiteral("pool.ntp.org:123") : QStringLiteral("(SAP)"));
    }

    void volumes() {
        section(QStringLiteral("Volumes"));
        lines_ << QStringLiteral("Name          Size (MB)    Free (MB)  Block  Name spaces       "
                                 "Compression");
        std::uint64_t salt = 20;
        for (const QString& v : s_.volumes) {
            const qint64 size = fixed(8, 60, ++salt) * 1024;
            const qint64 free = size * varying(25, 50, ++salt) / 100;
            lines_ << QStringLiteral("%1 %2 %3  %4  %5 %6")
                          .arg(v.toUpper().leftJustified(12))
                          .arg(grouped(size), 10)
                          .arg(grouped(free), 12)
                          .arg(QStringLiteral("4 KB"), 5)
                          .arg(QStringLiteral("DOS, LONG, MAC").leftJustified(17))
                          .arg(v.compare(QStringLiteral("SYS"), Qt::CaseInsensitive) == 0
                                   ? QStringLiteral("OFF")
                                   : QStringLiteral("ON"));
        }
    }

    void disks() {
        section(QStringLiteral("Storage Adapters and Disks"));
        lines_ << QStringLiteral("[V358-A0] IDE/ATA/SATA adapter, port 1F0h, interrupt 0Eh")
               << QStringLiteral("  [V358-A0-D0:0] ST3160023AS  size %1 MB")
                      .arg(grouped(fixed(152, 2, 30) * 1024))
               << QStringLiteral("  [V358-A0-D1:0] HL-DT-ST DVD-ROM GDR8164B")
               << QStringLiteral("[V025-A1] Adaptec Ultra320 SCSI, slot 10022")
               << QStringLiteral("  [V025-A1-D0:0] SEAGATE ST373207LC  size %1 MB")
                      .arg(grouped(fixed(70, 2, 31) * 1024));
    }

    void networkBoards() {
        section(QStringLiteral("LAN Boards and Bindings"));
        lines_ << QStringLiteral("Board 1: CE1000_1_EII  Intel(R) PRO/1000  slot 10016  frame "
                                 "ETHERNET_II")
               << QStringLiteral("  Bound protocols: IP %1, ARP")
                      .arg(s_.address.startsWith(QStringLiteral("ipx")) ? QStringLiteral("(none)")
                                                                        : s_.address)
               << QStringLiteral("Board 2: CE1000_1_E82  Intel(R) PRO/1000  slot 10016  frame "
                                 "ETHERNET_802.2")
               << QStringLiteral("  Bound protocols: IPX network %1")
                      .arg(fixed(0x0A000000, 0x00FFFFFF, 32), 8, 16, QLatin1Char('0'))
               << QStringLiteral("Packets sent: %1  received: %2")
                      .arg(grouped(varying(8000000, 4000000, 33)),
                           grouped(varying(9000000, 5000000, 34)));
    }

    void loadedModules() {
        section(QStringLiteral("Loaded Modules"));
        int count = 0;
        for (const Module& m : kModules) {
            const QString name = QString::fromLatin1(m.name);
            if (earlier_ && name == QStringLiteral("NTPJ.NLM"))
                continue; // added at the last maintenance
            QString version = QString::fromLatin1(m.version);
            QString date = QString::fromLatin1(m.date);
            if (name == QStringLiteral("DS.NLM") || name == QStringLiteral("DSLOADER.NLM") ||
                name == QStringLiteral("NLDAP.NLM")) {
                version = earlier_ ? QStringLiteral("10552.74") : s_.scenario.dsVersion;
                if (earlier_)
                    date = QStringLiteral("June 30, 2004");
            }
            lines_ << QStringLiteral("%1 %2 %3 %4")
                          .arg(name.leftJustified(14), version.leftJustified(10),
                               date.leftJustified(20), QString::fromLatin1(m.description));
            ++count;
        }
        lines_ << QString() << field(QStringLiteral("Modules loaded"), QString::number(count));
    }

    void setParameters() {
        section(QStringLiteral("SET Parameters"));
        QString category;
        for (const SetParameter& p : kSetParameters) {
            const QString c = QString::fromLatin1(p.category);
            if (c != category) {
                if (!category.isEmpty())
                    lines_ << QString();
                lines_ << QStringLiteral("%1:").arg(c);
                category = c;
            }
            const QString name = QString::fromLatin1(p.name);
            QString value = QString::fromLatin1(p.value);
            if (earlier_ && name == QStringLiteral("Maximum Service Processes"))
                value = QStringLiteral("500");
            if (earlier_ && name == QStringLiteral("Maximum Directory Cache Buffers"))
                value = QStringLiteral("2000");
            if (name == QStringLiteral("NDS Trace To File"))
                value = QStringLiteral("OFF");
            lines_ << QStringLiteral("  %1 = %2").arg(name, value);
        }
    }

    void startupFiles() {
        section(QStringLiteral("SYS:SYSTEM\\STARTUP.NCF"));
        lines_ << QStringLiteral("SET RESERVED BUFFERS BELOW 16 MEG = 300")
               << QStringLiteral("LOAD ACPIDRV.PSM") << QStringLiteral("LOAD IDEATA.HAM SLOT=10012")
               << QStringLiteral("LOAD SCSIHD.CDM") << QStringLiteral("LOAD NSS");
        section(QStringLiteral("SYS:SYSTEM\\AUTOEXEC.NCF"));
        lines_ << QStringLiteral("SET TIME ZONE = CET-1CEST")
               << QStringLiteral("FILE SERVER NAME %1").arg(s_.name.toUpper())
               << QStringLiteral("LOAD CE1000.LAN SLOT=10016 FRAME=ETHERNET_II NAME=CE1000_1_EII")
               << QStringLiteral("BIND IP CE1000_1_EII ADDR=%1")
                      .arg(s_.address.startsWith(QStringLiteral("ipx")) ? QStringLiteral("0.0.0.0")
                                                                        : s_.address)
               << QStringLiteral("LOAD CONLOG") << QStringLiteral("LOAD CRON");
        if (!earlier_)
            lines_ << QStringLiteral("LOAD NTPJ");
        lines_ << QStringLiteral("MOUNT ALL");
    }

    void connections() {
        section(QStringLiteral("Connections and Licenses"));
        const qint64 licensed = fixed(1, 4, 40) * 50;
        const qint64 used = std::min<qint64>(licensed, varying(5, licensed, 41));
        lines_ << field(QStringLiteral("Licensed connections"), grouped(licensed))
               << field(QStringLiteral("Connections in use"), grouped(used))
               << field(QStringLiteral("Peak connections"),
                        grouped(std::max<qint64>(used, fixed(licensed / 2, licensed / 2, 42))))
               << field(QStringLiteral("Open files"), grouped(varying(20, 400, 43)));
    }

    const ServerEntry& s_;
    QDateTime now_;
    bool earlier_;
    std::uint64_t seed_;
    std::uint64_t hourSeed_;
    QStringList lines_;
};

} // namespace

QByteArray writeConfigReport(const ServerEntry& server, const QDateTime& now, ConfigState state) {
    return Report(server, now, state).text();
}

} // namespace twk
