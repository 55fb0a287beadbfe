#pragma once
// The main window's table (Grid1): draws the row store through GridModel and hands
// header clicks, width changes, selection, double clicks and Enter to the engine.

#include <QTableView>

namespace twk {
class Engine;
}

namespace twk::gui {

class GridModel;
class ImageList;

class GridView : public QTableView {
    Q_OBJECT
public:
    /// Height of a row in pixels (the grid's default row height).
    static constexpr int kRowHeight = 18;

    GridView(Engine& engine, const ImageList& images, QWidget* parent = nullptr);
    ~GridView() override;

    GridModel& gridModel() { return *model_; }

    /// Brings the table in line with the store and the view state: shown rows, column
    /// widths, sort marks, the selected row, and whether drawing is on.
    void refresh();
    /// Drawing follows the store's Redraw switch.
    void syncRedraw();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void onGridReset();
    void onGridRedraw();
    void applyColumnWidths();
    void selectStoreRow(int row);
    /// Selects the rows the engine asked for (an abend's report) with its top row first.
    void applyFocus();
    void onCurrentChanged(const QModelIndex& current);

    Engine& engine_;
    const ImageList& images_;
    GridModel* model_;
    bool syncing_ = false;
    bool resetPending_ = false;
    unsigned focusSerial_ = 0;
};

} // namespace twk::gui
