#include "gui/ConfigViewerWindow.h"

#include "gui/ReportRowsModel.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

const QString kCaption = QStringLiteral(" Configuration Report Viewer");
constexpr int kMaxTextWidth = 40000;

QTableView* makeView(const char* name, ReportRowsModel* model, QWidget* parent) {
    auto* view = new QTableView(parent);
    view->setObjectName(QString::fromLatin1(name));
    view->setModel(model);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 2);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setWordWrap(false);
    view->setShowGrid(false);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setAutoScroll(false); // the window scrolls to the rows it chooses itself
    return view;
}

std::vector<int> rowsOfLines(const ReportComparison& c, int lines, bool right) {
    std::vector<int> rows(static_cast<std::size_t>(lines), -1);
    for (int r = 0; r < static_cast<int>(c.rows.size()); ++r) {
        const int line = right ? c.rows[static_cast<std::size_t>(r)].right
                               : c.rows[static_cast<std::size_t>(r)].left;
        if (line >= 0 && line < lines)
            rows[static_cast<std::size_t>(line)] = r;
    }
    return rows;
}

void fitColumns(QTableView* view, const ConfigReportText* report) {
    const QFontMetrics fm(view->font());
    const int numberWidth = fm.horizontalAdvance(QStringLiteral("00000000")) + 10;
    view->setColumnWidth(0, numberWidth);
    const int longest = report != nullptr ? report->longestLine() : 0;
    view->setColumnWidth(1,
                         std::clamp(longest * fm.horizontalAdvance(u'M') + 24, 200, kMaxTextWidth));
}

} // namespace

ConfigViewerWindow::ConfigViewerWindow(QString networkFolder, QWidget* parent)
    : QMainWindow(parent), networkFolder_(std::move(networkFolder)),
      leftModel_(new ReportRowsModel(ReportRowsModel::Left, this)),
      rightModel_(new ReportRowsModel(ReportRowsModel::Right, this)),
      leftView_(makeView("leftView", leftModel_, this)),
      rightView_(makeView("rightView", rightModel_, this)), navigator_(new QListWidget(this)),
      findField_(new QLineEdit(this)), summary_(new QLabel(this)) {
    setObjectName(QStringLiteral("ConfigViewer"));
    setWindowTitle(kCaption);
    showProblem = [this](const QString& text) {
        QMessageBox::warning(this, QStringLiteral(" Tarnwick"), text);
    };
    navigator_->setObjectName(QStringLiteral("navigator"));
    navigator_->setMinimumWidth(220);
    findField_->setObjectName(QStringLiteral("findField"));
    findField_->setPlaceholderText(QStringLiteral("find (Ctrl+F, F3)"));
    findField_->setClearButtonEnabled(true);
    findField_->setMaximumWidth(260);
    summary_->setObjectName(QStringLiteral("summary"));

    auto* reports = new QSplitter(Qt::Horizontal, this);
    reports->addWidget(leftView_);
    reports->addWidget(rightView_);
    auto* main = new QSplitter(Qt::Horizontal, this);
    main->addWidget(navigator_);
    main->addWidget(reports);
    main->setStretchFactor(1, 1);
    setCentralWidget(main);
    statusBar()->addPermanentWidget(summary_);

    // The two sides scroll together, down and across.
    const auto together = [this](QScrollBar* from, QScrollBar* to) {
        connect(from, &QScrollBar::valueChanged, this, [to](int value) {
            if (to->value() != value)
                to->setValue(value);
        });
    };
    together(leftView_->verticalScrollBar(), rightView_->verticalScrollBar());
    together(rightView_->verticalScrollBar(), leftView_->verticalScrollBar());
    together(leftView_->horizontalScrollBar(), rightView_->horizontalScrollBar());
    together(rightView_->horizontalScrollBar(), leftView_->horizontalScrollBar());
    connect(leftView_, &QTableView::clicked, this,
            [this](const QModelIndex& index) { rowChosen(index.row(), false); });
    connect(rightView_, &QTableView::clicked, this,
            [this](const QModelIndex& index) { rowChosen(index.row(), true); });
    connect(navigator_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { navigatorClicked(navigator_->row(item)); });
    connect(navigator_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { navigatorClicked(navigator_->row(item)); });
    connect(findField_, &QLineEdit::returnPressed, this, [this] { find(true); });
    buildActions();
    resize(1200, 760);
    showReports();
}

ConfigViewerWindow::~ConfigViewerWindow() = default;

