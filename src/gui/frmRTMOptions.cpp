#include "gui/frmRTMOptions.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

QWidget* page(QGridLayout*& grid) {
    auto* w = new QWidget;
    grid = new QGridLayout(w);
    return w;
}

void optionLabel(QGridLayout* grid, const char* text, int row, int col = 0) {
    grid->addWidget(new QLabel(QString::fromLatin1(text)), row, col);
}

} // namespace

frmRTMOptions::frmRTMOptions(Engine& engine, QWidget* parent) : QDialog(parent), model_(engine) {
    setObjectName(QStringLiteral("frmRTMOptions"));
    setWindowTitle(optionsText::kCaption);
    askFolder = [this](const QString& start) {
        return QFileDialog::getExistingDirectory(this, optionsText::kFolderTitle, start);
    };
    askWebpage = [this](const QString& start) {
        return QFileDialog::getSaveFileName(this, optionsText::kWebpageTitle, start,
                                            QStringLiteral("Webpages (*.html *.htm)"));
    };
    model_.Form_Load();
    tabs_ = new QTabWidget(this);
    tabs_->addTab(buildServers(), QStringLiteral("Servers"));
    tabs_->addTab(buildRules(), QStringLiteral("Filter Rules"));
    tabs_->addTab(buildAlerting(), QStringLiteral("Alerting"));
    tabs_->addTab(buildLogging(), QStringLiteral("Logging"));
    tabs_->addTab(buildOthers(), QStringLiteral("Others"));
    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int index) { act([this, index] { model_.tab_Click(index); }); });
    auto* close = new QPushButton(QStringLiteral("E&xit"), this);
    close->setObjectName(QStringLiteral("cmdExit"));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(close);
    layout->addLayout(row);
    render();
}

QLineEdit* frmRTMOptions::field(const char* name, TextBoxState& state,
                                void (FrmRTMOptions::*changed)()) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QString::fromLatin1(name));
    fields_.emplace_back(edit, &state);
    connect(edit, &QLineEdit::textEdited, this, [this, &state, changed](const QString& text) {
        act([this, &state, changed, text] {
            state.text = text;
            if (changed)
                (model_.*changed)();
        });
    });
    return edit;
}

QCheckBox* frmRTMOptions::check(const char* name, CheckBoxState& state,
                                void (FrmRTMOptions::*handler)()) {
    auto* box = new QCheckBox;
    box->setObjectName(QString::fromLatin1(name));
    checks_.emplace_back(box, &state);
    connect(box, &QCheckBox::toggled, this, [this, &state, handler](bool on) {
        act([this, &state, handler, on] {
            state.checked = on;
            if (handler)
                (model_.*handler)();
        });
    });
    return box;
}

QPushButton* frmRTMOptions::button(const char* name, ButtonState& state,
                                   void (FrmRTMOptions::*handler)()) {
    auto* b = new QPushButton;
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    buttons_.emplace_back(b, &state);
    if (handler)
        connect(b, &QPushButton::clicked, this,
                [this, handler] { act([this, handler] { (model_.*handler)(); }); });
    return b;
}

QListWidget* frmRTMOptions::listBox(const char* name, ListState& state,
                                    void (FrmRTMOptions::*click)(),
                                    void (FrmRTMOptions::*dblClick)()) {
    auto* list = new QListWidget;
    list->setObjectName(QString::fromLatin1(name));
    lists_.emplace_back(list, &state);
    connect(list, &QListWidget::currentRowChanged, this, [this, &state, click](int row) {
        act([this, &state, click, row] {
            state.ListIndex = row;
            if (click)
                (model_.*click)();
        });
    });
    if (dblClick)
        connect(list, &QListWidget::itemDoubleClicked, this,
                [this, dblClick] { act([this, dblClick] { (model_.*dblClick)(); }); });
    return list;
}

QComboBox* frmRTMOptions::combo(const char* name, ListState& state,
                                void (FrmRTMOptions::*handler)()) {
    auto* c = new QComboBox;
    c->setObjectName(QString::fromLatin1(name));
    combos_.emplace_back(c, &state);
    connect(c, &QComboBox::activated, this, [this, &state, handler](int index) {
        act([this, &state, handler, index] {
            state.ListIndex = index;
            if (handler)
                (model_.*handler)();
        });
    });
    return c;
}

