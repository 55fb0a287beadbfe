#include "gui/Mainfrm.h"

#include "core/Engine.h"
#include "core/MainKeys.h"
#include "core/Mainfrm.h"
#include "core/PictureClicks.h"
#include "core/WindowPlace.h"
#include "gui/CommandGroup.h"
#include "gui/GridView.h"
#include "gui/HealthCheckDialogs.h"
#include "gui/ImageList.h"
#include "gui/LogDialogs.h"
#include "gui/MonitorDialogs.h"
#include "gui/MainMenus.h"
#include "gui/PictureLabel.h"
#include "gui/StatusPanes.h"
#include "gui/ToolDialogs.h"
#include "gui/frmTipOfTheDay.h"
#include "gui/frmTreeNotFound.h"
#include "logs/ViewFilter.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTime>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr int kClockMs = 15000;

// Web links of the support menu.
const std::pair<const char*, const char*> kWebLinks[] = {
    {"mnuWebSupportKnowledgebase", "https://support.novell.com/"},
    {"mnuWebSupportForums", "https://forums.novell.com/"},
    {"mnuWebSupportPatches", "https://support.novell.com/patches.html"},
};

QComboBox* makeList(const char* name, int width, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setMinimumWidth(width);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMaxVisibleItems(20);
    return combo;
}

PictureLabel* makePicture(const char* name, const QPixmap& picture, QWidget* parent) {
    auto* label = new PictureLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setPixmap(picture);
    label->setFixedSize(24, 24);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

// A framed cell of the cascade: the caption above, picture and list below.
QFrame* cascadeCell(const QString& caption, const char* captionName, QWidget* picture,
                    QWidget* list, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFrameShadow(QFrame::Sunken);
    auto* label = new QLabel(caption, frame);
    label->setObjectName(QString::fromLatin1(captionName));
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    label->setFont(font);
    label->setStyleSheet(QStringLiteral("color: #5b626c;"));
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(6, 3, 6, 5);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(1);
    grid->addWidget(label, 0, 1);
    grid->addWidget(picture, 1, 0);
    grid->addWidget(list, 1, 1);
    grid->setColumnStretch(1, 1);
    return frame;
}

} // namespace

Mainfrm::Mainfrm(Engine& engine, const ImageList& images, QWidget* parent)
    : QMainWindow(parent), engine_(engine), images_(images) {
    setObjectName(QStringLiteral("Mainfrm"));
    setWindowIcon(images.icon(QStringLiteral("tarnwick")));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(buildCascade());
    grid_ = new GridView(engine, images, central);
    layout->addWidget(grid_, 1);
    setCentralWidget(central);

    panes_ = new StatusPanes(engine, images, this);
    statusBar()->addWidget(panes_, 1);
    statusBar()->setSizeGripEnabled(true);

    menus_ = new MainMenus(*this, images, [this](const QString& name) { command(name); });
    logDialogs_ = new LogDialogs(engine, images, this);
    addCommandGroup(new HealthCheckDialogs(engine, images, this));
    addCommandGroup(new ToolDialogs(engine, images, this));
    addCommandGroup(new MonitorDialogs(engine, images, this));

    auto shortcut = [this](const QKeySequence& keys, MainKey key, KeyModifiers modifiers) {
        auto* s = new QShortcut(keys, this);
        s->setContext(Qt::WindowShortcut);
        connect(s, &QShortcut::activated, this,
                [this, key, modifiers] { Form_KeyDown(engine_, key, modifiers); });
    };
    shortcut(QKeySequence(Qt::Key_F1), MainKey::F1, {});
    shortcut(QKeySequence(Qt::Key_F9), MainKey::F9, {});
    shortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_D), MainKey::D, {false, true, true});

    engine.view.onChanged = [this] {
        refresh();
    };
    connect(&clock_, &QTimer::timeout, this, &Mainfrm::updateClock);
    clock_.start(kClockMs);
    Form_Load();
}

Mainfrm::~Mainfrm() {
    engine_.view.onChanged = nullptr;
}

