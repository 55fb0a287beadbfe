#include "gui/frmHealthCheckOptions.h"

#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "healthcheck/HealthCheckForm.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

const char* const kTabNames[] = {"Intro", "Step1", "Step2", "Step3", "Step4",
                                 "Step5", "Step6", "Step7", "Misc"};
const char* const kCommandKinds[] = {"Prev", "Next", "Save", "Exit"};
const char* const kPaneParts[] = {"HelpHeader", "HelpDescription", "DefaultValue", "CurrentSetting",
                                  "Range"};

bool hasField(int tab) {
    return tab == 3 || tab == 4 || tab == 7;
}

/// The slot of tab 3, 4 or 7 in the arrays of fields and panes.
std::size_t fieldIndex(int tab) {
    return tab == 3 ? 0 : tab == 4 ? 1 : 2;
}

QLabel* label(const QString& name, QWidget* parent, bool wrap = false) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setWordWrap(wrap);
    return l;
}

} // namespace

frmHealthCheckOptions::frmHealthCheckOptions(Engine& engine, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), tabs_(new QTabWidget(this)) {
    setObjectName(QStringLiteral("frmHealthCheckOptions"));
    setWindowTitle(QStringLiteral(" NDS-/eDirectory Health Check Options"));
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    for (int tab = 0; tab < 9; ++tab) {
        const QString title = tab == 0   ? QStringLiteral("introduction")
                              : tab == 8 ? QStringLiteral("miscellaneous")
                                         : QStringLiteral("STEP %1").arg(tab);
        tabs_->addTab(buildTab(tab), title);
    }
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        if (rendering_)
            return;
        handle([this, index] {
            model_.SSTab1 = index;
            model_.SSTab1_Click();
        });
    });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    setMinimumSize(640, 440);
    render();
}

QWidget* frmHealthCheckOptions::buildTab(int tab) {
    auto* page = new QWidget(tabs_);
    const QString x = QLatin1String(kTabNames[tab]);
    auto* frame = new QVBoxLayout(page);
    page->setObjectName(QStringLiteral("frame") + x);
    auto* header = label(QStringLiteral("lb") + x + QStringLiteral("Header"), page);
    QFont bold = header->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    header->setFont(bold);
    frame->addWidget(header);
    if (tab == 0) {
        header->setText(QStringLiteral("NDS-/eDirectory Health Check"));
        frame->addWidget(buildIntro(page), 1);
    } else if (tab == 8) {
        header->setText(QStringLiteral("Miscellaneous"));
        auto* hint = label(QStringLiteral("lbMiscTIDHint"), page, true);
        hint->setText(model_.lbMiscTIDHint);
        frame->addWidget(hint);
        frame->addStretch();
    } else {
        header->setText(stepCaption(tab));
        auto* description =
            label(QStringLiteral("lb") + x + QStringLiteral("Description"), page, true);
        description->setText(ShowHealthCheckHelp(tab).lbStepHelp);
        frame->addWidget(description);
        if (tab == 3) {
            CheckBoxState* states[] = {&model_.chk1Step3, &model_.chk2Step3, &model_.chk3Step3,
                                       &model_.chk4Step3};
            for (int box = 1; box <= 4; ++box) {
                auto* check = new QCheckBox(states[box - 1]->caption, page);
                check->setObjectName(QStringLiteral("chk%1Step3").arg(box));
                checks_[static_cast<std::size_t>(box - 1)] = check;
                connect(check, &QCheckBox::clicked, this, [this, box, states](bool on) {
                    handle([this, box, states, on] {
                        states[box - 1]->checked = on;
                        model_.chkStep3_Click(box);
                    });
                });
                frame->addWidget(check);
            }
        }
        if (hasField(tab)) {
            auto* row = new QHBoxLayout;
            const QString caption =
                tab == 4 ? QStringLiteral("replica &synchronization time difference:")
                         : QStringLiteral("health check &duration:");
            auto* duration = label(QStringLiteral("lb") + x + QStringLiteral("Duration"), page);
            duration->setText(caption);
            QLineEdit* field = buildField(tab, page);
            duration->setBuddy(field);
            row->addWidget(duration);
            row->addWidget(field);
            row->addWidget(
                new QLabel(tab == 4 ? QStringLiteral("minutes") : QStringLiteral("seconds"), page));
            row->addStretch();
            frame->addLayout(row);
            frame->addWidget(buildHelpPane(tab, page), 1);
        } else {
            auto* none = label(QStringLiteral("lb") + x + QStringLiteral("NoOptions"), page);
            none->setText(optionsText::kNoOptions);
            frame->addWidget(none);
            frame->addStretch();
        }
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    const char* captions[] = {"< &Back", "&Next >", "&Save", "E&xit"};
    for (int kind = 0; kind < 4; ++kind) {
        auto* button = new QPushButton(QLatin1String(captions[kind]), page);
        button->setObjectName(QStringLiteral("cmd") + x + QLatin1String(kCommandKinds[kind]));
        commands_[static_cast<std::size_t>(tab)][static_cast<std::size_t>(kind)] = button;
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, tab, kind] {
            handle([this, tab, kind] {
                switch (kind) {
                case 0:
                    model_.PreviousTab();
                    break;
                case 1:
                    model_.NextTab();
                    break;
                case 2:
                    if (tab == 3)
                        model_.cmdStep3Save_Click();
                    else if (tab == 4)
                        model_.cmdStep4Save_Click();
                    else if (tab == 7)
                        model_.cmdStep7Save_Click();
                    break;
                default:
                    model_.cmdExit_Click();
                }
            });
        });
    }
    frame->addLayout(buttons);
    return page;
}

