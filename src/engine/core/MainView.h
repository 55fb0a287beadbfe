#pragma once
// What the main window shows, kept in the engine so that every rule about it can be
// tested without a display: caption, the seven status panes, menu states, the
// close control and the word that says what the grid shows.

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <map>

namespace twk {

/// Views of the grid (the values of CurrentView).
namespace views {
inline const QString kNone = QString();
inline const QString kSysLogErr = QStringLiteral("SYS$LOG.ERR");
inline const QString kConsoleLog = QStringLiteral("CONSOLE.LOG");
inline const QString kCronlog = QStringLiteral("CRONLOG");
inline const QString kAbendLog = QStringLiteral("ABEND.LOG");
inline const QString kRealtimeMonitor = QStringLiteral("RealtimeMonitor");
inline const QString kFilterRules = QStringLiteral("FilterRules");
inline const QString kHealthCheck3 = QStringLiteral("HEALTHCHECK3");
} // namespace views

struct StatusPane {
    QString key;
    QString text;
    QString icon; ///< image key
    QString toolTip;
};

/// The progress bar a filter run places into pane 5 (ProgressBar1).
struct PaneProgressBar {
    bool visible = false;
    long long Max = 0;
    long long Value = 0;
};

struct MenuState {
    bool enabled = true;
    bool visible = true;
    QString icon;
    QString caption;
};

/// A list with an edit field (cbTree, cbServer, ...): its items and the selected one.
struct ListState {
    QStringList items;
    int ListIndex = -1; ///< selected item, -1 for none
    bool enabled = true;
    bool visible = true;
    /// Image index of each item, where the list shows images (cbServer: 29..32).
    QList<int> icons;
    /// The selected item's text, empty when none is selected.
    QString text() const {
        return ListIndex >= 0 && ListIndex < items.size() ? items[ListIndex] : QString();
    }
    /// Only the placeholder item, selected.
    void resetTo(const QString& placeholder) {
        items = QStringList{placeholder};
        icons.clear();
        ListIndex = 0;
    }
};

/// Pane numbers (1-based, as the status bar counts them).
enum Pane {
    EntryPos = 1,
    LastEntry = 2,
    FirstEntry = 3,
    FileSize = 4,
    Tips = 5,
    SystemDate = 6,
    SystemTime = 7
};

class MainView {
public:
    MainView();

    QString CurrentView;
    QString caption = QStringLiteral(" Tarnwick");
    bool debugSuffix = false;

    StatusPane& pane(int number) { return panes_[static_cast<std::size_t>(number - 1)]; }
    const StatusPane& pane(int number) const {
        return panes_[static_cast<std::size_t>(number - 1)];
    }
    bool simpleMode = false;
    QString simpleText;
    /// Shows `text` in the status bar as one pane; an empty text brings the panes back.
    void showSimpleText(const QString& text) {
        simpleMode = !text.isEmpty();
        simpleText = text;
    }

    MenuState& menu(const QString& name) { return menus_[name]; }
    const std::map<QString, MenuState>& menus() const { return menus_; }
    bool menuEnabled(const QString& name) const;
    bool menuVisible(const QString& name) const;

    // The cascade of the main window: tree, server, volume, logfile, and the hidden
    // list of the abends of an open ABEND.LOG.
    ListState cbTree;
    ListState cbServer;
    ListState cbVolume;
    ListState cbLogFile;
    ListState cbAbendLog;
    /// Disables tree, server and volume list while a view must keep its server (an
    /// ABEND.LOG), remembering how they were; releaseCascade() gives that back.
    void holdCascade();
    void releaseCascade();
    // Tool tips of the pictures beside the lists and of the close picture.
    QString picTreeToolTip;
    QString picServerToolTip;
    QString picVolumeToolTip;
    QString picLogfileToolTip;
    QString picCloseLogfileToolTip;

    QString closeCaption = QStringLiteral("close logfile");
    bool closeEnabled = false;

    /// The file the open view was loaded from (a local path), empty when none.
    QString openLogPath;
    /// The wait pointer over the window while a load or scan runs.
    bool busyPointer = false;
    /// The empty grid shows the program's background image.
    bool backgroundImage = true;
    /// Shown over pane 5 while a filter runs.
    PaneProgressBar ProgressBar1;

    /// Panes 1 to 4 to their placeholders, pane 5 empty with the no-language flag,
    /// pane 1 back to the file icon, tool tips of a log view.
    void resetPanes();
    /// Menu states with nothing open.
    void setMenusNothingOpen();
    /// Menu states at the end of a load of `kind`.
    void setMenusLogOpen(const QString& kind);
    /// The bullets of the two view menu entries.
    void setViewBullets(bool allSelected);

    /// Called whenever the engine changed something the window shows.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged)
            onChanged();
    }

private:
    std::array<StatusPane, 7> panes_;
    bool cascadeHeld_ = false;
    std::array<bool, 3> cascadeEnabled_{};
    std::map<QString, MenuState> menus_;
};

} // namespace twk