void ConfigViewerWindow::buildActions() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    QMenu* go = menuBar()->addMenu(QStringLiteral("&Go"));
    QToolBar* bar = addToolBar(QStringLiteral("tools"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    const auto action = [this](QMenu* menu, const QString& text, const QKeySequence& keys,
                               const char* name, auto handler) {
        auto* a = menu->addAction(text);
        a->setObjectName(QString::fromLatin1(name));
        a->setShortcut(keys);
        connect(a, &QAction::triggered, this, handler);
        return a;
    };
    action(file, QStringLiteral("open report &1..."), QKeySequence::Open, "actOpen1",
           [this] { openFile(false); });
    action(file, QStringLiteral("open report &2 to compare..."), QKeySequence(), "actOpen2",
           [this] { openFile(true); });
    file->addSeparator();
    action(file, QStringLiteral("&close"), QKeySequence::Quit, "actClose", [this] { close(); });
    QAction* next = action(go, QStringLiteral("&next difference"), QKeySequence(Qt::Key_F8),
                           "actNextDifference", [this] { nextDifference(); });
    QAction* previous =
        action(go, QStringLiteral("&previous difference"), QKeySequence(Qt::SHIFT | Qt::Key_F8),
               "actPreviousDifference", [this] { previousDifference(); });
    go->addSeparator();
    action(go, QStringLiteral("&find..."), QKeySequence::Find, "actFind", [this] {
        findField_->setFocus();
        findField_->selectAll();
    });
    QAction* findNext = action(go, QStringLiteral("find ne&xt"), QKeySequence(Qt::Key_F3),
                               "actFindNext", [this] { find(true); });
    action(go, QStringLiteral("find pre&vious"), QKeySequence(Qt::SHIFT | Qt::Key_F3),
           "actFindPrevious", [this] { find(false); });
    bar->addAction(previous);
    bar->addAction(next);
    bar->addSeparator();
    bar->addWidget(findField_);
    bar->addAction(findNext);
}

bool ConfigViewerWindow::loadReport(const QString& path, std::unique_ptr<ConfigReportText>& into) {
    auto report = std::make_unique<ConfigReportText>();
    QString error;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool loaded = report->load(reportLocalPath(path, networkFolder_), error,
                                     [] { QCoreApplication::processEvents(); });
    QApplication::restoreOverrideCursor();
    if (!loaded) {
        showProblem(error);
        return false;
    }
    into = std::move(report);
    return true;
}

bool ConfigViewerWindow::openReports(const QString& report1, const QString& report2) {
    bool ok = true;
    std::unique_ptr<ConfigReportText> left;
    std::unique_ptr<ConfigReportText> right;
    if (!report1.isEmpty() && !loadReport(report1, left))
        ok = false;
    if (!report2.isEmpty() && !loadReport(report2, right))
        ok = false;
    if (!left && right)
        std::swap(left, right); // the one that could be read is shown alone
    leftModel_->setRows(nullptr, nullptr);
    rightModel_->setRows(nullptr, nullptr);
    left_ = std::move(left);
    right_ = std::move(right);
    showReports();
    return ok;
}

void ConfigViewerWindow::showReports() {
    comparison_ = {};
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (left_ && right_)
        comparison_ = compareReports(*left_, *right_, [] { QCoreApplication::processEvents(); });
    else if (left_)
        comparison_ = singleReport(*left_);
    QApplication::restoreOverrideCursor();
    leftRowOfLine_ =
        left_ ? rowsOfLines(comparison_, left_->lineCount(), false) : std::vector<int>{};
    rightRowOfLine_ =
        right_ ? rowsOfLines(comparison_, right_->lineCount(), true) : std::vector<int>{};
    leftModel_->setRows(left_.get(), &comparison_);
    rightModel_->setRows(right_.get(), &comparison_);
    rightView_->setVisible(right_ != nullptr);
    fitColumns(leftView_, left_.get());
    fitColumns(rightView_, right_.get());

    QStringList names;
    for (const auto* r : {left_.get(), right_.get()})
        if (r != nullptr)
            names << QFileInfo(r->path()).fileName();
    setWindowTitle(names.isEmpty()
                       ? kCaption
                       : kCaption + QStringLiteral(" - ") + names.join(QStringLiteral("  <->  ")));
    if (right_) {
        const int n = static_cast<int>(comparison_.differences.size());
        summary_->setText(n == 0 ? QStringLiteral("no differences")
                                 : QStringLiteral("%1 difference%2 in %3 section%4")
                                       .arg(n)
                                       .arg(n == 1 ? "" : "s")
                                       .arg(comparison_.sectionsWithDifferences)
                                       .arg(comparison_.sectionsWithDifferences == 1 ? "" : "s"));
    } else if (left_) {
        summary_->setText(QStringLiteral("%1 lines in %2 sections")
                              .arg(left_->lineCount())
                              .arg(left_->sections().size()));
    } else {
        summary_->setText(QStringLiteral("no report open"));
    }
    fillNavigator();
    currentRow_ = 0;
    if (right_ && !comparison_.differences.empty())
        goToRow(comparison_.differences.front().firstRow);
    else if (!comparison_.rows.empty())
        goToRow(0);
}

void ConfigViewerWindow::fillNavigator() {
    navigator_->clear();
    if (right_) {
        for (const ReportDifference& d : comparison_.differences)
            navigator_->addItem(ConfigReportText::sectionName(d.section) + QStringLiteral(": ") +
                                differenceKindText(d.kind) + QStringLiteral("\n    ") +
                                differenceLines(d));
    } else if (left_) {
        for (const ReportSection& s : left_->sections())
            navigator_->addItem(ConfigReportText::sectionName(s.title) +
                                QStringLiteral("\n    line %1").arg(s.firstLine + 1));
    }
}

void ConfigViewerWindow::navigatorClicked(int item) {
    if (item < 0)
        return;
    if (right_) {
        if (item < static_cast<int>(comparison_.differences.size()))
            goToRow(comparison_.differences[static_cast<std::size_t>(item)].firstRow);
    } else if (left_ && item < static_cast<int>(left_->sections().size())) {
        const int line = left_->sections()[static_cast<std::size_t>(item)].firstLine;
        goToRow(leftRowOfLine_[static_cast<std::size_t>(line)]);
    }
}

void ConfigViewerWindow::goToRow(int row) {
    if (row < 0 || row >= static_cast<int>(comparison_.rows.size()))
        return;
    currentRow_ = row;
    for (QTableView* view : {leftView_, rightView_}) {
        if (!view->isVisibleTo(this) && view == rightView_)
            continue;
        const QModelIndex index = view->model()->index(row, 1);
        view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                           QItemSelectionModel::Rows);
        // Scrolled down only, the row in the middle: the text column is wider than the
        // view, and scrolling across to it would hide the line numbers.
        const int rowHeight = std::max(1, view->verticalHeader()->defaultSectionSize());
        const int visibleRows = std::max(1, view->viewport()->height() / rowHeight);
        view->verticalScrollBar()->setValue(std::max(0, row - visibleRows / 2));
    }
}

