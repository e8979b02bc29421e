// The screen Strategies.
#include "window/decision/Layouts.h"
#include "window/kit/Widgets.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace metrisk {

QWidget* layoutStrategies(const WidgetMaker& w) {
    const auto running = [](QWidget* label) {
        static_cast<QLabel*>(label)->setWordWrap(true);
        return label;
    };
    QGroupBox* targets = group(
        "Targets", rows({{w("Lbl_TargetAccept"), w.box("txt_TargetAccept", 8), w("Lbl_TargetReject"),
                          w.box("txt_TargetReject", 8), w("Lbl_TargetWorst"), w.box("txt_TargetWorst", 8)}}));
    QWidget* table = w("tbl_Strategies");
    table->setAccessibleName("Guardband strategies");
    table->setMinimumSize(400, 160);
    auto* view = qobject_cast<QTableView*>(table);
    view->setWordWrap(false);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false);
    view->verticalHeader()->setDefaultSectionSize(26);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->horizontalHeader()->setStretchLastSection(true);
    QWidget* content = down({running(w("Lbl_Basis")), targets, table, running(w("Lbl_Worst")),
                             foot({w("cmd_Copy"), w("cmd_Save"), w("cmd_Send"), w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(2, 1);
    prefer(content, {1080, 480});
    return content;
}

} // namespace metrisk
