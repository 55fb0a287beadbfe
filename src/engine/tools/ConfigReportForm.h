#pragma once
// The server configuration reports frmConfigReport as a model. CONFIG.NLM, loaded on a
// server, writes the server's whole configuration into SYS:SYSTEM as a text file; the
// dialog runs it under the next free name "config-twkN.txt", waits (with the animated
// bar) until the module has released the file, lists the text files of SYS:SYSTEM,
// deletes them on request, and hands one or two reports to the report viewer.
//
// FileGrid1 has five columns: 1 an icon, 2 the lower-cased file name, 3 the creation
// time and a blank, 4 the time of the last change and a blank, 5 the size with thousands
// grouped. Times read "yyyy-MM-dd hh:mm:ss".

#include "core/ClockPort.h"
#include "core/FormControls.h"
#include "core/MainView.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace twk {

class Engine;

namespace configReportText {
inline const QString kCaption = QStringLiteral(" Server Configuration Reports");
inline const QString kWaitMode = QStringLiteral("CONFIGREPORT");
inline const QString kReportPrefix = QStringLiteral("config-twk");
inline const QString kNoConfigNlm2 =
    QStringLiteral("is not available in the SYS:SYSTEM directory of the server!");
inline const QString kNoConfigNlm3 =
    QStringLiteral("Please download this free utility from the Novell download site");
inline const QString kNoConfigNlm4 =
    QStringLiteral("and copy it into the SYSTEM directory (search for fconfig16.zip).       ");
inline const QString kViewerMissing =
    QStringLiteral("ConfigViewer.exe is not available!\r\nPlease re-install Tarnwick.   ");
inline const QString kDeleteQuestion1 =
    QStringLiteral("Shall the Server Configuration Report...       ");
inline const QString kDeleteQuestion2 = QStringLiteral("be deleted?");
inline const QStringList kColumnHeaders = {QString(), QStringLiteral("file name"),
                                           QStringLiteral("created"), QStringLiteral("modified"),
                                           QStringLiteral("size")};
/// Image keys of column 1: a report of this program, any other text file.
inline const QString kReportIcon = QStringLiteral("CONFIGREPORT");
inline const QString kTextFileIcon = QStringLiteral("imgFile");
} // namespace configReportText

/// The critical message when CONFIG.NLM is not on the server.
QString NoConfigNlmText(const QString& server);
/// The exclamation message when the module may not be loaded.
QString NoConfigRightsText(const QString& server);

/// Columns of FileGrid1 (1-based).
namespace configReportColumn {
inline constexpr int Icon = 1;
inline constexpr int Name = 2;
inline constexpr int Created = 3;
inline constexpr int Modified = 4;
inline constexpr int Size = 5;
} // namespace configReportColumn

struct ConfigFileRow {
    QStringList cells; ///< columns 1 to 5; column 1 holds the image key
    QString fileName;  ///< as the server spells it
    QString cell(int column) const { return cells.value(column - 1); }
};

/// A creation time as the list shows it: `created` when known (in UTC for a file of
/// zero length, which comes without the time correction), else `modified` and " *";
/// then a blank.
QString configFileCreated(const QDateTime& created, const QDateTime& modified, qint64 size);

/// Mouse buttons of FileGrid1_MouseUp.
enum class MouseButton { Left, Right };

class FrmConfigReport {
public:
    explicit FrmConfigReport(Engine& engine);
    ~FrmConfigReport();
    FrmConfigReport(const FrmConfigReport&) = delete;
    FrmConfigReport& operator=(const FrmConfigReport&) = delete;

