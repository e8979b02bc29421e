#include "window/kit/SheetView.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/HintList.h"
#include "window/kit/Widgets.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <algorithm>

namespace metrisk {

namespace {

constexpr int sampledRows = 40; // of a column whose width is sought
constexpr int widestColumn = 260;

} // namespace

class SheetView::Content final : public QAbstractTableModel {
  public:
    Content(const SheetContent& content, SheetView& view)
        : QAbstractTableModel(&view), view_(view), content_(content) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : content_.rowCount();
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : content_.columnCount();
    }

    QVariant data(const QModelIndex& index, int role) const override {
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: return qt(cell(index).text);
        case Qt::ToolTipRole: return plainTip(qt(cell(index).tip));
        case Qt::AccessibleTextRole: {
            const SheetCell shown = cell(index);
            return shown.tip.empty() ? qt(shown.text) : qt(shown.text + ", " + shown.tip);
        }
        case Qt::TextAlignmentRole:
            return static_cast<int>((cell(index).isFigure ? Qt::AlignRight : Qt::AlignLeft) |
                                    Qt::AlignVCenter);
        case Qt::ForegroundRole: return colour(cell(index).look);
        case Qt::BackgroundRole:
            return cell(index).look == SheetCell::Look::Result ? QVariant(rolesFor(view_.palette()).result)
                                                               : QVariant();
        default: return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical) return rowName(section, role);
        if (role == Qt::DisplayRole) return qt(content_.heading(section));
        return role == Qt::ToolTipRole ? QVariant(plainTip(qt(content_.headingTip(section)))) : QVariant();
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
        return cell(index).locked ? flags : flags | Qt::ItemIsEditable;
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role != Qt::EditRole || value.toString() == data(index, role).toString()) return false;
        emit view_.typed(index.row(), index.column(), value.toString());
        return true;
    }

    void renew() {
        beginResetModel();
        endResetModel();
    }
    void touch(int top, int bottom) {
        emit dataChanged(index(top, 0), index(bottom, std::max(columnCount() - 1, 0)));
    }

  private:
    QVariant rowName(int row, int role) const {
        if (role == Qt::DisplayRole) return qt(content_.rowName(row));
        if (role != Qt::ToolTipRole && role != Qt::ForegroundRole) return {};
        const std::string fault = content_.rowFault(row);
        if (fault.empty()) return {};
        return role == Qt::ToolTipRole ? QVariant(plainTip(qt(fault)))
                                       : QVariant(rolesFor(view_.palette()).bad);
    }
    SheetCell cell(const QModelIndex& index) const { return content_.cell(index.row(), index.column()); }
    QVariant colour(SheetCell::Look look) const {
        const ColourRoles& roles = rolesFor(view_.palette());
        switch (look) {
        case SheetCell::Look::Result: return roles.resultText;
        case SheetCell::Look::Fault: return roles.bad;
        case SheetCell::Look::Entry: break;
        }
        return {};
    }

    SheetView& view_;
    const SheetContent& content_;
};

SheetView::SheetView(const Sheet& sheet)
    : content_(new Content(sheet.content, *this)), shape_(sheet.shape - 1) {
    setModel(content_);
    setWordWrap(false);
    setTabKeyNavigation(false); // the keyboard can leave it
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
    setContextMenuPolicy(sheet.menu.empty() ? Qt::NoContextMenu : Qt::CustomContextMenu);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 8);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (!content_->flags(index).testFlag(Qt::ItemIsEditable)) emit rowOpened(index.row());
    });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, &SheetView::headingPressed);
}

void SheetView::show(const Sheet& sheet) {
    showing_ = true;
    if (const QString text = qt(sheet.whenEmpty); text != whenEmpty_) {
        whenEmpty_ = text;
        viewport()->update();
    }
    if (shape_ != sheet.shape) {
        shape_ = sheet.shape;
        const int top = rowAt(0);
        content_->renew();
        fitColumns();
        if (top > 0) scrollTo(content_->index(std::min(top, content_->rowCount() - 1), 0), PositionAtTop);
    } else if (content_->rowCount() > 0) {
        const int bottom = rowAt(viewport()->height());
        content_->touch(std::max(rowAt(0), 0), bottom < 0 ? content_->rowCount() - 1 : bottom);
    }
    const Table::Range& s = sheet.selection;
    if (!s.empty() && !(range() == s) && s.top < content_->rowCount() && s.left < content_->columnCount()) {
        const QModelIndex first = content_->index(s.top, s.left);
        const QModelIndex last = content_->index(std::min(s.bottom, content_->rowCount() - 1),
                                                 std::min(s.right, content_->columnCount() - 1));
        selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        selectionModel()->select({first, last}, QItemSelectionModel::ClearAndSelect);
        scrollTo(first);
    }
    showing_ = false;
}

/// Columns that are as they were keep the widths that the user may have given them.
void SheetView::fitColumns() {
    QStringList headings;
    for (int column = 0; column < content_->columnCount(); ++column)
        headings += content_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    if (headings == fitted_) return;
    fitted_ = headings;
    const auto widthOf = [this](const QString& text) { return fontMetrics().horizontalAdvance(text); };
    for (int column = 0; column < content_->columnCount(); ++column) {
        int width = widthOf(headings[column]);
        for (int row = 0; row < std::min(content_->rowCount(), sampledRows); ++row)
            width = std::max(width, widthOf(content_->index(row, column).data().toString()));
        setColumnWidth(column, std::min(width + 3 * fontMetrics().averageCharWidth(), widestColumn));
    }
}

Table::Range SheetView::range() const {
    const QItemSelection selection = selectionModel()->selection();
    if (!selection.isEmpty())
        return {selection.first().top(), selection.first().left(), selection.first().bottom(),
                selection.first().right()};
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return {};
    return {current.row(), current.column(), current.row(), current.column()};
}

CellBlock SheetView::texts(const Table::Range& range) const {
    CellBlock block;
    for (int row = range.top; row <= range.bottom; ++row) {
        auto& line = block.emplace_back();
        for (int column = range.left; column <= range.right; ++column)
            line.push_back(content_->index(row, column).data().toString().toStdString());
    }
    return block;
}

bool SheetView::returned(const QModelIndex& index) {
    emit rowOpened(index.row());
    return true;
}

void SheetView::paintEvent(QPaintEvent* event) {
    CellKeys::paintEvent(event);
    if (whenEmpty_.isEmpty()) return;
    const int rows = content_->rowCount();
    paintWhenEmpty(*viewport(), whenEmpty_,
                   rows > 0 ? rowViewportPosition(rows - 1) + rowHeight(rows - 1) : 0);
}

void SheetView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    CellKeys::selectionChanged(selected, deselected);
    if (!showing_) emit chosen();
}

} // namespace metrisk