QWidget* Mainfrm::buildCascade() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);

    cbTree_ = makeList("cbTree", 170, row);
    cbServer_ = makeList("cbServer", 150, row);
    cbVolume_ = makeList("cbVolume", 110, row);
    cbLogFile_ = makeList("cbLogFile", 150, row);
    cbAbendLog_ = makeList("cbAbendLog", 200, row);
    cbAbendLog_->hide();
    picTree_ = makePicture("picTree", images_.pixmap(QStringLiteral("picTree"), 20), row);
    picServer_ = makePicture("picServer", images_.pixmap(QStringLiteral("picServer"), 20), row);
    picVolume_ = makePicture("picVolume", images_.pixmap(QStringLiteral("picVolume"), 20), row);
    picLogfile_ = makePicture("picLogfile", images_.pixmap(QStringLiteral("picLogfile"), 20), row);
    picCloseLogfile_ =
        makePicture("picCloseLogfile", images_.pixmap(QStringLiteral("picCloseLogfile"), 20), row);
    cmdCloseLogfile_ = new QPushButton(row);
    cmdCloseLogfile_->setObjectName(QStringLiteral("cmdCloseLogfile"));
    cmdCloseLogfile_->setMinimumWidth(130);

    layout->addWidget(
        cascadeCell(QStringLiteral("NetWare tree"), "txtbTree", picTree_, cbTree_, row), 3);
    layout->addWidget(
        cascadeCell(QStringLiteral("server"), "txtbServer", picServer_, cbServer_, row), 2);
    layout->addWidget(
        cascadeCell(QStringLiteral("volume"), "txtbVolume", picVolume_, cbVolume_, row), 1);
    layout->addWidget(
        cascadeCell(QStringLiteral("logfile"), "txtbLogfile", picLogfile_, cbLogFile_, row), 2);
    layout->addWidget(cascadeCell(QString(), "txtbClose", picCloseLogfile_, cmdCloseLogfile_, row),
                      0);
    layout->addWidget(cbAbendLog_, 2);

    // A choice of the user goes into the view state, then to the engine's handler.
    auto choose = [this](QComboBox* combo, ListState& list, void (*handler)(Engine&)) {
        connect(combo, &QComboBox::activated, this, [this, &list, handler](int index) {
            list.ListIndex = index;
            handler(engine_);
            refresh();
        });
    };
    choose(cbTree_, engine_.view.cbTree, &cbTree_Click);
    choose(cbServer_, engine_.view.cbServer, &cbServer_Click);
    choose(cbVolume_, engine_.view.cbVolume, &cbVolume_Click);
    choose(cbLogFile_, engine_.view.cbLogFile, &cbLogFile_Click);
    connect(cbAbendLog_, &QComboBox::activated, this,
            [this](int index) { engine_.view.cbAbendLog.ListIndex = index; });

    connect(picServer_, &PictureLabel::doubleClicked, this,
            [this] { picServer_DblClick(engine_); });
    connect(picVolume_, &PictureLabel::doubleClicked, this,
            [this] { picVolume_DblClick(engine_); });
    connect(picLogfile_, &PictureLabel::doubleClicked, this,
            [this] { picLogfile_DblClick(engine_); });
    connect(picCloseLogfile_, &PictureLabel::doubleClicked, this,
            [this] { picCloseLogfile_DblClick(engine_); });
    connect(cmdCloseLogfile_, &QPushButton::clicked, this,
            [this] { picCloseLogfile_DblClick(engine_); });
    return row;
}

PictureLabel* Mainfrm::picture(const QString& name) const {
    for (PictureLabel* p : {picTree_, picServer_, picVolume_, picLogfile_, picCloseLogfile_})
        if (p->objectName() == name)
            return p;
    return nullptr;
}

void Mainfrm::syncList(QComboBox* combo, const ListState& list, bool serverIcons) {
    bool same = combo->count() == list.items.size();
    for (int i = 0; same && i < combo->count(); ++i)
        same = combo->itemText(i) == list.items[i] &&
               combo->itemData(i).toInt() == (i < list.icons.size() ? list.icons[i] : -1);
    const QSignalBlocker block(combo);
    if (!same) {
        combo->clear();
        for (int i = 0; i < list.items.size(); ++i) {
            const int icon = i < list.icons.size() ? list.icons[i] : -1;
            if (serverIcons && icon >= 0)
                combo->addItem(images_.serverIcon(icon), list.items[i], icon);
            else
                combo->addItem(list.items[i], icon);
        }
    }
    if (combo->currentIndex() != list.ListIndex)
        combo->setCurrentIndex(list.ListIndex);
    if (combo->isEnabled() != list.enabled)
        combo->setEnabled(list.enabled);
    if (combo->isVisibleTo(this) != list.visible)
        combo->setVisible(list.visible);
}

