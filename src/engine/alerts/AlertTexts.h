#pragma once
// What an alert says: the event of a monitor row read back from its cells, the two alert
// texts (popup and mail), the state word of a LED and the description of an event image.

#include <QString>

namespace twk {

class Grid;

/// The event of one monitor row as the alerts read it: every text trimmed of blanks.
struct MonitorRowEvent {
    int ledImage = -1;   ///< column 1
    QString server;      ///< column 2
    QString date;        ///< column 3
    QString status;      ///< column 4
    QString source;      ///< column 5
    QString category;    ///< column 6
    int eventImage = -1; ///< column 7
    QString errorNumber; ///< column 8
    QString message;     ///< column 9
};

/// Reads a row of the monitor grid; a row or column the grid lacks reads empty.
MonitorRowEvent ReadMonitorRow(const Grid& grid, int row);

/// The word of a LED image: "ONLINE", "WARNING", "FAILURE", "Monitoring not available",
/// "OFFLINE", "UNKNOWN"; "???" for any other image.
QString RealtimeStateWord(int ledImage);

/// The description of an event image (image less 7 indexes the event type names):
/// "icon not available" for the default image 24, empty for 25, 26 and any image
/// outside 7 to 32.
QString EventTypeDescription(int eventImage);

/// The two texts built for every match. Both have the same body with CR LF line ends;
/// the popup's head line is padded and its rule line longer.
struct AlertTexts {
    QString PopupText;
    QString MailText;
};
AlertTexts BuildAlertTexts(const MonitorRowEvent& event);

} // namespace twk
