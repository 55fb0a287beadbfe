#include "gui/frmFilterSYSLOG.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/ImageList.h"
#include "logs/Vocabulary.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
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

constexpr int kPreviewSize = 32;
const QString kFilterCaption = QStringLiteral("Filter Events...");

// The status image beside each severity box, in pass order.
constexpr std::array<int, 8> kSeverityImages = {0, 1, 2, 6, 5, 3, 4, kImageUnknownStatus};
constexpr std::array<const char*, 8> kSeverityNames = {
    "chkInformational", "chkWarning",  "chkRecovered", "chkAborted1",
    "chkAborted2",      "chkCritical", "chkFatal",     "chkUnkown"};

QComboBox* makeFilterList(const char* name, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setMaxVisibleItems(24);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return combo;
}

QLineEdit* makeSearchField(const char* name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setMinimumWidth(260);
    return field;
}

} // namespace

frmFilterSYSLOG::frmFilterSYSLOG(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine) {
    setObjectName(QStringLiteral("frmFilterSYSLOG"));
    setWindowTitle(kFilterCaption);
    model_.Form_Load();

    cmdFilter_ = makeButton("cmdFilter", this);
    cmdCancel_ = makeButton("cmdCancel", this);
    cmdFilter_->setDefault(true);
    connect(cmdFilter_, &QPushButton::clicked, this, &frmFilterSYSLOG::runFilter);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmFilterSYSLOG::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdFilter_);
    buttons->addWidget(cmdCancel_);

    auto* columns = new QHBoxLayout;
    columns->addWidget(buildSeverities());
    auto* right = new QVBoxLayout;
    right->addWidget(buildSelectors());
    right->addWidget(buildSearches());
    right->addWidget(buildDates());
    columns->addLayout(right, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(buttons);
    render();
}

QWidget* frmFilterSYSLOG::buildSeverities() {
    auto* box = new QGroupBox(QStringLiteral(" Status "), this);
    auto* layout = new QVBoxLayout(box);
    for (std::size_t i = 0; i < severity_.size(); ++i) {
        auto* check = new QCheckBox(box);
        check->setObjectName(QString::fromLatin1(kSeverityNames[i]));
        check->setIcon(images_.icon(kSeverityImages[i]));
        const int pass = static_cast<int>(i);
        connect(check, &QCheckBox::toggled, this,
                [this, pass](bool on) { model_.severityBox(pass)->checked = on; });
        severity_[i] = check;
        layout->addWidget(check);
    }
    layout->addStretch();
    cmdSelectAll_ = makeButton("cmdSelectAll", box);
    cmdDeselectAll_ = makeButton("cmdDeselectAll", box);
    connect(cmdSelectAll_, &QPushButton::clicked, this,
            [this] { act([this] { model_.cmdSelectAll_Click(); }); });
    connect(cmdDeselectAll_, &QPushButton::clicked, this,
            [this] { act([this] { model_.cmdDeselectAll_Click(); }); });
    layout->addWidget(cmdSelectAll_);
    layout->addWidget(cmdDeselectAll_);
    return box;
}

QWidget* frmFilterSYSLOG::buildSelectors() {
    auto* box = new QGroupBox(QStringLiteral(" Source, Category and Event "), this);
    auto* grid = new QGridLayout(box);
    cbSource_ = makeFilterList("cbSource", box);
    cbCategory_ = makeFilterList("cbCategory", box);
    cbEventType_ = makeFilterList("cbEventType", box);
    picEvent_ = new QLabel(box);
    picEvent_->setObjectName(QStringLiteral("picEvent"));
    picEvent_->setFixedSize(kPreviewSize + 8, kPreviewSize + 8);
    picEvent_->setAlignment(Qt::AlignCenter);
    picEvent_->setFrameShape(QFrame::StyledPanel);
    grid->addWidget(new QLabel(QStringLiteral("Source:"), box), 0, 0);
    grid->addWidget(cbSource_, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Category:"), box), 1, 0);
    grid->addWidget(cbCategory_, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("Event:"), box), 2, 0);
    grid->addWidget(cbEventType_, 2, 1);
    grid->addWidget(picEvent_, 0, 2, 3, 1, Qt::AlignCenter);
    grid->setColumnStretch(1, 1);

    const auto choose = [this](QComboBox* combo, ListState& list,
                               void (FrmFilterSYSLOG::*handler)()) {
        connect(combo, &QComboBox::activated, this, [this, &list, handler](int index) {
            act([this, &list, handler, index] {
                list.ListIndex = index;
                (model_.*handler)();
            });
        });
    };
    choose(cbSource_, model_.cbSource, &FrmFilterSYSLOG::cbSource_Click);
    choose(cbCategory_, model_.cbCategory, &FrmFilterSYSLOG::cbCategory_Click);
    choose(cbEventType_, model_.cbEventType, &FrmFilterSYSLOG::cbEventType_Click);
    return box;
}