void ConfigViewerWindow::rowChosen(int row, bool rightSide) {
    searchRight_ = rightSide;
    goToRow(row);
}

void ConfigViewerWindow::nextDifference() {
    const int d = comparison_.nextDifference(currentRow_);
    if (d < 0) {
        statusBar()->showMessage(QStringLiteral("There are no differences."), 4000);
        return;
    }
    goToRow(comparison_.differences[static_cast<std::size_t>(d)].firstRow);
    navigator_->setCurrentRow(d);
}

void ConfigViewerWindow::previousDifference() {
    const int d = comparison_.previousDifference(currentRow_);
    if (d < 0) {
        statusBar()->showMessage(QStringLiteral("There are no differences."), 4000);
        return;
    }
    goToRow(comparison_.differences[static_cast<std::size_t>(d)].firstRow);
    navigator_->setCurrentRow(d);
}

int ConfigViewerWindow::findOnSide(bool right, const QString& text, bool forward,
                                   bool& wrapped) const {
    const ConfigReportText* report = right ? right_.get() : left_.get();
    if (report == nullptr)
        return -1;
    const std::vector<int>& rowOfLine = right ? rightRowOfLine_ : leftRowOfLine_;
    // The line of this side at the current row, or the nearest one after it.
    int line = -1;
    for (int r = currentRow_; r < static_cast<int>(comparison_.rows.size()) && line < 0; ++r)
        line = right ? comparison_.rows[static_cast<std::size_t>(r)].right
                     : comparison_.rows[static_cast<std::size_t>(r)].left;
    if (line < 0)
        line = report->lineCount();
    const int start = forward ? line + 1 : line - 1;
    int hit = start >= 0 && start < report->lineCount() ? report->find(text, start, forward) : -1;
    wrapped = false;
    if (hit < 0) {
        hit = report->find(text, forward ? 0 : report->lineCount() - 1, forward);
        wrapped = hit >= 0;
    }
    return hit < 0 ? -1 : rowOfLine[static_cast<std::size_t>(hit)];
}

bool ConfigViewerWindow::find(bool forward) {
    const QString text = findField_->text();
    if (left_ == nullptr || text.isEmpty() || comparison_.rows.empty())
        return false;
    // The side last clicked first; a text only the other report has is found there.
    const bool right = searchRight_ && right_ != nullptr;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bool wrapped = false;
    int row = findOnSide(right, text, forward, wrapped);
    if (row < 0 && right_ != nullptr)
        row = findOnSide(!right, text, forward, wrapped);
    QApplication::restoreOverrideCursor();
    if (row < 0) {
        statusBar()->showMessage(QStringLiteral("\"%1\" was not found.").arg(text), 5000);
        return false;
    }
    goToRow(row);
    statusBar()->showMessage(
        wrapped ? QStringLiteral("The search went on from the %1.")
                      .arg(forward ? QStringLiteral("start") : QStringLiteral("end"))
                : QString(),
        4000);
    return true;
}

void ConfigViewerWindow::openFile(bool second) {
    const QString path = QFileDialog::getOpenFileName(
        this, second ? QStringLiteral(" open report 2...") : QStringLiteral(" open report 1..."),
        QString(), QStringLiteral("configuration reports (*.txt *.TXT);;all files (*)"));
    if (path.isEmpty())
        return;
    std::unique_ptr<ConfigReportText>& slot = second && left_ ? right_ : left_;
    std::unique_ptr<ConfigReportText> report;
    if (!loadReport(path, report))
        return;
    leftModel_->setRows(nullptr, nullptr);
    rightModel_->setRows(nullptr, nullptr);
    slot = std::move(report);
    showReports();
}

} // namespace twk::gui