QWidget* frmHealthCheckOptions::buildIntro(QWidget* page) {
    auto* box = new QWidget(page);
    auto* grid = new QGridLayout(box);
    for (int step = 1; step <= 7; ++step) {
        auto* jump = new QPushButton(QStringLiteral("%1").arg(step), box);
        jump->setObjectName(QStringLiteral("cmdHelp%1").arg(step));
        jump->setFixedWidth(32);
        auto* link = new ClickLabel(stepCaption(step), box);
        link->setObjectName(QStringLiteral("roLabel%1").arg(step));
        link->setCursor(Qt::PointingHandCursor);
        connect(jump, &QPushButton::clicked, this,
                [this, step] { handle([this, step] { model_.cmdHelp_Click(step); }); });
        connect(link, &ClickLabel::clicked, this,
                [this, step] { handle([this, step] { model_.roLabel_Click(step); }); });
        grid->addWidget(jump, step - 1, 0);
        grid->addWidget(link, step - 1, 1);
    }
    lbIntroHeader_ = label(QStringLiteral("lbIntroHeader"), box);
    lbIntroDescription_ = label(QStringLiteral("lbIntroDescription"), box, true);
    grid->addWidget(lbIntroHeader_, 7, 0, 1, 2);
    grid->addWidget(lbIntroDescription_, 8, 0, 1, 2);
    grid->setRowStretch(9, 1);
    return box;
}

QLineEdit* frmHealthCheckOptions::buildField(int tab, QWidget* page) {
    auto* field = new QLineEdit(page);
    field->setObjectName(QStringLiteral("txtb1Step%1").arg(tab));
    field->setMaximumWidth(80);
    fields_[fieldIndex(tab)] = field;
    TextBoxState* state = tab == 3   ? &model_.txtb1Step3
                          : tab == 4 ? &model_.txtb1Step4
                                     : &model_.txtb1Step7;
    connect(field, &QLineEdit::textEdited, this, [state](const QString& t) { state->text = t; });
    onFocusIn(field, [this, tab] {
        handle([this, tab] {
            model_.focus = QStringLiteral("txtb1Step%1").arg(tab);
            model_.txtb1_GotFocus(tab);
        });
    });
    field->installEventFilter(this);
    return field;
}