QWidget* frmFilterSYSLOG::buildSearches() {
    auto* box = new QGroupBox(QStringLiteral(" Search Strings "), this);
    auto* grid = new QGridLayout(box);
    txbErrorNr_ = makeSearchField("txbErrorNr", box);
    txbErrMsg_ = makeSearchField("txbErrMsg", box);
    grid->addWidget(new QLabel(QStringLiteral("Error #:"), box), 0, 0);
    grid->addWidget(txbErrorNr_, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Error Message:"), box), 1, 0);
    grid->addWidget(txbErrMsg_, 1, 1);
    onFocusIn(txbErrorNr_, [this] { act([this] { model_.txbErrorNr_GotFocus(); }); });
    onFocusIn(txbErrMsg_, [this] { act([this] { model_.txbErrMsg_GotFocus(); }); });
    connect(txbErrorNr_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txbErrorNr.text = text; });
    connect(txbErrMsg_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txbErrMsg.text = text; });
    return box;
}

QWidget* frmFilterSYSLOG::buildDates() {
    auto* box = new QGroupBox(QStringLiteral(" Date Range "), this);
    auto* grid = new QGridLayout(box);
    cbStartDate_ = makeFilterList("cbStartDate", box);
    cbEndDate_ = makeFilterList("cbEndDate", box);
    calStartDate_ = makeCalendarField(QStringLiteral("calStartDate"), box);
    calEndDate_ = makeCalendarField(QStringLiteral("calEndDate"), box);
    grid->addWidget(new QLabel(QStringLiteral("from:"), box), 0, 0);
    grid->addWidget(cbStartDate_, 0, 1);
    grid->addWidget(calStartDate_, 0, 2);
    grid->addWidget(new QLabel(QStringLiteral("to:"), box), 1, 0);
    grid->addWidget(cbEndDate_, 1, 1);
    grid->addWidget(calEndDate_, 1, 2);
    grid->setColumnStretch(3, 1);
    grid->setColumnMinimumWidth(2, 120);

    connect(cbStartDate_, &QComboBox::activated, this, [this](int index) {
        act([this, index] {
            model_.cbStartDate.ListIndex = index;
            model_.cbStartDate_Click();
        });
    });
    connect(cbEndDate_, &QComboBox::activated, this, [this](int index) {
        act([this, index] {
            model_.cbEndDate.ListIndex = index;
            model_.cbEndDate_Click();
        });
    });
    const auto dateOf = [](QDateEdit* field, const QDate& date) {
        return date == field->minimumDate() ? QDate() : date;
    };
    connect(calStartDate_, &QDateEdit::dateChanged, this, [this, dateOf](const QDate& date) {
        model_.calStartDate.Value = dateOf(calStartDate_, date);
    });
    connect(calEndDate_, &QDateEdit::dateChanged, this, [this, dateOf](const QDate& date) {
        model_.calEndDate.Value = dateOf(calEndDate_, date);
    });
    return box;
}

template <typename Handler> void frmFilterSYSLOG::act(Handler handler) {
    model_.focus.clear();
    handler();
    render();
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
}

void frmFilterSYSLOG::render() {
    for (std::size_t i = 0; i < severity_.size(); ++i)
        showCheckBox(severity_[i], *model_.severityBox(static_cast<int>(i)));
    showList(cbSource_, model_.cbSource);
    showList(cbCategory_, model_.cbCategory);
    showList(cbEventType_, model_.cbEventType);
    showList(cbStartDate_, model_.cbStartDate);
    showList(cbEndDate_, model_.cbEndDate);
    showTextBox(txbErrorNr_, model_.txbErrorNr);
    showTextBox(txbErrMsg_, model_.txbErrMsg);
    showCalendar(calStartDate_, model_.calStartDate);
    showCalendar(calEndDate_, model_.calEndDate);
    showButton(cmdSelectAll_, model_.cmdSelectAll);
    showButton(cmdDeselectAll_, model_.cmdDeselectAll);
    showButton(cmdFilter_, model_.cmdFilter);
    showButton(cmdCancel_, model_.cmdCancel);
    if (shownEventKey_ != model_.picEvent) {
        shownEventKey_ = model_.picEvent;
        // "(all)" has no image of its own in the image list; the event picture stands for it.
        if (shownEventKey_ == QStringLiteral("ALL"))
            picEvent_->setPixmap(images_.pixmap(QStringLiteral("EVENT"), kPreviewSize));
        else if (shownEventKey_.isEmpty())
            picEvent_->clear();
        else
            picEvent_->setPixmap(images_.scaledPixmap(
                EventTypeImageOfKey(shownEventKey_.toStdString()), kPreviewSize));
    }
}

void frmFilterSYSLOG::runFilter() {
    if (running_)
        return;
    running_ = true;
    act([this] { model_.cmdFilter_Click(); });
    running_ = false;
    if (model_.closed)
        accept();
}

void frmFilterSYSLOG::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    act([this] {
        model_.Form_Activate();
        model_.focus = QStringLiteral("chkInformational");
    });
}

void frmFilterSYSLOG::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, filterText::kHelpPage);
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmFilterSYSLOG::reject() {
    if (running_)
        return; // the passes run to their end
    model_.cmdCancel_Click();
    QDialog::reject();
}

} // namespace twk::gui
