#include "gui/frmConsoleLogFiles.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

namespace historyText = consoleHistoryText;
namespace historyColumn = consoleHistoryColumn;

constexpr int kHistoryColumnWidths[historyColumn::Count] = {135, 300, 75, 135, 150};

QLabel* makeCount(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

} // namespace

frmConsoleLogFiles::frmConsoleLogFiles(Engine& engine, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), grid_(new QTableWidget(this)),
      lbUndeletedFiles_(makeCount("lbUndeletedFiles", this)),
      lbDeletedFiles_(makeCount("lbDeletedFiles", this)), txtbFileName_(new QLineEdit(this)),
      cmdShow_(new QPushButton(this)), cmdConnectionInfos_(new QPushButton(this)) {
    setObjectName(QStringLiteral("frmConsoleLogFiles"));

    grid_->setObjectName(QStringLiteral("FileGrid1"));
    grid_->setColumnCount(historyColumn::Count);
    grid_->setHorizontalHeaderLabels(historyText::kColumnHeaders);
    for (int c = 0; c < historyColumn::Count; ++c)
        grid_->setColumnWidth(c, kHistoryColumnWidths[c]);
    grid_->horizontalHeader()->setStretchLastSection(true);
    grid_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setDefaultSectionSize(20);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setAlternatingRowColors(true);
    grid_->setWordWrap(false);
    grid_->setMinimumSize(860, 260);
    connect(grid_, &QTableWidget::cellClicked, this, [this](int row, int) {
        model_.FileGrid1_Click(row + 1);
        afterAction();
    });
    connect(grid_, &QTableWidget::currentCellChanged, this,
            [this](int row, int, int previous, int) {
                if (row < 0 || row == previous)
                    return;
                model_.FileGrid1_Click(row + 1);
                afterAction();
            });

    txtbFileName_->setObjectName(QStringLiteral("txtbFileName"));
    connect(txtbFileName_, &QLineEdit::textEdited, this,
            [this](const QString& name) { model_.txtbFileName.text = name; });

    cmdShow_->setObjectName(QStringLiteral("cmdShow"));
    cmdShow_->setMinimumWidth(170);
    connect(cmdShow_, &QPushButton::clicked, this, [this] {
        model_.cmdShow_Click();
        fillGrid();
        afterAction();
    });
    cmdConnectionInfos_->setObjectName(QStringLiteral("cmdConnectionInfos"));
    cmdConnectionInfos_->setAutoDefault(false);
    connect(cmdConnectionInfos_, &QPushButton::clicked, this, [this] {
        model_.cmdConnectionInfos_Click();
        afterAction();
    });

    auto* counts = new QHBoxLayout;
    counts->addWidget(new QLabel(historyText::kUndeletedFiles, this));
    counts->addWidget(lbUndeletedFiles_);
    counts->addSpacing(24);
    counts->addWidget(new QLabel(historyText::kDeletedFiles, this));
    counts->addWidget(lbDeletedFiles_);
    counts->addStretch(1);

    auto* name = new QHBoxLayout;
    name->addWidget(new QLabel(historyText::kFileName, this));
    name->addWidget(txtbFileName_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdConnectionInfos_);
    buttons->addStretch(1);
    buttons->addWidget(cmdShow_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addLayout(counts);
    layout->addLayout(name);
    layout->addLayout(buttons);
    render();
}

frmConsoleLogFiles::~frmConsoleLogFiles() = default;

void frmConsoleLogFiles::showFor(Engine& engine, QWidget* parent) {
    frmConsoleLogFiles form(engine, parent);
    if (form.load())
        form.exec();
}

bool frmConsoleLogFiles::load() {
    const bool loaded = model_.Form_Load();
    fillGrid();
    render();
    return loaded;
}

void frmConsoleLogFiles::fillGrid() {
    const QSignalBlocker block(grid_);
    const auto& rows = model_.FileGrid1;
    grid_->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        for (int c = 1; c <= historyColumn::Count; ++c) {
            const QString cell = rows[static_cast<std::size_t>(r)].cell(c);
            QTableWidgetItem* item = grid_->item(r, c - 1);
            if (item == nullptr) {
                item = new QTableWidgetItem;
                if (c == historyColumn::Size)
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                grid_->setItem(r, c - 1, item);
            }
            if (item->text() != cell)
                item->setText(cell);
        }
    }
}

void frmConsoleLogFiles::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    showLabel(lbUndeletedFiles_, model_.lbUndeletedFiles);
    showLabel(lbDeletedFiles_, model_.lbDeletedFiles);
    showTextBox(txtbFileName_, model_.txtbFileName);
    // A name that cannot be edited stays readable: read-only on grey, not greyed out.
    txtbFileName_->setEnabled(true);
    txtbFileName_->setReadOnly(!model_.txtbFileName.enabled);
    showButton(cmdShow_, model_.cmdShow);
    showButton(cmdConnectionInfos_, model_.cmdConnectionInfos);
    const int row = model_.selectedRow - 1;
    if (row >= 0 && row < grid_->rowCount() && grid_->currentRow() != row) {
        const QSignalBlocker block(grid_);
        grid_->selectRow(row);
    }
}

void frmConsoleLogFiles::afterAction() {
    render();
    if (!model_.helpPageWanted.isEmpty()) {
        const QString page = model_.helpPageWanted;
        model_.helpPageWanted.clear();
        openHelpPage(engine_, page);
    }
    if (model_.closed)
        QDialog::accept();
}

void frmConsoleLogFiles::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        model_.F1_Click();
        afterAction();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmConsoleLogFiles::reject() {
    model_.cmdClose_Click();
    QDialog::reject();
}

void frmConsoleLogFiles::done(int result) {
    model_.Form_Unload();
    QDialog::done(result);
}

} // namespace twk::gui
