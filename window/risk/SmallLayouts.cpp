// The screens of a few controls: FAFORM, EqRatio and Computing.
#include "window/risk/Layouts.h"

#include "window/kit/Widgets.h"

#include <QBoxLayout>
#include <QLabel>
#include <algorithm>

namespace metrisk {

QWidget* layoutFalseAccept(const WidgetMaker& w) {
    return down({group("False accept risk", {w("ConsumerRiskOption"), w("ProducerRiskOption")}),
                 w("Chk_SetDefault"), foot({w("cmd_Close")})});
}

QWidget* layoutEqRatio(const WidgetMaker& w) {
    return down({group("Compute equivalent accuracy ratio?", {w("opt_Compute_0"), w("opt_Compute_1")}),
                 group("Base the ratio on", {w("OptFalseAccept"), w("OptFalseReject")}), w("BeepOn"),
                 foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

QWidget* layoutComputing(const WidgetMaker& w) {
    constexpr int width = 360;
    QWidget* bar = across({w("Meter"), w("Cmd_Cancel")});
    static_cast<QBoxLayout*>(bar->layout())->setStretch(0, 1);
    QWidget* made =
        down({w.heading("Label1"), w("Lbl_Message1"), w("Lbl_Message2"), w("Lbl_MeterTitle"), bar});
    // Room for the longest texts, so that nothing jumps while the search runs.
    const QFontMetrics metrics = made->fontMetrics();
    made->setMinimumWidth(std::max(width, metrics.averageCharWidth() * 50));
    for (const char* message : {"Lbl_Message1", "Lbl_Message2"})
        made->findChild<QLabel*>(message)->setMinimumHeight(metrics.lineSpacing() * 2);
    for (const char* part : {"Lbl_Message2", "Lbl_MeterTitle", "Meter"})
        keepRoom(made->findChild<QWidget*>(part));
    return made;
}

} // namespace metrisk
