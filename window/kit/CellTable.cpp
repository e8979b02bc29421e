#include "window/kit/CellTable.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/HintList.h"
#include "window/kit/Widgets.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QPainter>
#include <algorithm>

namespace metrisk {

namespace {

constexpr int markedRole = Qt::UserRole; // a cell with a frame, whose tip tells why

} // namespace

CellTable::CellTable(const Table& table) {
    setColumnCount(static_cast<int>(table.headings.size()));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setVisible(std::any_of(table.headings.begin(), table.headings.end(),
                                               [](const std::string& text) { return !text.empty(); }));
    verticalHeader()->setVisible(table.numbered);
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 8);
    setTabKeyNavigation(false); // the keyboard can leave it
    setSelectionMode(table.dragged ? QAbstractItemView::SingleSelection
                                   : QAbstractItemView::ContiguousSelection);
    setContextMenuPolicy(table.menu.empty() ? Qt::NoContextMenu : Qt::CustomContextMenu);
    setDragEnabled(table.dragged);
    setAcceptDrops(static_cast<bool>(table.dropped));
    setDropIndicatorShown(true);
    connect(this, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem* item) {
        if (!showing_) emit typed(item->row(), item->column(), item->text());
    });
    connect(this, &QTableWidget::itemSelectionChanged, this, [this] {
        if (!showing_) emit chosen();
    });
}

void CellTable::showCell(int row, int column, const Table::Cell& cell, const QString& markTip) {
    QTableWidgetItem* shown = item(row, column);
    if (!shown) setItem(row, column, shown = new QTableWidgetItem);
    const QString text = qt(cell.text);
    if (shown->text() != text) shown->setText(text);
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
                                Qt::ItemIsDropEnabled |
                                (cell.locked ? Qt::NoItemFlags : Qt::ItemFlags(Qt::ItemIsEditable));
    if (shown->flags() != flags) shown->setFlags(flags);
    if (QFont font = shown->font(); font.bold() != cell.best) {
        font.setBold(cell.best);
        shown->setFont(font);
    }
    const QString tip = cell.marked ? markTip : QString();
    if (shown->toolTip() == plainTip(tip)) return;
    shown->setToolTip(plainTip(tip));
    shown->setData(markedRole, cell.marked);
    shown->setData(Qt::AccessibleTextRole, cell.marked ? QVariant(text + ", " + tip) : QVariant());
    QFont font = shown->font();
    font.setItalic(cell.marked);
    font.setStrikeOut(cell.marked);
    shown->setFont(font);
}

void CellTable::show(const Table& table) {
    showing_ = true;
    const auto count = static_cast<int>(table.rows.size());
    if (rowCount() != count) setRowCount(count);
    for (int column = 0; column < columnCount(); ++column) {
        const QString heading = qt(table.headings[static_cast<std::size_t>(column)]);
        const QTableWidgetItem* header = horizontalHeaderItem(column);
        if (!header || header->text() != heading)
            setHorizontalHeaderItem(column, new QTableWidgetItem(heading));
    }
    const QString tip = qt(table.markTip);
    whenEmpty_ = qt(table.whenEmpty);
    for (int row = 0; row < count; ++row) {
        const auto& cells = table.rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < columnCount(); ++column)
            showCell(row, column, cells[static_cast<std::size_t>(column)], tip);
        for (const int column : table.figureColumns)
            item(row, column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    for (int column = 0; column < columnCount(); ++column) {
        const bool figures = std::ranges::find(table.figureColumns, column) != table.figureColumns.end();
        horizontalHeaderItem(column)->setTextAlignment((figures ? Qt::AlignRight : Qt::AlignLeft) |
                                                       Qt::AlignVCenter);
    }
    if (!(range() == table.selection) && !table.selection.empty()) {
        const Table::Range& s = table.selection;
        clearSelection();
        setCurrentCell(s.top, s.left);
        setRangeSelected({s.top, s.left, std::min(s.bottom, count - 1), s.right}, true);
    }
    showing_ = false;
}

void CellTable::paintEvent(QPaintEvent* event) {
    CellKeys::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(rolesFor(palette()).bad);
    for (int row = 0; row < rowCount(); ++row)
        for (int column = 0; column < columnCount(); ++column)
            if (const QTableWidgetItem* cell = item(row, column); cell && cell->data(markedRole).toBool())
                painter.drawRect(visualItemRect(cell).adjusted(0, 0, -1, -1));
    if (rowCount() == 0) paintWhenEmpty(*viewport(), whenEmpty_);
}

Table::Range CellTable::range() const {
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    if (!ranges.isEmpty())
        return {ranges.first().topRow(), ranges.first().leftColumn(), ranges.first().bottomRow(),
                ranges.first().rightColumn()};
    if (currentRow() < 0) return {};
    return {currentRow(), currentColumn(), currentRow(), currentColumn()};
}

CellBlock CellTable::texts(const Table::Range& range) const {
    CellBlock block;
    for (int row = range.top; row <= range.bottom; ++row) {
        auto& line = block.emplace_back();
        for (int column = range.left; column <= range.right; ++column)
            line.push_back(item(row, column) ? item(row, column)->text().toStdString() : "");
    }
    return block;
}

void CellTable::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(qobject_cast<CellTable*>(event->source()));
}

void CellTable::dragMoveEvent(QDragMoveEvent* event) {
    event->setAccepted(qobject_cast<CellTable*>(event->source()));
}

void CellTable::dropEvent(QDropEvent* event) {
    auto* from = qobject_cast<CellTable*>(event->source());
    if (!from) return;
    event->setDropAction(Qt::CopyAction); // nothing is taken away where it came from
    event->accept();
    const int row = indexAt(event->position().toPoint()).row();
    // A box about it comes after the drag has ended.
    QMetaObject::invokeMethod(
        this, [this, from, fromRow = from->currentRow(), row] { emit dropped(from, fromRow, row); },
        Qt::QueuedConnection);
}

} // namespace metrisk