void Mainfrm::refresh() {
    const MainView& v = engine_.view;
    if (windowTitle() != v.caption)
        setWindowTitle(v.caption);
    syncList(cbTree_, v.cbTree, false);
    syncList(cbServer_, v.cbServer, true);
    syncList(cbVolume_, v.cbVolume, false);
    syncList(cbLogFile_, v.cbLogFile, false);
    syncList(cbAbendLog_, v.cbAbendLog, false);
    picTree_->setToolTip(v.picTreeToolTip);
    picServer_->setToolTip(v.picServerToolTip);
    picVolume_->setToolTip(v.picVolumeToolTip);
    picLogfile_->setToolTip(v.picLogfileToolTip);
    picCloseLogfile_->setToolTip(v.picCloseLogfileToolTip);
    cmdCloseLogfile_->setToolTip(v.picCloseLogfileToolTip);
    if (cmdCloseLogfile_->text() != v.closeCaption)
        cmdCloseLogfile_->setText(v.closeCaption);
    cmdCloseLogfile_->setEnabled(v.closeEnabled);
    menus_->refresh(v);
    panes_->refresh();
    grid_->refresh();
    if (v.busyPointer != busyCursor_) {
        busyCursor_ = v.busyPointer;
        if (busyCursor_)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }
}

void Mainfrm::updateClock() {
    MainView& v = engine_.view;
    v.pane(SystemDate).text = QLocale().toString(QDate::currentDate(), QLocale::ShortFormat);
    v.pane(SystemTime).text = QTime::currentTime().toString(QStringLiteral("hh:mm"));
    panes_->refresh();
}

void Mainfrm::command(const QString& name) {
    for (const auto& [menu, link] : kWebLinks) {
        if (name == QLatin1String(menu)) {
            engine_.desktop->openDefault(QString::fromLatin1(link));
            return;
        }
    }
    if (logDialogs_->command(name)) {
        refresh();
        return;
    }
    for (const auto& group : commandGroups_) {
        if (group->command(name)) {
            refresh();
            return;
        }
    }
    if (name == QStringLiteral("mnuCloseFile"))
        mnuCloseFile_Click(engine_);
    else if (name == QStringLiteral("mnuExit"))
        close();
    else if (name == QStringLiteral("mnuViewAll"))
        ShowAllRows(engine_);
    else if (name == QStringLiteral("mnuHelp"))
        Form_KeyDown(engine_, MainKey::F1, {});
    else if (name == QStringLiteral("mnuTipOfTheDay"))
        showTipOfTheDay();
    else if (name == QStringLiteral("mnuRTM") && engine_.hooks.mnuRTM_Click)
        engine_.hooks.mnuRTM_Click();
    else
        CommandNotAvailable(engine_);
    refresh();
}

void Mainfrm::addCommandGroup(CommandGroup* group) {
    commandGroups_.emplace_back(group);
}

void Mainfrm::showTipOfTheDay() {
    frmTipOfTheDay tip(engine_.registry, engine_.paths.inApp(QStringLiteral("tips.tdy")), images_,
                       this);
    tip.exec();
}

void Mainfrm::showTreeNotFound() {
    frmTreeNotFound form(engine_.network ? engine_.network->describe() : QString(), this);
    form.exec();
}

void Mainfrm::Form_Load() {
    resize(1100, 720);
    if (const auto place = ReadWindowPlace(engine_.registry, objectName())) {
        const QRect wanted(place->left, place->top, place->width, place->height);
        // A place on a screen that is gone is not restored.
        const QScreen* screen = QGuiApplication::screenAt(wanted.center());
        if (screen != nullptr) {
            resize(wanted.size());
            move(wanted.topLeft());
        }
        if (place->maximized)
            setWindowState(windowState() | Qt::WindowMaximized);
    }
    engine_.view.pane(Tips).icon = QStringLiteral("imgNoFlag");
    updateClock();
    refresh();
}

void Mainfrm::Form_Unload() {
    if (unloaded_)
        return;
    unloaded_ = true;
    const QRect frame = isMaximized() ? normalGeometry() : geometry();
    SaveWindowPlace(engine_.registry, objectName(),
                    {frame.left(), frame.top(), frame.width(), frame.height(), isMaximized()});
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible())
            window->close();
    QCoreApplication::quit();
}

void Mainfrm::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
}

void Mainfrm::keyPressEvent(QKeyEvent* event) {
    // Escape is swallowed.
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

} // namespace twk::gui