QWidget* frmRTMOptions::buildServers() {
    QGridLayout* g = nullptr;
    QWidget* w = page(g);
    using F = FrmRTMOptions;
    g->addWidget(listBox("lstbServerListe", model_.lstbServerListe, &F::lstbServerListe_Click,
                         &F::lstbServerListe_DblClick),
                 0, 0, 6, 1);
    optionLabel(g, "Server:", 0, 1);
    g->addWidget(field("txtbServerName", model_.txtbServerName, &F::txtbServerName_Change), 0, 2);
    optionLabel(g, "IP address:", 1, 1);
    QLineEdit* ip = field("txtbIPAdresse", model_.txtbIPAdresse);
    ip->setMaxLength(15);
    // The key filter: digits and "." only, "," becomes ".".
    connect(ip, &QLineEdit::textEdited, this, [this, ip](const QString& typed) {
        const QString kept = FrmRTMOptions::filterIpTyping(model_.txtbIPAdresse.text, typed);
        model_.txtbIPAdresse.text = kept;
        if (kept != typed)
            ip->setText(kept);
    });
    connect(ip, &QLineEdit::returnPressed, this,
            [this] { act([this] { model_.txtbIPAdresse_Return(); }); });
    g->addWidget(ip, 1, 2);
    g->addWidget(button("cmdAddServer", model_.cmdAddServer, &F::cmdAddServer_Click), 2, 2);
    optionLabel(g, "stored address:", 3, 1);
    QLineEdit* shown = field("txtbServerIP", model_.txtbServerIP);
    shown->setReadOnly(true);
    g->addWidget(shown, 3, 2);
    auto* row = new QHBoxLayout;
    row->addWidget(button("cmdRemoveServer", model_.cmdRemoveServer, &F::cmdRemoveServer_Click));
    row->addWidget(button("cmdEnableServer", model_.cmdEnableServer, &F::cmdEnableServer_Click));
    row->addWidget(button("cmdDisableServer", model_.cmdDisableServer, &F::cmdDisableServer_Click));
    g->addLayout(row, 4, 1, 1, 2);
    optionLabel(g, "Monitoring interval (seconds):", 6, 0);
    QLineEdit* interval = field("txtbInterval", model_.txtbInterval);
    connect(interval, &QLineEdit::textEdited, this, [this, interval](const QString& typed) {
        const QString digits = FrmRTMOptions::filterDigits(typed);
        model_.txtbInterval.text = digits;
        if (digits != typed)
            interval->setText(digits);
    });
    g->addWidget(interval, 6, 1);
    QPushButton* save =
        button("cmdSaveInterval", model_.cmdSaveInterval, &F::cmdSaveInterval_Click);
    connect(interval, &QLineEdit::returnPressed, save, [save] { save->setFocus(); });
    g->addWidget(save, 6, 2);
    return w;
}

QWidget* frmRTMOptions::buildRules() {
    QGridLayout* g = nullptr;
    QWidget* w = page(g);
    auto* help = new QLabel(QStringLiteral(
        "The Realtime Event Monitor shows the last SYS$LOG.ERR event of all monitored servers.\n"
        "Filter rules assign a realtime state to it (ONLINE, WARNING, FAILURE) and fire the "
        "alerts.\nThe rules are shown as a table; a double click on a table line creates, "
        "modifies or removes a rule."));
    help->setWordWrap(true);
    g->addWidget(help, 0, 0);
    g->addWidget(button("cmdShowFilterRules", model_.cmdShowFilterRules,
                        &FrmRTMOptions::cmdShowFilterRules_Click),
                 1, 0, Qt::AlignLeft);
    g->setRowStretch(2, 1);
    return w;
}

