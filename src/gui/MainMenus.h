#pragma once
// The menu bar of the main window: every entry by its name, with the picture, state and
// caption the view state gives it.

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

class QAction;
class QMainWindow;
class QMenu;

namespace twk {
class MainView;
}

namespace twk::gui {

class ImageList;

class MainMenus : public QObject {
    Q_OBJECT
public:
    /// Builds the menus into `window`; `command` is called with an entry's name.
    MainMenus(QMainWindow& window, const ImageList& images,
              std::function<void(const QString& name)> command);

    /// Enabled, visible, picture and caption of every entry as the view state says.
    void refresh(const MainView& view);

    QAction* action(const QString& name) const { return actions_.value(name); }
    QMenu* menu(const QString& name) const { return menus_.value(name); }
    QStringList names() const { return actions_.keys(); }

private:
    const ImageList& images_;
    QHash<QString, QAction*> actions_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, QString> iconKeys_;
};

} // namespace twk::gui
