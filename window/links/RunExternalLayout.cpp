#include "window/kit/Widgets.h"
#include "window/links/Layouts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace metrisk {

QWidget* layoutRunExternal(const WidgetMaker& w) {
    auto* title = new QLabel("Applications List");
    QWidget* list = w("Lst_Apps");
    title->setBuddy(list);
    list->setAccessibleName(title->text());
    QGridLayout* boxes = rows({
        {"Application Name", w("txt_AppName")},
        {"Application Path", w("txt_AppPath"), w("cmd_Browse")},
        {"File Extension", w("txt_AppExt")},
        {"Example File", w("txt_FilePath"), w("cmd_BrowseFiles")},
    });
    QWidget* content = across({down({title, list, w("cmd_NewApp")}),
                               down({group("Application", boxes),
                                     across({w("chk_Exe"), w("chk_NewFile"), w("cmd_Run")}), new QWidget})});
    static_cast<QHBoxLayout*>(content->layout())->setStretch(1, 1);
    prefer(content, {760, 0});
    return content;
}

} // namespace metrisk
