#include "gui/frmGotoConsole.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr std::array<const char*, kConsoleEventKinds + 1> kNameLabels = {
    "", "lbNLMladen", "lbNLMunload", "lbErrorMessages", "lbDateEntries"};
constexpr std::array<const char*, kConsoleEventKinds + 1> kCountLabels = {
    "", "lbNLMladenCount", "lbNLMunloadCount", "lbErrorMessagesCount", "lbDateEntriesCount"};
constexpr std::array<const char*, kConsoleEventKinds + 1> kSelectKeys = {"", "F9", "F10", "F11",
                                                                         "F12"};

struct Move {
    const char* name;
    const char* caption;
    const char* key;
    void (GotoConsoleModel::*handler)();
};
constexpr std::array<Move, 4> kMoves = {{
    {"cmdFirst", "&first", "F5", &GotoConsoleModel::GotoFirstEvent},
    {"cmdPrevious", "&previous", "F6", &GotoConsoleModel::GotoPreviousEvent},
    {"cmdNext", "&next", "F7", &GotoConsoleModel::GotoNextEvent},
    {"cmdLast", "&last", "F8", &GotoConsoleModel::GotoLastEvent},
}};

void showNavigatorLabel(QLabel* label, const NavigatorLabel& state) {
    if (label->text() != state.caption)
        label->setText(state.caption);
    if (label->toolTip() != state.toolTip)
        label->setToolTip(state.toolTip);
    const QString style = QStringLiteral("color: %1; background: %2; padding: 2px;")
                              .arg(rgbColor(state.foreColor).name(QColor::HexRgb),
                                   rgbColor(state.backColor).name(QColor::HexRgb));
    if (label->styleSheet() != style)
        label->setStyleSheet(style);
}

} // namespace

frmGotoConsole::frmGotoConsole(Engine& engine, std::unique_ptr<GotoConsoleModel> model,
                               QWidget* parent)
    : QDialog(parent), engine_(engine), model_(std::move(model)), lbEventMessage_(new QLabel(this)),
      lbRange_(new QLabel(this)), txtbRow_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmGotoConsole"));
    setWindowTitle(GotoConsoleModel::kCaption);

    auto* kinds = new QGroupBox(QStringLiteral(" Events "), this);
    auto* kindGrid = new QGridLayout(kinds);
    kindGrid->setVerticalSpacing(3);
    for (int kind = 1; kind <= kConsoleEventKinds; ++kind) {
        const auto k = static_cast<std::size_t>(kind);
        auto* name = new ClickLabel(kinds);
        name->setObjectName(QString::fromLatin1(kNameLabels[k]));
        auto* count = new ClickLabel(kinds);
        count->setObjectName(QString::fromLatin1(kCountLabels[k]));
        count->setMinimumWidth(90);
        QFont bold = name->font();
        bold.setBold(true);
        for (ClickLabel* label : {name, count}) {
            label->setFont(bold);
            label->setTextFormat(Qt::PlainText);
            label->setCursor(Qt::PointingHandCursor);
            label->setToolTip(QStringLiteral(" select these events (") +
                              QString::fromLatin1(kSelectKeys[k]) + QStringLiteral(") "));
            connect(label, &ClickLabel::clicked, this, [this, kind] {
                model_->labelClicked(kind);
                afterAction();
            });
        }
        names_[k] = name;
        counts_[k] = count;
        kindGrid->addWidget(name, kind - 1, 0);
        kindGrid->addWidget(count, kind - 1, 1);
    }
    kindGrid->setColumnStretch(0, 1);

    lbEventMessage_->setObjectName(QStringLiteral("lbEventMessage"));
    lbEventMessage_->setTextFormat(Qt::PlainText);
    lbEventMessage_->setFrameShape(QFrame::StyledPanel);
    lbEventMessage_->setFrameShadow(QFrame::Sunken);
    lbEventMessage_->setMinimumWidth(460);
    lbEventMessage_->setMinimumHeight(24);
    QFont bold = lbEventMessage_->font();
    bold.setBold(true);
    lbEventMessage_->setFont(bold);

    auto* moves = new QHBoxLayout;
    for (const Move& move : kMoves) {
        auto* button = new QPushButton(QString::fromLatin1(move.caption), this);
        button->setObjectName(QString::fromLatin1(move.name));
        button->setAutoDefault(false);
        button->setToolTip(QStringLiteral(" ") + QString::fromLatin1(move.key) +
                           QStringLiteral(" "));
        button->installEventFilter(this);
        const auto handler = move.handler;
        connect(button, &QPushButton::clicked, this, [this, handler] {
            ((*model_).*handler)();
            afterAction();
        });
        moves->addWidget(button);
    }

    lbRange_->setObjectName(QStringLiteral("lbRange"));
    lbRange_->setTextFormat(Qt::PlainText);
    txtbRow_->setObjectName(QStringLiteral("txtbRow"));
    txtbRow_->setMaximumWidth(110);
    txtbRow_->installEventFilter(this);
    auto* cmdGoto = new QPushButton(QStringLiteral("&goto"), this);
    cmdGoto->setObjectName(QStringLiteral("cmdGoto"));
    cmdGoto->setAutoDefault(false);
    cmdGoto->installEventFilter(this);
    connect(cmdGoto, &QPushButton::clicked, this, [this] {
        model_->cmdGoto_Click();
        afterAction();
    });
    auto* rowBox = new QGroupBox(QStringLiteral(" Row # "), this);
    auto* rowLayout = new QHBoxLayout(rowBox);
    rowLayout->addWidget(txtbRow_);
    rowLayout->addWidget(cmdGoto);
    rowLayout->addWidget(lbRange_, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(kinds);
    layout->addWidget(lbEventMessage_);
    layout->addLayout(moves);
    layout->addWidget(rowBox);
    for (ClickLabel* label : names_)
        if (label != nullptr)
            label->installEventFilter(this);
    render();
}

