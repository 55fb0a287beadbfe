#include "logs/IconHelpPages.h"

#include "logs/Vocabulary.h"

namespace twk {

namespace {

// Severity images of the grid: the number in the log is the image index.
constexpr int kInformational = 0, kWarning = 1, kRecovered = 2, kCritical = 3, kFatal = 4,
              kAborted = 5, kAbortedNosNotAffected = 6;

IconHelpRow eventRow(int image, const char* name) {
    return {image, QString::fromUtf8(name), QString()};
}

} // namespace

const std::vector<IconHelpPage>& StatusIconPages() {
    static const std::vector<IconHelpPage> pages = {
        {
            {kInformational, QStringLiteral("Informational"),
             QStringLiteral("You don't have to worry about entries with informational status. "
                            "Such entries are records of noncritical events.")},
            {kWarning, QStringLiteral("Warning"),
             QStringLiteral(" Warning messages indicate potential problems or             "
                            "errors that won't cause damage.")},
            {kRecovered, QStringLiteral("Recovered"),
             QStringLiteral("These entries indicate that a minor error has occurred but NetWare "
                            "was able to correct it.")},
            {kAbortedNosNotAffected, QStringLiteral("Operation Aborted (NOS not affected)"),
             QStringLiteral("You 'll see this error if an operation can't complete, but NetWare "
                            "will continue to operate.")},
        },
        {
            {kAborted, QStringLiteral("Operation Aborted"),
             QStringLiteral("This error occurs if an operation can't complete such as a volume "
                            "running out of disk space.")},
            {kCritical, QStringLiteral("Critical"),
             QStringLiteral("Critical errors can't be fixed by NetWare but the server still "
                            "continues to work.")},
            {kFatal, QStringLiteral("Fatal"),
             QStringLiteral("A fatal error means resources are low and the server could shutdown "
                            "or a shutdown has already occured.")},
            {kImageUnknownStatus, QStringLiteral("Icon not available"),
             QStringLiteral("Sometimes a logfile entry does not contain all event informations. "
                            "A missing status information will be replaced by an \"?\"-icon.")},
        },
    };
    return pages;
}

const std::vector<IconHelpPage>& EventIconPages() {
    static const std::vector<IconHelpPage> pages = {
        {
            eventRow(18, "login is disabled"),
            eventRow(19, "intruder lock-out on account..."),
            eventRow(11, "local database is open"),
            eventRow(12, "local database has been closed"),
            eventRow(22, "Novell Licensing Services Event"),
            eventRow(23, "auditing event"),
            eventRow(20, "device deactivated"),
            eventRow(21, "Transaction Tracking System shutdown"),
            eventRow(kImageNoEventType, "icon not available"),
        },
        {
            eventRow(7, "established communication with server..."),
            eventRow(8, "lost communication with server..."),
            eventRow(9, "time synchronization has been established"),
            eventRow(10, "time synchronization has been lost"),
            eventRow(15, "remote console connection granted"),
            eventRow(16, "remote console connection cleared"),
            eventRow(17, "remote console connection refused"),
            eventRow(13, "new NCP Service Address registered"),
            eventRow(14, "NCP Service Address has been deregistered"),
        },
        {
            // These names begin in lower case, unlike the event type table.
            eventRow(27, "bindery open request"),
            eventRow(28, "bindery close request"),
            eventRow(29, "system time changed"),
            eventRow(30, "synthetic time on partition..."),
            eventRow(31, "policy manager event"),
            eventRow(32, "router configuration error"),
        },
    };
    return pages;
}

QString IconHelpModel::pageText() const {
    return QStringLiteral("page ") + QString::number(page_ + 1) + QStringLiteral("/") +
           QString::number(pageCount());
}

} // namespace twk