QWidget* frmRTMOptions::buildAlerting() {
    QGridLayout* g = nullptr;
    QWidget* w = page(g);
    using F = FrmRTMOptions;
    optionLabel(g, "Remote popup computers:", 0, 0);
    g->addWidget(listBox("lstbComputerListe", model_.lstbComputerListe, nullptr, nullptr), 1, 0, 3,
                 1);
    g->addWidget(field("txtbComputer", model_.txtbComputer), 1, 1);
    g->addWidget(button("cmdAddComputer", model_.cmdAddComputer, &F::cmdAddComputer_Click), 2, 1);
    g->addWidget(button("cmdRemoveComputer", model_.cmdRemoveComputer, &F::cmdRemoveComputer_Click),
                 3, 1);

    int r = 4;
    const auto add = [&](const char* text, QWidget* widget) {
        optionLabel(g, text, r, 0);
        g->addWidget(widget, r++, 1);
    };
    add("SMTP host:", field("txtbSMTPHost", model_.txtbSMTPHost));
    add("SMTP port:", field("txtbSMTPPort", model_.txtbSMTPPort));
    g->addWidget(check("chkSMTPAuthentication", model_.chkSMTPAuthentication,
                       &F::chkSMTPAuthentication_Click),
                 r++, 0, 1, 2);
    g->addWidget(check("chkPOP3Authentication", model_.chkPOP3Authentication,
                       &F::chkSMTPAuthentication_Click),
                 r++, 0, 1, 2);
    add("POP3 host:", field("txtbPOP3Host", model_.txtbPOP3Host));
    add("User name:", field("txtbUserName", model_.txtbUserName));
    QLineEdit* password = field("txtbPassword", model_.txtbPassword);
    password->setEchoMode(QLineEdit::Password);
    add("Password:", password);
    add("From:", field("txtbFrom", model_.txtbFrom));
    auto* row = new QHBoxLayout;
    row->addWidget(button("cmdSaveEMail", model_.cmdSaveEMail, &F::cmdSaveEMail_Click));
    row->addWidget(button("cmdMailTest", model_.cmdMailTest, &F::cmdMailTest_Click));
    g->addLayout(row, r++, 1);

    optionLabel(g, "E-mail recipients:", 0, 2);
    g->addWidget(listBox("lstbEMailListe", model_.lstbEMailListe, nullptr, nullptr), 1, 2, 6, 1);
    g->addWidget(field("txtbEMailRecipient", model_.txtbEMailRecipient), 7, 2);
    g->addWidget(button("cmdAddEMail", model_.cmdAddEMail, &F::cmdAddEMail_Click), 8, 2);
    g->addWidget(button("cmdRemoveEMail", model_.cmdRemoveEMail, &F::cmdRemoveEMail_Click), 9, 2);
    return w;
}

