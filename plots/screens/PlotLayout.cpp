#include "plots/screens/Layouts.h"
#include "screens/Widgets.h"

namespace metrisk {

QWidget* layoutPlot(const WidgetMaker& w) {
    QWidget* picture = w("pic_Plot");
    picture->setMinimumSize(400, 540); // the lines of text below the axis
    QWidget* content = down({picture});
    content->layout()->setContentsMargins(0, 0, 0, 0);
    return content;
}

} // namespace metrisk
