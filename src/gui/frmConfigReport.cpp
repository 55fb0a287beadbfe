#include "gui/frmConfigReport.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/ImageList.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

namespace text = configReportText;
namespace column = configReportColumn;

constexpr int kColumnWidths[] = {26, 220, 150, 150, 90};

QLineEdit* makeReadOnlyField(const char* name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setReadOnly(true);
    field->setMinimumWidth(330);
    return field;
}

} // namespace

WaitBar::WaitBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ucWaitBar"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumHeight(14);
    setMaximumHeight(14);
}

void WaitBar::setBlock(int left, int width, int scale) {
    if (left == left_ && width == width_ && scale == scale_)
        return;
    left_ = left;
    width_ = width;
    scale_ = std::max(1, scale);
    update();
}

void WaitBar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Base));
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    const int x = left_ * width() / scale_;
    const int w = std::max(4, width_ * width() / scale_);
    p.fillRect(QRect(x, 2, w, height() - 4).intersected(rect().adjusted(1, 1, -1, -1)),
               QColor(0x1f, 0x4f, 0x99));
}

frmConfigReport::frmConfigReport(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine),
      cbServer_(new QComboBox(this)), cmdCreateReport_(makeButton("cmdCreateReport", this)),
      grid_(new QTableWidget(this)),
      txtbSelectedReport_(makeReadOnlyField("txtbSelectedReport", this)),
      cmdSetAsReport1_(makeButton("cmdSetAsReport1", this)),
      cmdSetAsReport2_(makeButton("cmdSetAsReport2", this)),
      txtbReport1_(makeReadOnlyField("txtbReport1", this)),
      txtbReport2_(makeReadOnlyField("txtbReport2", this)),
      cmdResetReport1_(makeButton("cmdResetReport1", this)),
      cmdResetReport2_(makeButton("cmdResetReport2", this)),
      cmdOpenConfigViewer_(makeButton("cmdOpenConfigViewer", this)),
      cmdExit_(makeButton("cmdExit", this)), ucWaitBar_(new WaitBar(this)) {
    setObjectName(QStringLiteral("frmConfigReport"));
    setWindowIcon(images.icon(text::kReportIcon));
    cbServer_->setObjectName(QStringLiteral("cbServer"));
    cbServer_->setMinimumWidth(180);

    grid_->setObjectName(QStringLiteral("FileGrid1"));
    grid_->setColumnCount(5);
    grid_->setHorizontalHeaderLabels(text::kColumnHeaders);
    for (int c = 0; c < 5; ++c)
        grid_->setColumnWidth(c, kColumnWidths[c]);
    grid_->horizontalHeader()->setStretchLastSection(true);
    grid_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setDefaultSectionSize(20);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setWordWrap(false);
    grid_->setMinimumSize(700, 260);
    grid_->setToolTip(QStringLiteral(" left click: select the report - right click: delete it "));
    grid_->viewport()->installEventFilter(this);
    cbServer_->installEventFilter(this);

    model_.changed = [this] {
        render();
    };
    connect(cbServer_, &QComboBox::activated, this, [this](int index) {
        model_.cbServer.ListIndex = index;
        model_.cbServer_Click();
        afterAction();
    });
    const auto on = [this](QPushButton* button, void (FrmConfigReport::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            (model_.*handler)();
            afterAction();
        });
    };
    on(cmdCreateReport_, &FrmConfigReport::cmdCreateReport_Click);
    on(cmdSetAsReport1_, &FrmConfigReport::cmdSetAsReport1_Click);
    on(cmdSetAsReport2_, &FrmConfigReport::cmdSetAsReport2_Click);
    on(cmdResetReport1_, &FrmConfigReport::cmdResetReport1_Click);
    on(cmdResetReport2_, &FrmConfigReport::cmdResetReport2_Click);
    on(cmdOpenConfigViewer_, &FrmConfigReport::cmdOpenConfigViewer_Click);
    on(cmdExit_, &FrmConfigReport::cmdExit_Click);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("server:"), this));
    top->addWidget(cbServer_);
    top->addWidget(cmdCreateReport_);
    top->addStretch(1);

    auto* selected = new QHBoxLayout;
    selected->addWidget(new QLabel(model_.lbSelectedReport.text, this));
    selected->addWidget(txtbSelectedReport_, 1);
    selected->addWidget(new QLabel(model_.lbSetAs.text, this));
    selected->addWidget(cmdSetAsReport1_);
    selected->addWidget(cmdSetAsReport2_);

    auto* picConfigViewerFrame = new QGroupBox(QStringLiteral("report viewer"), this);
    picConfigViewerFrame->setObjectName(QStringLiteral("picConfigViewerFrame"));
    auto* reportSlots = new QGridLayout(picConfigViewerFrame);
    reportSlots->addWidget(new QLabel(model_.lbConfigViewerReport1.text, this), 0, 0);
    reportSlots->addWidget(txtbReport1_, 0, 1);
    reportSlots->addWidget(cmdResetReport1_, 0, 2);
    reportSlots->addWidget(new QLabel(model_.lbConfigViewerReport2.text, this), 1, 0);
    reportSlots->addWidget(txtbReport2_, 1, 1);
    reportSlots->addWidget(cmdResetReport2_, 1, 2);
    reportSlots->addWidget(cmdOpenConfigViewer_, 0, 3, 2, 1);
    reportSlots->setColumnStretch(1, 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(ucWaitBar_, 1);
    bottom->addSpacing(12);
    bottom->addWidget(cmdExit_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(grid_, 1);
    layout->addLayout(selected);
    layout->addWidget(picConfigViewerFrame);
    layout->addLayout(bottom);
    render();
}

void frmConfigReport::load() {
    model_.Form_Load();
    afterAction();
}

void frmConfigReport::fillGrid() {
    const auto& rows = model_.FileGrid1;
    const QSignalBlocker block(grid_);
    if (shownListing_ != model_.listingNumber() ||
        grid_->rowCount() > static_cast<int>(rows.size())) {
        shownListing_ = model_.listingNumber();
        grid_->setRowCount(0);
    }
    const int from = grid_->rowCount();
    grid_->setRowCount(static_cast<int>(rows.size()));
    for (int r = from; r < static_cast<int>(rows.size()); ++r) {
        const ConfigFileRow& row = rows[static_cast<std::size_t>(r)];
        auto* icon = new QTableWidgetItem;
        icon->setIcon(images_.icon(row.cell(column::Icon)));
        grid_->setItem(r, 0, icon);
        for (int c = column::Name; c <= column::Size; ++c) {
            auto* item = new QTableWidgetItem(row.cell(c));
            if (c == column::Size)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            grid_->setItem(r, c - 1, item);
        }
    }
}

void frmConfigReport::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    showList(cbServer_, model_.cbServer);
    showButton(cmdCreateReport_, model_.cmdCreateReport);
    fillGrid();
    showTextBox(txtbSelectedReport_, model_.txtbSelectedReport);
    showTextBox(txtbReport1_, model_.txtbReport1);
    showTextBox(txtbReport2_, model_.txtbReport2);
    for (auto [button, state] : {std::pair{cmdSetAsReport1_, &model_.cmdSetAsReport1},
                                 std::pair{cmdSetAsReport2_, &model_.cmdSetAsReport2},
                                 std::pair{cmdResetReport1_, &model_.cmdResetReport1},
                                 std::pair{cmdResetReport2_, &model_.cmdResetReport2},
                                 std::pair{cmdOpenConfigViewer_, &model_.cmdOpenConfigViewer},
                                 std::pair{cmdExit_, &model_.cmdExit}})
        showButton(button, *state);
    ucWaitBar_->setVisible(model_.ucWaitBarVisible);
    ucWaitBar_->setBlock(model_.waitBarLeft, FrmConfigReport::kWaitBarWidth,
                         FrmConfigReport::kWaitBarScaleWidth);
    if (!model_.focus.isEmpty()) {
        if (QWidget* target = childNamed(this, model_.focus);
            target != nullptr && target->isVisible() && target->isEnabled())
            target->setFocus(Qt::OtherFocusReason);
        model_.focus.clear();
    }
}

void frmConfigReport::afterAction() {
    render();
    if (model_.closed)
        QDialog::accept();
}

bool frmConfigReport::eventFilter(QObject* watched, QEvent* event) {
    if (watched == cbServer_ && event->type() == QEvent::FocusIn) {
        model_.cbServer_GotFocus();
        render();
    } else if (watched == grid_->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const int row = grid_->rowAt(mouse->position().toPoint().y());
        if (row >= 0 && (mouse->button() == Qt::LeftButton || mouse->button() == Qt::RightButton)) {
            grid_->selectRow(row);
            model_.FileGrid1_MouseUp(mouse->button() == Qt::LeftButton ? MouseButton::Left
                                                                       : MouseButton::Right,
                                     row + 1);
            afterAction();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmConfigReport::reject() {
    if (model_.ucWaitBarVisible || model_.configTimerEnabled())
        return; // a report is being made: exit is disabled
    model_.cmdExit_Click();
    QDialog::reject();
}

} // namespace twk::gui
