#include "gui/frmRConsole.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

QLabel* makePath(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(360);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

QString frmRConsole::askConsolePath(QWidget* parent, const QString& title,
                                    const QList<FileFilter>& filters) {
    QStringList nameFilters;
    for (const FileFilter& f : filters)
        nameFilters << f.name + QStringLiteral(" (") + f.mask + u')';
    return QFileDialog::getOpenFileName(parent, title, QString(),
                                        nameFilters.join(QStringLiteral(";;")));
}

frmRConsole::frmRConsole(Engine& engine, const QString& server, AskPath askPath, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), askPath_(std::move(askPath)),
      lbxServer_(new QListWidget(this)),
      rbNotDefined_(new QRadioButton(rconsoleText::kNotDefined, this)),
      rbRConsole_(new QRadioButton(QStringLiteral("IPX console (rconsole)"), this)),
      rbRConJ_(new QRadioButton(QStringLiteral("IP console"), this)),
      chkHostname_(new QCheckBox(this)), chkIPAddress_(new QCheckBox(this)),
      txbIPAddress_(new QLineEdit(this)), lbRConsole_(makePath("lbRConsole", this)),
      lbRConJ_(makePath("lbRConJ", this)),
      cmdRConsole_(makeButton("cmdRConsole", this, QStringLiteral("browse..."))),
      cmdRConJ_(makeButton("cmdRConJ", this, QStringLiteral("browse..."))),
      cmdSave_(makeButton("cmdSave", this, model_.cmdSave.caption)),
      cmdHelp_(makeButton("cmdHelp", this, QStringLiteral("help"))) {
    setObjectName(QStringLiteral("frmRConsole"));
    lbxServer_->setObjectName(QStringLiteral("lbxServer"));
    lbxServer_->setMinimumWidth(150);
    rbNotDefined_->setObjectName(QStringLiteral("rbNotDefined"));
    rbRConsole_->setObjectName(QStringLiteral("rbRConsole"));
    rbRConJ_->setObjectName(QStringLiteral("rbRConJ"));
    chkHostname_->setObjectName(QStringLiteral("chkHostname"));
    chkIPAddress_->setObjectName(QStringLiteral("chkIPAddress"));
    txbIPAddress_->setObjectName(QStringLiteral("txbIPAddress"));
    txbIPAddress_->setPlaceholderText(rconsoleText::kAddressPrompt);
    auto* radios = new QButtonGroup(this);
    for (QRadioButton* r : {rbNotDefined_, rbRConsole_, rbRConJ_})
        radios->addButton(r);

    const auto act = [this](auto handler) {
        return [this, handler] {
            (model_.*handler)();
            afterAction();
        };
    };
    connect(lbxServer_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0 || row == model_.lbxServer.ListIndex)
            return;
        model_.lbxServer.ListIndex = row;
        model_.lbxServer_Click();
        afterAction();
    });
    connect(rbNotDefined_, &QRadioButton::clicked, this, act(&FrmRConsole::rbNotDefined_Click));
    connect(rbRConsole_, &QRadioButton::clicked, this, act(&FrmRConsole::rbRConsole_Click));
    connect(rbRConJ_, &QRadioButton::clicked, this, act(&FrmRConsole::rbRConJ_Click));
    connect(chkHostname_, &QCheckBox::clicked, this, act(&FrmRConsole::chkHostname_Click));
    connect(chkIPAddress_, &QCheckBox::clicked, this, act(&FrmRConsole::chkIPAddress_Click));
    connect(txbIPAddress_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txbIPAddress.text = text; });
    connect(cmdSave_, &QPushButton::clicked, this, act(&FrmRConsole::cmdSave_Click));
    connect(cmdHelp_, &QPushButton::clicked, this, act(&FrmRConsole::cmdHelp_Click));
    connect(cmdRConsole_, &QPushButton::clicked, this, [this] {
        model_.cmdRConsole_Chosen(askPath_(rconsoleText::kBrowseIpx, ipxConsoleFilters()));
        afterAction();
    });
    connect(cmdRConJ_, &QPushButton::clicked, this, [this] {
        model_.cmdRConJ_Chosen(askPath_(rconsoleText::kBrowseIp, ipConsoleFilters()));
        afterAction();
    });

    auto* paths = new QGroupBox(QStringLiteral("console programs"), this);
    auto* pathGrid = new QGridLayout(paths);
    pathGrid->addWidget(new QLabel(QStringLiteral("IPX console:"), this), 0, 0);
    pathGrid->addWidget(lbRConsole_, 0, 1);
    pathGrid->addWidget(cmdRConsole_, 0, 2);
    pathGrid->addWidget(new QLabel(QStringLiteral("IP console:"), this), 1, 0);
    pathGrid->addWidget(lbRConJ_, 1, 1);
    pathGrid->addWidget(cmdRConJ_, 1, 2);
    pathGrid->setColumnStretch(1, 1);

    auto* kind = new QGroupBox(QStringLiteral("console of the server"), this);
    auto* kindLayout = new QGridLayout(kind);
    kindLayout->addWidget(rbNotDefined_, 0, 0, 1, 3);
    kindLayout->addWidget(rbRConsole_, 1, 0, 1, 3);
    kindLayout->addWidget(rbRConJ_, 2, 0, 1, 3);
    kindLayout->addWidget(chkHostname_, 3, 1, 1, 2);
    kindLayout->addWidget(chkIPAddress_, 4, 1);
    kindLayout->addWidget(txbIPAddress_, 4, 2);
    kindLayout->setColumnMinimumWidth(0, 20);
    kindLayout->setRowStretch(5, 1);

    auto* middle = new QHBoxLayout;
    middle->addWidget(lbxServer_);
    middle->addWidget(kind, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdHelp_);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(paths);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);

    model_.Form_Load(server);
    render();
}

void frmRConsole::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    {
        const QSignalBlocker block(lbxServer_);
        if (lbxServer_->count() != model_.lbxServer.items.size()) {
            lbxServer_->clear();
            lbxServer_->addItems(model_.lbxServer.items);
        }
        if (lbxServer_->currentRow() != model_.lbxServer.ListIndex)
            lbxServer_->setCurrentRow(model_.lbxServer.ListIndex);
    }
    showLabel(lbRConsole_, model_.lbRConsole);
    showLabel(lbRConJ_, model_.lbRConJ);
    rbNotDefined_->setChecked(model_.rbNotDefined);
    rbRConsole_->setChecked(model_.rbRConsole);
    rbRConJ_->setChecked(model_.rbRConJ);
    showCheckBox(chkHostname_, model_.chkHostname);
    showCheckBox(chkIPAddress_, model_.chkIPAddress);
    showTextBox(txbIPAddress_, model_.txbIPAddress);
    showButton(cmdSave_, model_.cmdSave);
}

void frmRConsole::afterAction() {
    render();
    if (!model_.helpPageWanted.isEmpty()) {
        const QString page = model_.helpPageWanted;
        model_.helpPageWanted.clear();
        openHelpPage(engine_, page);
    }
}

void frmRConsole::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        model_.cmdHelp_Click();
        afterAction();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace twk::gui
