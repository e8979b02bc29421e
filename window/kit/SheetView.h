// The widget of a sheet: a view over its content, of which only what is seen is asked for.
#pragma once

#include "desk/kit/Sheet.h"
#include "window/kit/CellKeys.h"

namespace metrisk {

class SheetView final : public CellKeys<QTableView> {
    Q_OBJECT

  public:
    explicit SheetView(const Sheet& sheet);

    /// Where the shape is another one, everything is asked for anew, else what is in sight.
    void show(const Sheet& sheet);
    Table::Range range() const;
    CellBlock texts(const Table::Range& range) const;

  signals:
    void typed(int row, int column, const QString& text);
    void chosen();
    void edited(metrisk::Editing what);
    void rowOpened(int row);
    void headingPressed(int column);

  protected:
    void pressed(Editing what) override { emit edited(what); }
    bool returned(const QModelIndex& index) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    class Content;

    void fitColumns();

    Content* content_;
    unsigned shape_;
    QString whenEmpty_;
    QStringList fitted_; // headings by which the columns have got their widths
    bool showing_ = false;
};

} // namespace metrisk