QWidget* frmHealthCheckOptions::buildHelpPane(int tab, QWidget* page) {
    auto* pane = new QWidget(page);
    auto* form = new QFormLayout(pane);
    auto& labels = panes_[fieldIndex(tab)];
    const char* captions[] = {"", "", "default value:", "current setting:", "range:"};
    for (int part = 0; part < 5; ++part) {
        QLabel* l = label(QStringLiteral("lbStep%1").arg(tab) + QLatin1String(kPaneParts[part]),
                          pane, part == 1);
        labels[static_cast<std::size_t>(part)] = l;
        if (part < 2)
            form->addRow(l);
        else
            form->addRow(QLatin1String(captions[part]), l);
    }
    return pane;
}

const OptionHelpPane& frmHealthCheckOptions::pane(int tab) const {
    return tab == 3 ? model_.step3Help : tab == 4 ? model_.step4Help : model_.step7Help;
}

QLineEdit* frmHealthCheckOptions::txtb1(int tab) const {
    return hasField(tab) ? fields_[fieldIndex(tab)] : nullptr;
}

QPushButton* frmHealthCheckOptions::command(int tab, const char* kind) const {
    for (int k = 0; k < 4; ++k)
        if (qstrcmp(kind, kCommandKinds[k]) == 0)
            return commands_[static_cast<std::size_t>(tab)][static_cast<std::size_t>(k)];
    return nullptr;
}

QLabel* frmHealthCheckOptions::currentSetting(int tab) const {
    return hasField(tab) ? panes_[fieldIndex(tab)][3] : nullptr;
}

void frmHealthCheckOptions::handle(const std::function<void()>& handler) {
    handler();
    render();
    if (model_.closed)
        done(QDialog::Accepted);
}

void frmHealthCheckOptions::render() {
    rendering_ = true;
    tabs_->setCurrentIndex(model_.SSTab1);
    const CheckBoxState* states[] = {&model_.chk1Step3, &model_.chk2Step3, &model_.chk3Step3,
                                     &model_.chk4Step3};
    for (int box = 0; box < 4; ++box)
        showCheckBox(checks_[static_cast<std::size_t>(box)], *states[box]);
    showTextBox(fields_[0], model_.txtb1Step3);
    showTextBox(fields_[1], model_.txtb1Step4);
    showTextBox(fields_[2], model_.txtb1Step7);
    for (const int tab : {3, 4, 7}) {
        const OptionHelpPane& p = pane(tab);
        const QString* texts[] = {&p.lbHelpHeader, &p.lbHelpDescription, &p.lbDefaultValue,
                                  &p.lbCurrentSetting, &p.lbRange};
        for (int part = 0; part < 5; ++part)
            panes_[fieldIndex(tab)][static_cast<std::size_t>(part)]->setText(*texts[part]);
    }
    for (int tab = 0; tab < 9; ++tab) {
        const TabCommands& c = model_.tabs[static_cast<std::size_t>(tab)];
        const ButtonState* states4[] = {&c.cmdPrev, &c.cmdNext, &c.cmdSave, &c.cmdExit};
        for (int kind = 0; kind < 4; ++kind)
            showButton(commands_[static_cast<std::size_t>(tab)][static_cast<std::size_t>(kind)],
                       *states4[kind]);
    }
    lbIntroHeader_->setText(model_.lbIntroHeader.text);
    lbIntroDescription_->setText(model_.lbIntroDescription.text);
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus();
    rendering_ = false;
}

bool frmHealthCheckOptions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    int tab = 0;
    for (const int t : {3, 4, 7})
        if (watched == txtb1(t))
            tab = t;
    if (tab == 0)
        return QDialog::eventFilter(watched, event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        handle([this, tab] { model_.enterInField(tab); });
        return true;
    }
    const QString text = key->text();
    if (!text.isEmpty() && !model_.Form_KeyPress(text.at(0).unicode()))
        return true; // only digits and the editing keys reach the field
    return QDialog::eventFilter(watched, event);
}

void frmHealthCheckOptions::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        openHelpPage(engine_, model_.helpTopic());
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmHealthCheckOptions::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    handle([this] { model_.Form_Activate(); });
}

} // namespace twk::gui
