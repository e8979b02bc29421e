#include "window/kit/Widgets.h"
#include "window/selfcheck/Layouts.h"

#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

namespace metrisk {

QWidget* layoutSelfCheck(const WidgetMaker& w) {
    QWidget* table = w("tbl_Figures");
    table->setAccessibleName("Published figures");
    table->setMinimumSize(400, 160);
    auto* view = qobject_cast<QTableView*>(table);
    view->setWordWrap(false);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    QWidget* content = down({w("Lbl_About"), w("Lbl_Summary"), table, foot({w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(2, 1);
    prefer(content, {860, 470});
    return content;
}

} // namespace metrisk
