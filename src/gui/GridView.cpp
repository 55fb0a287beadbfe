#include "gui/GridView.h"

#include "core/Engine.h"
#include "core/MainKeys.h"
#include "core/Mainfrm.h"
#include "gui/GridModel.h"
#include "gui/ImageList.h"
#include "logs/GridViews.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace twk::gui {

namespace {

// Blocks the handlers of the engine while the table follows the store.
class Syncing {
public:
    explicit Syncing(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
    ~Syncing() { flag_ = was_; }

private:
    bool& flag_;
    bool was_;
};

} // namespace

GridView::GridView(Engine& engine, const ImageList& images, QWidget* parent)
    : QTableView(parent), engine_(engine), images_(images),
      model_(new GridModel(engine.Grid1, images, this)) {
    setObjectName(QStringLiteral("Grid1"));
    setModel(model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setShowGrid(true);
    setAlternatingRowColors(false);
    setIconSize(QSize(16, 16));
    // The column widths are pixels made for a small font; a smaller one keeps dates
    // and numbers whole in them.
    QFont gridFont = font();
    gridFont.setPixelSize(11);
    gridFont.setStretch(QFont::SemiCondensed);
    setFont(gridFont);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    verticalHeader()->setMinimumSectionSize(kRowHeight);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setMinimumSectionSize(8);

    engine.Grid1.onReset = [this] {
        onGridReset();
    };
    engine.Grid1.onRedraw = [this] {
        onGridRedraw();
    };

    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (!syncing_)
            Grid1_HeaderClick(engine_, section + 1);
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int size) {
                if (!syncing_)
                    Grid1_ColumnWidthChanged(engine_, section + 1, size);
            });
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current, const QModelIndex&) { onCurrentChanged(current); });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        Grid1_DblClick(engine_, model_->gridRow(index.row()));
    });
    applyColumnWidths();
}

GridView::~GridView() {
    engine_.Grid1.onReset = nullptr;
    engine_.Grid1.onRedraw = nullptr;
}

void GridView::onGridReset() {
    if (!engine_.Grid1.Redraw()) {
        // Nothing is drawn until Redraw is on again; the model follows then.
        resetPending_ = true;
        syncRedraw();
    }
    Syncing guard(syncing_);
    model_->reload();
    applyColumnWidths();
}

void GridView::onGridRedraw() {
    Syncing guard(syncing_);
    resetPending_ = false;
    model_->reload();
    applyColumnWidths();
    viewport()->setUpdatesEnabled(true);
    selectStoreRow(engine_.Grid1.SelectedRow());
    viewport()->update();
}

void GridView::syncRedraw() {
    const bool on = engine_.Grid1.Redraw();
    if (viewport()->updatesEnabled() != on)
        viewport()->setUpdatesEnabled(on);
}

void GridView::applyColumnWidths() {
    Syncing guard(syncing_);
    const Grid& g = engine_.Grid1;
    for (int c = 1; c <= g.Cols(); ++c)
        if (horizontalHeader()->sectionSize(c - 1) != g.column(c).width)
            horizontalHeader()->resizeSection(c - 1, g.column(c).width);
}

void GridView::selectStoreRow(int row) {
    Syncing guard(syncing_);
    const int modelRow = model_->modelRow(row);
    const QModelIndex current = currentIndex();
    if (modelRow < 0) {
        if (current.isValid())
            selectionModel()->clearSelection();
        return;
    }
    if (current.isValid() && current.row() == modelRow && selectionModel()->isRowSelected(modelRow))
        return;
    const QModelIndex index = model_->index(modelRow, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index, QAbstractItemView::EnsureVisible);
}

void GridView::onCurrentChanged(const QModelIndex& current) {
    if (syncing_ || !current.isValid())
        return;
    const int row = model_->gridRow(current.row());
    if (row > 0 && row != engine_.Grid1.SelectedRow())
        Grid1_SelectionChanged(engine_, row);
}

void GridView::refresh() {
    syncRedraw();
    if (!engine_.Grid1.Redraw())
        return;
    {
        Syncing guard(syncing_);
        if (model_->syncVisibility())
            applyColumnWidths();
        model_->headersChanged();
    }
    selectStoreRow(engine_.Grid1.SelectedRow());
    if (engine_.analysis.gridFocus.serial != focusSerial_)
        applyFocus();
    viewport()->update();
}

void GridView::applyFocus() {
    const GridFocus& focus = engine_.analysis.gridFocus;
    focusSerial_ = focus.serial;
    const int first = model_->modelRow(focus.firstRow);
    const int last = model_->modelRow(focus.lastRow);
    const int top = model_->modelRow(focus.topRow);
    if (first < 0 || last < first)
        return;
    Syncing guard(syncing_);
    const QItemSelection rows(model_->index(first, 0),
                              model_->index(last, model_->columnCount() - 1));
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(model_->index(first, 0), QItemSelectionModel::NoUpdate);
    if (top >= 0)
        scrollTo(model_->index(top, 0), QAbstractItemView::PositionAtTop);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        KeyModifiers modifiers;
        modifiers.shift = event->modifiers() & Qt::ShiftModifier;
        modifiers.ctrl = event->modifiers() & Qt::ControlModifier;
        modifiers.alt = event->modifiers() & Qt::AltModifier;
        Form_KeyDown(engine_, MainKey::Enter, modifiers);
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void GridView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model_->rowCount() > 0 || !engine_.view.backgroundImage)
        return;
    // The empty grid shows the program's mark, faint, in its middle.
    QPainter painter(viewport());
    painter.setOpacity(0.12);
    const QPixmap mark = images_.pixmap(QStringLiteral("tarnwick"), 160);
    const QRect area = viewport()->rect();
    painter.drawPixmap(area.center() - QPoint(mark.width() / 2, mark.height() / 2), mark);
}

} // namespace twk::gui
