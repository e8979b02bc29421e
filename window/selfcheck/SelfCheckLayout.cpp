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
    view->verticalHeader()->hide();
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->horizontalHeader()->setStretchLastSection(true);
    QWidget* above = across({w("Lbl_Summary"), w("chk_OnlyNotes")});
    QWidget* content = down({w("Lbl_About"), above, table, foot({w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(2, 1);
    prefer(content, {1180, 560});
    return content;
}

} // namespace metrisk
