// The screen of facts about system and program.
#include "window/shell/Layouts.h"

#include "window/kit/Widgets.h"

#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

namespace metrisk {

QWidget* layoutSystemInfo(const WidgetMaker& w) {
    QWidget* table = w("tbl_Facts");
    table->setAccessibleName("Facts about program and system");
    table->setMinimumSize(400, 160);
    auto* view = qobject_cast<QTableView*>(table);
    view->setWordWrap(false);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->horizontalHeader()->setStretchLastSection(true);
    QWidget* content = down({table, foot({w("cmd_Copy"), w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(0, 1);
    prefer(content, {620, 480});
    return content;
}

} // namespace metrisk
