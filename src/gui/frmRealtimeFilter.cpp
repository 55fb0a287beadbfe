#include "gui/frmRealtimeFilter.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/ImageList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr int kRulePreviewSize = 32;

} // namespace

frmRealtimeFilter::frmRealtimeFilter(Engine& engine, const ImageList& images, int ruleNumber,
                                     QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine) {
    setObjectName(QStringLiteral("frmRealtimeFilter"));
    setWindowTitle(ruleDialogText::kCaption);
    askWaveFile = [this](const QString& folder) {
        return QFileDialog::getOpenFileName(this, ruleDialogText::kWaveDialogTitle, folder,
                                            ruleDialogText::kWaveFilter);
    };
    model_.Form_Load(ruleNumber);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    const auto button = [&](const char* name, ButtonState& state, auto handler) {
        auto* b = new QPushButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        buttons_.emplace_back(b, &state);
        connect(b, &QPushButton::clicked, this, handler);
        buttonRow->addWidget(b);
        return b;
    };
    button("cmdSave", model_.cmdSave, [this] { act([this] { model_.cmdSave_Click(); }); });
    button("cmdRemove", model_.cmdRemove, [this] { act([this] { model_.cmdRemove_Click(); }); });
    button("cmdExit", model_.cmdExit, [this] { act([this] { model_.cmdExit_Click(); }); });
    button("cmdHelp", model_.cmdHelp, [this] { openHelpPage(engine_, ruleDialogText::kHelpPage); });

    auto* layout = new QVBoxLayout(this);
    auto* columns = new QHBoxLayout;
    columns->addWidget(buildCriteria(), 1);
    columns->addWidget(buildAlerts(), 1);
    layout->addLayout(columns);
    layout->addLayout(buttonRow);
    render();
}

QComboBox* frmRealtimeFilter::list(const char* name, ListState& state,
                                   void (FrmRealtimeFilter::*handler)()) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setMaxVisibleItems(24);
    lists_.emplace_back(combo, &state);
    connect(combo, &QComboBox::activated, this, [this, &state, handler](int index) {
        act([this, &state, handler, index] {
            state.ListIndex = index;
            if (handler)
                (model_.*handler)();
        });
    });
    return combo;
}

QCheckBox* frmRealtimeFilter::check(const char* name, CheckBoxState& state,
                                    void (FrmRealtimeFilter::*handler)()) {
    auto* box = new QCheckBox(this);
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

QWidget* frmRealtimeFilter::buildCriteria() {
    auto* box = new QGroupBox(QStringLiteral(" Rule "), this);
    auto* grid = new QGridLayout(box);
    txtbRuleNumber_ = makeField("txtbRuleNumber", box, 240);
    txtbRuleNumber_->setReadOnly(true);
    txtbRuleNumber_->setMinimumWidth(60);
    onFocusIn(txtbRuleNumber_, [this] { act([this] { model_.txtbRuleNumber_Click(); }); });
    picEventTypeIcon_ = new QLabel(box);
    picEventTypeIcon_->setObjectName(QStringLiteral("picEventTypeIcon"));
    picEventTypeIcon_->setFixedSize(kRulePreviewSize + 8, kRulePreviewSize + 8);
    picEventTypeIcon_->setAlignment(Qt::AlignCenter);
    txtbErrorMessage1_ = makeField("txtbErrorMessage1", box, 240);
    txtbErrorMessage2_ = makeField("txtbErrorMessage2", box, 240);
    onFocusIn(txtbErrorMessage1_, [this] { act([this] { model_.txtbErrorMessage1_GotFocus(); }); });
    onFocusIn(txtbErrorMessage2_, [this] { act([this] { model_.txtbErrorMessage2_GotFocus(); }); });
    connect(txtbErrorMessage1_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtbErrorMessage1.text = text; });
    connect(txtbErrorMessage2_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtbErrorMessage2.text = text; });

    int row = 0;
    const auto add = [&](const char* label, QWidget* widget) {
        grid->addWidget(new QLabel(QString::fromLatin1(label), box), row, 0);
        grid->addWidget(widget, row++, 1);
    };
    add("Rule #:", txtbRuleNumber_);
    add("Realtime Status:", list("cbSrvLed", model_.cbSrvLed, nullptr));
    add("Event Status:", list("cbStatusIcon", model_.cbStatusIcon, nullptr));
    add("Event Type:", list("cbEventTypeFilterRule", model_.cbEventTypeFilterRule,
                            &FrmRealtimeFilter::cbEventTypeFilterRule_Click));
    grid->addWidget(picEventTypeIcon_, row - 1, 2);
    add("Source:", list("cbSourceFilterRule", model_.cbSourceFilterRule, nullptr));
    add("Category:", list("cbCategoryFilterRule", model_.cbCategoryFilterRule, nullptr));
    add("Error Message Search String 1:", txtbErrorMessage1_);
    add("Error Message Search String 2:", txtbErrorMessage2_);
    grid->setRowStretch(row, 1);
    return box;
}

