// The widget of a table: cells are typed into, cut, copied, pasted, and its rows dragged.
#pragma once

#include "desk/kit/Controls.h"
#include "window/kit/CellKeys.h"

#include <QTableWidget>

namespace metrisk {

class CellTable final : public CellKeys<QTableWidget> {
    Q_OBJECT

  public:
    explicit CellTable(const Table& table);

    /// Touches what differs; a cell that is being typed into keeps its editor.
    void show(const Table& table);
    /// What is selected, the current cell if nothing else.
    Table::Range range() const;
    CellBlock texts(const Table::Range& range) const;

  signals:
    void typed(int row, int column, const QString& text);
    void chosen();
    void edited(metrisk::Editing what);
    void dropped(metrisk::CellTable* from, int fromRow, int row);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void pressed(Editing what) override { emit edited(what); }
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void showCell(int row, int column, const Table::Cell& cell, const QString& markTip);

    QString whenEmpty_;
    bool showing_ = false;
};

} // namespace metrisk
