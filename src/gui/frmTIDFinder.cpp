#include "gui/frmTIDFinder.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmTIDFinder::frmTIDFinder(Engine& engine, BrowserPort& browser, BrowserWatch* watch,
                           QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine, browser, watch),
      cbxTIDHistory_(new QComboBox(this)), lbTIDCount_(new QLabel(this)),
      txbTID_(new QLineEdit(this)), cmdGo_(new QPushButton(model_.cmdGo.caption, this)),
      cmdHelp_(new QPushButton(model_.cmdHelp.caption, this)) {
    setObjectName(QStringLiteral("frmTIDFinder"));
    cbxTIDHistory_->setObjectName(QStringLiteral("cbxTIDHistory"));
    cbxTIDHistory_->setMinimumWidth(460);
    cbxTIDHistory_->setMaxVisibleItems(kTidHistorySize + 1);
    lbTIDCount_->setObjectName(QStringLiteral("lbTIDCount"));
    txbTID_->setObjectName(QStringLiteral("txbTID"));
    txbTID_->setPlaceholderText(QStringLiteral("e.g. 10060600"));
    cmdGo_->setObjectName(QStringLiteral("cmdGo"));
    cmdGo_->setDefault(true);
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    cmdHelp_->setAutoDefault(false);

    connect(cbxTIDHistory_, &QComboBox::activated, this, [this](int index) {
        model_.cbxTIDHistory.ListIndex = index;
        model_.cbxTIDHistory_Click();
        afterAction();
    });
    connect(txbTID_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txbTID.text = text; });
    connect(cmdGo_, &QPushButton::clicked, this, [this] {
        model_.cmdGo_Click();
        afterAction();
    });
    connect(cmdHelp_, &QPushButton::clicked, this, [this] {
        model_.cmdHelp_Click();
        afterAction();
    });

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("history:"), this), 0, 0);
    grid->addWidget(cbxTIDHistory_, 0, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("stored TIDs:"), this), 1, 0);
    grid->addWidget(lbTIDCount_, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("TID#:"), this), 2, 0);
    grid->addWidget(txbTID_, 2, 1);
    grid->addWidget(cmdGo_, 2, 2);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdHelp_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    model_.Form_Load();
    render();
}

void frmTIDFinder::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    showList(cbxTIDHistory_, model_.cbxTIDHistory);
    showLabel(lbTIDCount_, model_.lbTIDCount);
    showTextBox(txbTID_, model_.txbTID);
    if (!model_.focus.isEmpty()) {
        if (QWidget* target = childNamed(this, model_.focus))
            target->setFocus(Qt::OtherFocusReason);
        model_.focus.clear();
    }
}

void frmTIDFinder::afterAction() {
    render();
    if (!model_.helpPageWanted.isEmpty()) {
        const QString page = model_.helpPageWanted;
        model_.helpPageWanted.clear();
        openHelpPage(engine_, page);
    }
    if (model_.closed)
        QDialog::accept();
}

void frmTIDFinder::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        model_.cmdHelp_Click();
        afterAction();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmTIDFinder::reject() {
    model_.cmdClose_Click();
    QDialog::reject();
}

} // namespace twk::gui
