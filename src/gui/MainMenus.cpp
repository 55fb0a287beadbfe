#include "gui/MainMenus.h"

#include "core/MainView.h"
#include "gui/ImageList.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

namespace twk::gui {

namespace {

struct Entry {
    const char* name; ///< "-" for a separator; a separator with a name can be hidden
    const char* caption;
    const char* shortcut;
};

struct Menu {
    const char* name;
    const char* caption;
    std::initializer_list<Entry> entries;
};

// Menus and their entries in order.
const Menu kMenus[] = {
    {"mnuFile",
     "&File",
     {{"mnuOpen", "&open logfile...", "Ctrl+O"},
      {"mnuSave", "&save logfile...", "Ctrl+S"},
      {"mnuReload", "&reload logfile", ""},
      {"mnuCloseFile", "&close logfile", ""},
      {"-", "", ""},
      {"mnuLogin", "&login...", ""},
      {"-", "", ""},
      {"mnuExit", "e&xit", ""}}},
    {"mnuTools",
     "&Tools",
     {{"mnuErrCode", "NetWare &error codes...", ""},
      {"mnuTID", "&TID finder...", ""},
      {"mnuRC", "&remote console...", ""},
      {"-", "", ""},
      {"mnuConfigReport", "server &configuration report...", ""},
      {"mnuHealthCheck", "NDS &health check...", ""},
      {"-", "", ""},
      {"mnuRTM", "Realtime Event &Monitor", ""}}},
    {"mnuSearch",
     "&Search",
     {{"mnuFilter", "&filter events...", "Ctrl+F"},
      {"mnuFind", "f&ind...", "Ctrl+I"},
      {"mnuGoto", "&go to...", "Ctrl+G"},
      {"mnuAnalyzer", "console log &analyzer...", ""}}},
    {"mnuView",
     "&View",
     {{"mnuViewAll", "&all events", ""}, {"mnuViewFilter", "&filtered events", ""}}},
    {"mnuWeb",
     "&Web",
     {{"mnuWebSupportKnowledgebase", "support &knowledgebase", ""},
      {"mnuWebSupportForums", "support &forums", ""},
      {"mnuWebSupportPatches", "minimum &patch list", ""}}},
    {"mnuOptions",
     "&Options",
     {{"mnuRCOptions", "&remote console...", ""},
      {"mnuRTMOptions", "realtime &monitor...", ""},
      {"mnuRTMFilterRules", "realtime &filter rules...", ""},
      {"mnuHealthCheckOptions", "&health check...", ""}}},
    {"mnuInfo",
     "&?",
     {{"mnuHelp", "&help", ""},
      {"mnuLOES", "&Linux server survey...", ""},
      {"mnuTipOfTheDay", "&tip of the day...", ""},
      {"mnuNetworkTroubleshooting", "&network troubleshooting", ""},
      {"-", "", ""},
      {"mnuHomepage", "Tarnwick &homepage", ""},
      {"mnuEMail", "&e-mail to the authors", ""},
      {"mnuUpdateCheck", "&update check...", ""},
      {"mnuTrennlinie6", "", ""},
      {"mnuStatusIcons", "&status icons...", ""},
      {"mnuEventIcons", "e&vent icons...", ""},
      {"-", "", ""},
      {"mnuAbout", "&about Tarnwick...", ""}}},
};

bool isSeparator(const Entry& e) {
    return std::string_view(e.name) == "-" || std::string_view(e.name).starts_with("mnuTrennlinie");
}

} // namespace

MainMenus::MainMenus(QMainWindow& window, const ImageList& images,
                     std::function<void(const QString&)> command)
    : QObject(&window), images_(images) {
    QMenuBar* bar = window.menuBar();
    for (const Menu& m : kMenus) {
        QMenu* menu = bar->addMenu(QString::fromUtf8(m.caption));
        menu->setObjectName(QString::fromLatin1(m.name));
        menus_.insert(menu->objectName(), menu);
        for (const Entry& e : m.entries) {
            const QString name = QString::fromLatin1(e.name);
            if (isSeparator(e)) {
                QAction* separator = menu->addSeparator();
                if (name != QStringLiteral("-")) {
                    separator->setObjectName(name);
                    actions_.insert(name, separator);
                }
                continue;
            }
            QAction* action = menu->addAction(QString::fromUtf8(e.caption));
            action->setObjectName(name);
            action->setIconVisibleInMenu(true);
            if (*e.shortcut)
                action->setShortcut(QKeySequence(QString::fromLatin1(e.shortcut)));
            connect(action, &QAction::triggered, this, [command, name] { command(name); });
            actions_.insert(name, action);
        }
    }
}

void MainMenus::refresh(const MainView& view) {
    for (auto it = actions_.constBegin(); it != actions_.constEnd(); ++it) {
        const QString& name = it.key();
        QAction* action = it.value();
        const auto found = view.menus().find(name);
        if (found == view.menus().end())
            continue;
        const MenuState& state = found->second;
        if (action->isEnabled() != state.enabled)
            action->setEnabled(state.enabled);
        if (action->isVisible() != state.visible)
            action->setVisible(state.visible);
        if (!state.caption.isEmpty() && action->text() != state.caption)
            action->setText(state.caption);
        if (iconKeys_.value(name) != state.icon) {
            iconKeys_.insert(name, state.icon);
            action->setIcon(state.icon.isEmpty() ? QIcon() : images_.icon(state.icon));
        }
    }
}

} // namespace twk::gui
