// The screen of colours and bold texts.
#include "window/shell/Layouts.h"

#include "record/ColorScheme.h"
#include "window/kit/Widgets.h"

#include <QPushButton>

namespace metrisk {

QWidget* layoutColorScheme(const WidgetMaker& w) {
    const auto indexed = [](const char* name, std::size_t i) { return name + std::to_string(i); };
    auto* colors = new QGridLayout;
    for (std::size_t i = 0; i < std::size(schemeColors); ++i) {
        QWidget* button = w(indexed("cmdSetColor_", i).c_str());
        static_cast<QPushButton*>(button)->setAutoDefault(true); // Return presses the one that has the focus
        colors->addWidget(button, static_cast<int>(i), 0);
        colors->addWidget(w(indexed("pnl_Color_", i).c_str()), static_cast<int>(i), 1);
        colors->addWidget(w(indexed("Lbl_Contrast_", i).c_str()), static_cast<int>(i), 2);
    }
    colors->setColumnStretch(1, 1);
    auto* bold = new QVBoxLayout;
    for (std::size_t i = 0; i < std::size(schemeBolds); ++i)
        bold->addWidget(w(indexed("chk_Bold_", i).c_str()));
    bold->addStretch();
    QWidget* panels = across({group("Colors", colors), group("Bold Text", bold)});
    return down({panels, foot(w("Lbl_Foot"), {})});
}

} // namespace metrisk
