#pragma once
// The main window: the cascade of tree, server, volume and logfile with their pictures
// and the close control, the grid, the status bar and the menus. It draws the engine's
// view state (MainView) and hands every choice, click and key to the engine.

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <vector>

class QComboBox;
class QPushButton;

namespace twk {
class Engine;
struct ListState;
} // namespace twk

namespace twk::gui {

class CommandGroup;
class GridView;
class ImageList;
class LogDialogs;
class MainMenus;
class PictureLabel;
class StatusPanes;

class Mainfrm : public QMainWindow {
    Q_OBJECT
public:
    Mainfrm(Engine& engine, const ImageList& images, QWidget* parent = nullptr);
    ~Mainfrm() override;

    /// Draws the view state; called whenever the engine says something changed.
    void refresh();

    /// Runs a menu command by the entry's name.
    void command(const QString& name);
    /// A subsystem's dialogs: they are offered every menu command before the window's own.
    /// The window owns the group.
    void addCommandGroup(CommandGroup* group);
    /// The command group of that type, nullptr when none was added.
    template <class Group> Group* commandGroup() const {
        for (const auto& group : commandGroups_)
            if (auto* found = dynamic_cast<Group*>(group.get()))
                return found;
        return nullptr;
    }
    void showTipOfTheDay();
    void showTreeNotFound();

    GridView* Grid1() const { return grid_; }
    StatusPanes* StatusBar1() const { return panes_; }
    MainMenus& menus() const { return *menus_; }
    /// The dialogs of log analysis (filter, find, go to, properties, saved logfiles...).
    LogDialogs& logDialogs() const { return *logDialogs_; }
    QComboBox* cbTree() const { return cbTree_; }
    QComboBox* cbServer() const { return cbServer_; }
    QComboBox* cbVolume() const { return cbVolume_; }
    QComboBox* cbLogFile() const { return cbLogFile_; }
    QComboBox* cbAbendLog() const { return cbAbendLog_; }
    QPushButton* cmdCloseLogfile() const { return cmdCloseLogfile_; }
    PictureLabel* picture(const QString& name) const;

    /// True once the window was closed (Form_Unload ran).
    bool unloaded() const { return unloaded_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void Form_Unload();
    QWidget* buildCascade();
    void syncList(QComboBox* combo, const ListState& list, bool serverIcons);
    void updateClock();

    Engine& engine_;
    const ImageList& images_;
    GridView* grid_;
    StatusPanes* panes_;
    MainMenus* menus_;
    LogDialogs* logDialogs_;
    std::vector<std::unique_ptr<CommandGroup>> commandGroups_;
    QComboBox* cbTree_;
    QComboBox* cbServer_;
    QComboBox* cbVolume_;
    QComboBox* cbLogFile_;
    QComboBox* cbAbendLog_;
    QPushButton* cmdCloseLogfile_;
    PictureLabel* picTree_;
    PictureLabel* picServer_;
    PictureLabel* picVolume_;
    PictureLabel* picLogfile_;
    PictureLabel* picCloseLogfile_;
    QTimer clock_;
    bool busyCursor_ = false;
    bool unloaded_ = false;
};

} // namespace twk::gui
