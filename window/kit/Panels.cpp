#include "window/kit/Panels.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Widgets.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace metrisk {

namespace {

constexpr double markSize = 0.92; // of the screen's font

/// Gives a column of one panel the widths that it has in the others.
class Strut final : public QWidget {
  public:
    Strut() { setAttribute(Qt::WA_TransparentForMouseEvents); }

    QSize sizeHint() const override { return {wanted_, 0}; }
    QSize minimumSizeHint() const override { return {least_, 0}; }
    void set(int wanted, int least) {
        if (wanted == wanted_ && least == least_) return;
        wanted_ = wanted;
        least_ = least;
        updateGeometry();
    }

  private:
    int wanted_ = 0, least_ = 0;
};

class Columns final : public QObject {
  public:
    Columns(std::initializer_list<QGroupBox*> panels, bool captions, QObject* owner)
        : QObject(owner), captions_(captions) {
        int count = 0;
        for (QGroupBox* panel : panels) {
            grids_.push_back(qobject_cast<QGridLayout*>(panel->layout()));
            panel->installEventFilter(this);
            count = std::max(count, grids_.back()->columnCount());
        }
        if (captions_) count = std::min(count, 1);
        columns_.resize(static_cast<std::size_t>(count));
        for (QGridLayout* grid : grids_)
            for (int column = 0; column < count; ++column) {
                auto* strut = new Strut;
                strut->lower();
                grid->addWidget(strut, 0, column);
                columns_[static_cast<std::size_t>(column)].push_back(strut);
            }
        for (int column = 0; column < count; ++column) {
            int stretch = 0;
            for (const QGridLayout* grid : grids_) stretch = std::max(stretch, grid->columnStretch(column));
            for (QGridLayout* grid : grids_) grid->setColumnStretch(column, stretch);
        }
        align();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) align();
        return false;
    }

  private:
    void align() {
        std::vector<int> wanted(columns_.size()), least(columns_.size());
        for (QGridLayout* grid : grids_)
            for (int i = 0; i < grid->count(); ++i) {
                int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
                grid->getItemPosition(i, &row, &column, &rowSpan, &columnSpan);
                const QLayoutItem& item = *grid->itemAt(i);
                if (columnSpan > 1 || dynamic_cast<const Strut*>(grid->itemAt(i)->widget())) continue;
                const auto at = static_cast<std::size_t>(column);
                if (at >= columns_.size()) continue;
                wanted[at] = std::max(wanted[at], item.sizeHint().width());
                least[at] = std::max(least[at], item.minimumSize().width());
            }
        for (std::size_t at = 0; at < columns_.size(); ++at)
            for (Strut* strut : columns_[at]) strut->set(wanted[at], captions_ ? 0 : least[at]);
    }

    const bool captions_; // alone: where there is no room for them beside each other each folds for itself
    std::vector<QGridLayout*> grids_;
    std::vector<std::vector<Strut*>> columns_;
};

} // namespace

void lineUp(std::initializer_list<QGroupBox*> panels) {
    new Columns(panels, false, *panels.begin());
}

void lineUpCaptions(std::initializer_list<QGroupBox*> panels) {
    new Columns(panels, true, *panels.begin());
}

QWidget* rule() {
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    line->setForegroundRole(lineRole);
    line->setFixedHeight(1);
    return line;
}

QLabel* overFigures(const char* title) {
    auto* made = new QLabel(title);
    made->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    made->setContentsMargins(0, 0, figureMargin, 0);
    made->setForegroundRole(captionRole());
    return made;
}

QWidget* headingRow(const char* title, std::initializer_list<QWidget*> beside) {
    auto* heading = new QLabel(title);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setProperty(headingProperty, true);
    auto* made = new QWidget;
    auto* row = new QHBoxLayout(made);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(heading);
    row->addStretch();
    for (QWidget* widget : beside) row->addWidget(widget);
    return made;
}

QGroupBox* headedPanel(const char* title, std::initializer_list<QWidget*> beside) {
    QGroupBox* made = group("", {headingRow(title, beside)});
    made->setAccessibleName(title);
    return made;
}

QWidget* wrapped(QWidget* label) {
    static_cast<QLabel*>(label)->setWordWrap(true);
    return label;
}

QWidget* onForm(QWidget* text) {
    auto* area = static_cast<QAbstractScrollArea*>(text);
    area->setFrameShape(QFrame::NoFrame);
    area->viewport()->setBackgroundRole(QPalette::Window);
    return text;
}

QWidget* asMark(QWidget* label) {
    QFont small = label->font();
    small.setPointSizeF(small.pointSizeF() * markSize);
    label->setFont(small);
    return label;
}

} // namespace metrisk
