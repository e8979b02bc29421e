#include "window/kit/Widgets.h"
#include "window/plots/Layouts.h"

namespace metrisk {

QWidget* layoutPlot(const WidgetMaker& w) {
    QWidget* picture = w("pic_Plot");
    picture->setMinimumSize(300, 200);
    QWidget* content = down({picture});
    prefer(content, {640, 560}); // with the lines of text below the axis
    content->setProperty(edgelessProperty, true);
    return content;
}

} // namespace metrisk