    QString caption = configReportText::kCaption;
    ListState cbServer;
    ButtonState cmdCreateReport{QStringLiteral("create new report")};
    std::vector<ConfigFileRow> FileGrid1;
    TextBoxState txtbSelectedReport;
    LabelState lbSelectedReport{QStringLiteral("selected report:"), {}};
    LabelState lbSetAs{QStringLiteral("set as:"), {}};
    ButtonState cmdSetAsReport1{QStringLiteral("report 1")};
    ButtonState cmdSetAsReport2{QStringLiteral("report 2")};
    TextBoxState txtbReport1;
    TextBoxState txtbReport2;
    LabelState lbConfigViewerReport1{QStringLiteral("report 1:"), {}};
    LabelState lbConfigViewerReport2{QStringLiteral("report 2:"), {}};
    ButtonState cmdResetReport1{QStringLiteral("reset")};
    ButtonState cmdResetReport2{QStringLiteral("reset")};
    ButtonState cmdOpenConfigViewer{QStringLiteral("open viewer")};
    ButtonState cmdExit{QStringLiteral("exit")};

    /// The animated bar: shown while the module runs and while the list is read.
    bool ucWaitBarVisible = false;
    /// Left edge of the bar inside picWaitBar, in units of kWaitBarScaleWidth.
    int waitBarLeft = 0;
    static constexpr int kWaitBarScaleWidth = 300;
    static constexpr int kWaitBarWidth = 60;
    static constexpr int kWaitBarStep = 6;
    static constexpr int kWaitBarIntervalMs = 40;

    /// The control that has the focus ("FileGrid1", "ucWaitBar", "cmdExit", ...).
    QString focus;
    bool closed = false;

    /// The full UNC path of the report being created.
    QString ConfigReportFile;
    /// The wait mode word ("CONFIGREPORT" while a report is created).
    QString WaitMode;
    /// The countdown of ConfigTimer, a decimal text.
    QString ConfigTimerTag;
    bool configTimerEnabled() const { return configTimer_ != 0; }
    bool waitBarTimerEnabled() const { return waitBarTimer_ != 0; }

    /// Called whenever the controls changed during a wait, so the window redraws.
    std::function<void()> changed;

    void Form_Load();
    void cbServer_Click();
    /// While the bar is shown the focus goes to it: the server can't change then.
    void cbServer_GotFocus();
    void cmdCreateReport_Click();
    void ConfigTimer_Timer();
    void WaitBarTimer_Timer();
    /// A click in the list; `row` is 1-based, 0 for none.
    void FileGrid1_MouseUp(MouseButton button, int row);
    void cmdSetAsReport1_Click();
    void cmdSetAsReport2_Click();
    void cmdResetReport1_Click();
    void cmdResetReport2_Click();
    void cmdOpenConfigViewer_Click();
    void cmdExit_Click() { closed = true; }

    /// "config-twkN.txt" for the first N from 1 to 1000 that the server lacks; empty
    /// when all 1000 exist.
    QString fnReportName(const QString& server) const;
    /// True while the module holds ConfigReportFile (or it cannot be read).
    bool bConfigReportLocked() const;
    /// Fills FileGrid1 with the *.txt files of the server's SYS:SYSTEM.
    void GetConfigFiles();
    void WaitBarVisible(bool status);

    /// The server as chosen: the trimmed text of cbServer.
    QString server() const { return cbServer.text().trimmed(); }
    /// Counts the fillings of FileGrid1: a window redraws the list when it changes.
    int listingNumber() const { return listing_; }

private:
    void notify() {
        if (changed)
            changed();
    }
    void stopTimer(ClockPort::TimerId& id);
    void reloadWithBar();
    void updateViewerButtons();

    Engine& engine_;
    ClockPort::TimerId configTimer_ = 0;
    ClockPort::TimerId waitBarTimer_ = 0;
    int listing_ = 0;
};

/// Starts the report viewer with one or two reports, as the dialog does; false (after
/// the message) when the viewer is not installed.
bool StartConfigViewer(Engine& engine, const QString& report1, const QString& report2);

/// mnuConfigReport: the viewer without reports, when it is installed.
void mnuConfigReport_Click(Engine& engine);

} // namespace twk