frmGotoConsole::~frmGotoConsole() = default;

QPushButton* frmGotoConsole::button(const QString& name) const {
    return findChild<QPushButton*>(name);
}

void frmGotoConsole::render() {
    for (int kind = 1; kind <= kConsoleEventKinds; ++kind) {
        const auto k = static_cast<std::size_t>(kind);
        showNavigatorLabel(names_[k], model_->nameLabels[k]);
        showNavigatorLabel(counts_[k], model_->countLabels[k]);
    }
    if (lbEventMessage_->text() != model_->lbEventMessage.caption)
        lbEventMessage_->setText(model_->lbEventMessage.caption);
    lbEventMessage_->setToolTip(model_->lbEventMessage.toolTip);
    QPalette palette = lbEventMessage_->palette();
    palette.setColor(QPalette::WindowText, rgbColor(model_->lbEventMessage.foreColor));
    lbEventMessage_->setPalette(palette);
    if (lbRange_->text() != model_->lbRange.caption)
        lbRange_->setText(model_->lbRange.caption);
    if (txtbRow_->text() != model_->txtbRow)
        txtbRow_->setText(model_->txtbRow);
}

void frmGotoConsole::afterAction() {
    render();
    if (model_->txtbRowFocusWanted) {
        model_->txtbRowFocusWanted = false;
        txtbRow_->setFocus(Qt::OtherFocusReason);
    }
    if (!model_->helpPageWanted.isEmpty()) {
        const QString page = model_->helpPageWanted;
        model_->helpPageWanted.clear();
        openHelpPage(engine_, page);
    }
    if (model_->closed)
        QDialog::reject();
}

bool frmGotoConsole::handleKey(QKeyEvent* event) {
    const int key = event->key();
    // Tab and Backtab still move between the controls.
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;
    if (model_->keyDown(key)) {
        afterAction();
        return true;
    }
    QChar character;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        character = QLatin1Char('\r');
    else if (key == Qt::Key_Escape)
        character = QChar(27);
    else if (key == Qt::Key_Backspace)
        character = QLatin1Char('\b');
    else if (!event->text().isEmpty())
        character = event->text().front();
    // A key press on a button is that button's own (Space presses it).
    if (character.isNull() || (character == QLatin1Char(' ') && !txtbRow_->hasFocus()))
        return false;
    model_->keyPress(character);
    afterAction();
    return true;
}

bool frmGotoConsole::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent*>(event)))
        return true;
    return QDialog::eventFilter(watched, event);
}

void frmGotoConsole::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(event))
        QDialog::keyPressEvent(event);
}

void frmGotoConsole::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!activated_) {
        activated_ = true;
        model_->Form_Activate();
        render();
    }
    txtbRow_->setFocus(Qt::OtherFocusReason);
}

void frmGotoConsole::reject() {
    model_->closed = true;
    QDialog::reject();
}

} // namespace twk::gui
