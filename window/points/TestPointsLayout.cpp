// The screens TestPoints and PointColumn.
#include "window/kit/Widgets.h"
#include "window/points/Layouts.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace metrisk {

namespace {

QWidget* running(QWidget* label) {
    static_cast<QLabel*>(label)->setWordWrap(true);
    return label;
}

} // namespace

QWidget* layoutTestPoints(const WidgetMaker& w) {
    QWidget* filter = w("cbo_Filter");
    QWidget* filterName = w("Lbl_Filter");
    nameBy(filterName, filter);
    QWidget* filterLimit = w.box("txt_Filter", 8);
    filterLimit->setAccessibleName("Limit of the rows shown");
    QWidget* above = new QWidget;
    QGridLayout* entries =
        rows({{w("Lbl_Template"), w("cbo_Template"), w("Lbl_Want"), w("txt_Want")},
              {filterName, across({filter, filterLimit}), w("Lbl_Limit"), w("txt_Limit")}});
    entries->setContentsMargins(0, 0, 0, 0);
    above->setLayout(entries);
    QWidget* sheet = w("tbl_Points");
    sheet->setAccessibleName("Test points");
    sheet->setMinimumSize(400, 200);
    QWidget* histogram = w("pic_Histogram");
    histogram->setMinimumSize(260, 90);
    histogram->setMaximumHeight(120);
    QWidget* words = down({running(w("Lbl_State")), running(w("Lbl_Totals"))});
    words->setMinimumWidth(300);
    QWidget* progress = across({w("met_Progress"), w("cmd_Stop")});
    keepRoom(progress);
    QWidget* content = down({above, sheet, across({words, histogram}), progress,
                             foot({w("cmd_Compute"), w("cmd_Open"), w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(1, 1);
    prefer(content, {980, 640});
    return content;
}

QWidget* layoutPointColumn(const WidgetMaker& w) {
    QWidget* name = new QWidget;
    name->setLayout(rows({{w("Lbl_Name"), w("txt_Name")}}));
    QWidget* list = w("lst_Entries");
    list->setAccessibleName("Entries");
    list->setMinimumSize(360, 180);
    QWidget* content = down({name, list, running(w("Lbl_About")), foot({w("cmd_OK"), w("cmd_Cancel")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(1, 1);
    prefer(content, {560, 420});
    return content;
}

} // namespace metrisk