QWidget* frmRTMOptions::buildLogging() {
    QGridLayout* g = nullptr;
    QWidget* w = page(g);
    using F = FrmRTMOptions;
    optionLabel(g, "Path:", 0, 0);
    g->addWidget(field("txtbPath", model_.txtbPath), 0, 1);
    QPushButton* folder = button("cmdFolder", model_.cmdFolder, nullptr);
    connect(folder, &QPushButton::clicked, this, [this] {
        const QString chosen = askFolder(model_.txtbPath.text);
        act([this, chosen] { model_.folderChosen(chosen); });
    });
    g->addWidget(folder, 0, 2);
    optionLabel(g, "File name:", 1, 0);
    g->addWidget(field("txtbFileName", model_.txtbFileName), 1, 1);
    g->addWidget(
        button("cmdSaveLocalLogfile", model_.cmdSaveLocalLogfile, &F::cmdSaveLocalLogfile_Click), 2,
        1, Qt::AlignLeft);

    optionLabel(g, "Event forwarding (syslog) server:", 3, 0);
    g->addWidget(field("txtbSyslogServer", model_.txtbSyslogServer), 3, 1);
    optionLabel(g, "Destination port:", 4, 0);
    QLineEdit* port = field("txtbDestinationPort", model_.txtbDestinationPort);
    connect(port, &QLineEdit::textEdited, this, [this, port](const QString& typed) {
        const QString digits = FrmRTMOptions::filterDigits(typed);
        model_.txtbDestinationPort.text = digits;
        if (digits != typed)
            port->setText(digits);
    });
    g->addWidget(port, 4, 1);
    optionLabel(g, "Protocol:", 5, 0);
    g->addWidget(combo("cbSyslogProtocol", model_.cbSyslogProtocol, &F::cbSyslogProtocol_Click), 5,
                 1);
    g->addWidget(check("chkRFCHeader", model_.chkRFCHeader, nullptr), 6, 1);
    g->addWidget(check("chkCRLF", model_.chkCRLF, nullptr), 7, 1);
    g->addWidget(check("chkSilentErrors", model_.chkSilentErrors, nullptr), 8, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(button("cmdSaveSyslogSettings", model_.cmdSaveSyslogSettings,
                          &F::cmdSaveSyslogSettings_Click));
    row->addWidget(button("cmdTestSyslogForwarding", model_.cmdTestSyslogForwarding,
                          &F::cmdTestSyslogForwarding_Click));
    row->addStretch();
    g->addLayout(row, 9, 1);
    g->setRowStretch(10, 1);
    return w;
}

QWidget* frmRTMOptions::buildOthers() {
    QGridLayout* g = nullptr;
    QWidget* w = page(g);
    using F = FrmRTMOptions;
    int r = 0;
    g->addWidget(check("chkHeartbeatNotification", model_.chkHeartbeatNotification,
                       &F::chkHeartbeatNotification_Click),
                 r++, 0, 1, 2);
    optionLabel(g, "Interval (minutes):", r);
    g->addWidget(field("txtbHeartbeatInterval", model_.txtbHeartbeatInterval), r++, 1);
    optionLabel(g, "Recipients:", r);
    g->addWidget(field("txtbNotificationRecipients", model_.txtbNotificationRecipients), r++, 1);
    g->addWidget(check("chkStatusSurvey", model_.chkStatusSurvey, nullptr), r++, 0, 1, 2);
    g->addWidget(check("chkRTMWebsite", model_.chkRTMWebsite, &F::chkRTMWebsite_Click), r++, 0, 1,
                 2);
    optionLabel(g, "Webpage path:", r);
    g->addWidget(field("txtbWebpagePath", model_.txtbWebpagePath), r, 1);
    QPushButton* choose = button("cmdWebpagePath", model_.cmdWebpagePath, nullptr);
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString chosen = askWebpage(model_.txtbWebpagePath.text);
        act([this, chosen] { model_.webpagePathChosen(chosen); });
    });
    g->addWidget(choose, r++, 2);
    g->addWidget(check("chkFTPUpload", model_.chkFTPUpload, &F::chkFTPUpload_Click), r++, 0, 1, 2);
    optionLabel(g, "FTP server:", r);
    g->addWidget(field("txtbFTPServer", model_.txtbFTPServer), r++, 1);
    optionLabel(g, "FTP user:", r);
    g->addWidget(field("txtbFTPUserName", model_.txtbFTPUserName), r++, 1);
    optionLabel(g, "FTP password:", r);
    QLineEdit* ftpPassword = field("txtbFTPpassword", model_.txtbFTPpassword);
    ftpPassword->setEchoMode(QLineEdit::Password);
    g->addWidget(ftpPassword, r++, 1);
    optionLabel(g, "Automatic sorting:", r);
    g->addWidget(combo("cbSortColumn", model_.cbSortColumn, &F::cbSortColumn_Click), r++, 1);
    g->addWidget(combo("cbSortOrder", model_.cbSortOrder, nullptr), r++, 1);
    g->addWidget(button("cmdMiscSave", model_.cmdMiscSave, &F::cmdMiscSave_Click), r++, 1,
                 Qt::AlignLeft);
    return w;
}

template <typename Handler> void frmRTMOptions::act(Handler handler) {
    model_.focus.clear();
    model_.selectField.clear();
    handler();
    render();
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(childNamed(this, model_.selectField)))
        edit->selectAll();
}

void frmRTMOptions::render() {
    for (const auto& [edit, state] : fields_) {
        showTextBox(edit, *state);
        const QString tip = model_.toolTips.value(edit->objectName(), edit->toolTip());
        if (edit->toolTip() != tip)
            edit->setToolTip(tip);
    }
    for (const auto& [box, state] : checks_)
        showCheckBox(box, *state);
    for (const auto& [b, state] : buttons_)
        showButton(b, *state);
    for (const auto& [c, state] : combos_)
        showList(c, *state);
    for (const auto& [list, state] : lists_) {
        const QSignalBlocker block(list);
        QStringList shown;
        for (int i = 0; i < list->count(); ++i)
            shown << list->item(i)->text();
        if (shown != state->items) {
            list->clear();
            list->addItems(state->items);
        }
        if (list->currentRow() != state->ListIndex)
            list->setCurrentRow(state->ListIndex);
    }
    if (tabs_ != nullptr && tabs_->currentIndex() != model_.tab) {
        const QSignalBlocker block(tabs_);
        tabs_->setCurrentIndex(model_.tab);
    }
}

} // namespace twk::gui
