#pragma once
// The TID finder frmTIDFinder as a model: it opens a support article (TID) of the
// network vendor's knowledge base in the browser by its number, and offers the TIDs
// opened before from a history of up to 30 entries in the settings (TIDs\1 to TIDs\30,
// each "TID-" + number + " " + title; TIDs\LastTID is the entry written last).
//
// The main window's browser watch (Timer2) fills the history: after a page was
// opened it asks the browser a few times for the title of its front page, and stores a
// title that begins with "TID-". Browsers on this platform answer no such question, so
// the watch asks a BrowserPort, whose default answers with the TID page that was
// opened last: the number is kept without a title.

#include "core/ClockPort.h"
#include "core/FormControls.h"
#include "core/MainView.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace twk {

class Engine;
class Registry;

namespace tidText {
inline const QString kCaption = QStringLiteral(" TID-Finder");
inline const QString kSelectTid = QStringLiteral("select TID...");
inline const QString kErrorTitle = QStringLiteral(" TID-Finder Error:");
inline const QString kExtractError =
    QStringLiteral("Tarnwick was      \r\nunable to extract the TID#.");
inline const QString kInvalidTid = QStringLiteral("Invalid TID#     ");
inline const QString kHelpPage = QStringLiteral("_tools/_TID/tidfinder.htm");
inline const QString kSearchPath = QStringLiteral("/cgi-bin/search/searchtid.cgi?/");
inline const QString kDefaultSite = QStringLiteral("https://support.novell.com");
} // namespace tidText

inline constexpr int kTidHistorySize = 30;

/// The knowledge base's site: value "Site" of the key TIDs, else the vendor's.
QString TidSite(const Registry& registry);
/// The page of a TID: the site, the search path, the TID (encoded for an address) and
/// ".htm".
QString TidUrl(const Registry& registry, const QString& tid);
/// The history entries 1 to 30 that are not empty, in that order.
QStringList TidHistory(const Registry& registry);
/// Stores a page title as the next entry of the ring (after LastTID, 30 wraps to 1):
/// only a title that begins with "TID-" and not "TID-$", and not a TID the history
/// holds already. True when it was stored.
bool StoreTidTitle(Registry& registry, const QString& title);

/// What the watch asks of the browser.
class BrowserPort {
public:
    virtual ~BrowserPort() = default;
    /// Name of the default browser.
    virtual QString defaultBrowser() = 0;
    /// Title and address of the page in front; false when none can be told.
    virtual bool frontPage(QString& title, QString& address) = 0;
    /// Told of each TID page the finder opens.
    virtual void opened(const QString& tid, const QString& address) {
        (void)tid;
        (void)address;
    }
};

/// The browser port of this platform: the desktop's browser, which tells nothing of its
/// pages; the front page is taken to be the TID page opened last ("TID-" + number).
class OpenedPageBrowser : public BrowserPort {
public:
    QString defaultBrowser() override;
    bool frontPage(QString& title, QString& address) override;
    void opened(const QString& tid, const QString& address) override;

private:
    QString title_;
    QString address_;
};

/// Timer2 of the main window: asks for the front page every few seconds, stores a TID
/// title, and stops after that or after its 6th tick.
class BrowserWatch {
public:
    static constexpr int kIntervalMs = 5000;
    static constexpr int kMaxTicks = 6;

    BrowserWatch(Engine& engine, BrowserPort& browser);
    ~BrowserWatch();
    BrowserWatch(const BrowserWatch&) = delete;
    BrowserWatch& operator=(const BrowserWatch&) = delete;

    void start();
    void stop();
    bool running() const { return timer_ != 0; }
    void Timer2_Timer();

private:
    Engine& engine_;
    BrowserPort& browser_;
    ClockPort::TimerId timer_ = 0;
    int ticks_ = 0;
};

class FrmTIDFinder {
public:
    /// `watch` is the main window's browser watch; may be null.
    FrmTIDFinder(Engine& engine, BrowserPort& browser, BrowserWatch* watch);

    QString caption = tidText::kCaption;
    ListState cbxTIDHistory;
    LabelState lbTIDCount;
    TextBoxState txbTID;
    ButtonState cmdGo{QStringLiteral("go")};
    ButtonState cmdHelp{QStringLiteral("help")};
    ButtonState cmdClose{QStringLiteral("close")};
    QString focus = QStringLiteral("txbTID");
    /// The request flag of the old browsers ("1" when the default browser is one).
    QString browserRequest;
    /// A help page the window should open (F1, cmdHelp).
    QString helpPageWanted;
    bool closed = false;

    void Form_Load();
    void cbxTIDHistory_Click();
    void cmdGo_Click();
    void cmdHelp_Click() { helpPageWanted = tidText::kHelpPage; }
    void cmdClose_Click() { closed = true; }

private:
    Engine& engine_;
    BrowserPort& browser_;
    BrowserWatch* watch_;
};

} // namespace twk
