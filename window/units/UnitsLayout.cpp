#include "window/kit/Widgets.h"
#include "window/units/Layouts.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QVBoxLayout>

namespace metrisk {

namespace {

QWidget* column(const WidgetMaker& w, const char* list, const char* title) {
    auto* label = new QLabel(title);
    QWidget* box = w(list);
    label->setBuddy(box);
    box->setAccessibleName(title);
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 10);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    return down({label, box});
}

/// Lists that show the same rows are scrolled as one; the last has the bar.
void scrollTogether(std::initializer_list<QWidget*> columns) {
    QList<QListWidget*> lists;
    for (QWidget* each : columns) lists += each->findChild<QListWidget*>();
    for (QListWidget* list : lists) {
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        if (list != lists.last()) list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        for (QListWidget* other : lists)
            if (other != list)
                QObject::connect(list->verticalScrollBar(), &QScrollBar::valueChanged,
                                 other->verticalScrollBar(), &QScrollBar::setValue);
    }
}

} // namespace

QWidget* layoutUnitsRevision(const WidgetMaker& w) {
    QWidget* areas = column(w, "List0", "Measurement Area");
    QWidget* group_ = column(w, "List3", "Units Group");
    QWidget* unit = column(w, "List1", "Units");
    QWidget* multiplier = column(w, "List2", "Units Multiplier");
    QWidget* description = column(w, "List4", "Units Description");
    scrollTogether({group_, unit, multiplier, description});
    QWidget* lists = across({areas, group_, unit, multiplier, description});
    auto* row = static_cast<QHBoxLayout*>(lists->layout());
    for (const auto& [index, stretch] : {std::pair{0, 4}, {1, 2}, {2, 3}, {3, 3}, {4, 5}})
        row->setStretch(index, stretch);

    QGridLayout* boxes = rows({
        {"Measurement Area", w("MeasAreaBox"), "Primary Units", w("txt_PrimaryUnits")},
        {"Units", w("UnitsBox"), "Units Multiplier", w("MultipliersBox")},
        {"Units Group", w("txt_UnitsGroup"), "Units Description (Optional)", w("txt_Description")},
    });
    boxes->addWidget(foot({w("cmd_Add"), w("cmd_Update"), w("cmd_Delete")}), boxes->rowCount(), 0, 1, 4);
    QWidget* content = down({lists, group("Units Definition", boxes), w("lbl_Database")});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(0, 1);
    prefer(content, {760, 0});
    return content;
}

} // namespace metrisk