QWidget* frmRealtimeFilter::buildAlerts() {
    auto* box = new QGroupBox(QStringLiteral(" Alerts "), this);
    auto* grid = new QGridLayout(box);
    int row = 0;
    for (auto [name, state] :
         {std::pair{"chkLocalPopup", &model_.chkLocalPopup},
          std::pair{"chkRemotePopup", &model_.chkRemotePopup},
          std::pair{"chkEmail", &model_.chkEmail}, std::pair{"chkLogfile", &model_.chkLogfile}})
        grid->addWidget(check(name, *state, nullptr), row++, 0, 1, 3);

    txtbWave_ = makeField("txtbWave", box, 240);
    connect(txtbWave_, &QLineEdit::textEdited, this, [this](const QString& text) {
        act([this, text] {
            model_.txtbWave.text = text;
            model_.txtbWave_Change();
        });
    });
    auto* open = new QPushButton(box);
    open->setObjectName(QStringLiteral("cmdOpenWave"));
    buttons_.emplace_back(open, &model_.cmdOpenWave);
    connect(open, &QPushButton::clicked, this, [this] {
        const QString path = askWaveFile(model_.waveFolder());
        act([this, path] { model_.waveChosen(path); });
    });
    auto* play = new QPushButton(box);
    play->setObjectName(QStringLiteral("cmdPlayWave"));
    buttons_.emplace_back(play, &model_.cmdPlayWave);
    connect(play, &QPushButton::clicked, this,
            [this] { act([this] { model_.cmdPlayWave_Click(); }); });
    grid->addWidget(txtbWave_, row, 0);
    grid->addWidget(open, row, 1);
    grid->addWidget(play, row++, 2);

    grid->addWidget(check("chkEventForwarding", model_.chkEventForwarding,
                          &FrmRealtimeFilter::chkEventForwarding_Click),
                    row++, 0, 1, 3);
    grid->addWidget(list("cbFacility", model_.cbFacility, nullptr), row, 0);
    grid->addWidget(list("cbLevel", model_.cbLevel, nullptr), row++, 1, 1, 2);
    grid->addWidget(
        check("chkNTEventLog", model_.chkNTEventLog, &FrmRealtimeFilter::chkNTEventLog_Click),
        row++, 0, 1, 3);
    grid->addWidget(list("cbNTEventLogCategory", model_.cbNTEventLogCategory, nullptr), row, 0);
    grid->addWidget(list("cbNTEventLogID", model_.cbNTEventLogID, nullptr), row++, 1, 1, 2);
    grid->setRowStretch(row, 1);
    return box;
}

template <typename Handler> void frmRealtimeFilter::act(Handler handler) {
    model_.focus.clear();
    handler();
    render();
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
    closeIfDone();
}

void frmRealtimeFilter::render() {
    showTextBox(txtbRuleNumber_, model_.txtbRuleNumber);
    showTextBox(txtbErrorMessage1_, model_.txtbErrorMessage1);
    showTextBox(txtbErrorMessage2_, model_.txtbErrorMessage2);
    showTextBox(txtbWave_, model_.txtbWave);
    for (const auto& [combo, state] : lists_) {
        showList(combo, *state);
        for (int i = 0; i < state->icons.size() && i < combo->count(); ++i)
            if (combo->itemIcon(i).isNull())
                combo->setItemIcon(i, images_.icon(state->icons[i]));
    }
    for (const auto& [box, state] : checks_)
        showCheckBox(box, *state);
    for (const auto& [button, state] : buttons_)
        showButton(button, *state);
    if (shownEventImage_ != model_.picEventTypeIcon) {
        shownEventImage_ = model_.picEventTypeIcon;
        if (shownEventImage_ < 0)
            picEventTypeIcon_->clear();
        else
            picEventTypeIcon_->setPixmap(images_.scaledPixmap(shownEventImage_, kRulePreviewSize));
    }
}

void frmRealtimeFilter::closeIfDone() {
    if (model_.closed && isVisible())
        QDialog::accept();
}

void frmRealtimeFilter::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, ruleDialogText::kHelpPage);
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmRealtimeFilter::reject() {
    model_.cmdExit_Click();
    QDialog::reject();
}

} // namespace twk::gui
