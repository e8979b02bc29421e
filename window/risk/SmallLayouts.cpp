// The screens of a few controls: FAFORM, EqRatio and Computing.
#include "window/risk/Layouts.h"

#include "window/kit/Widgets.h"

#include <QLabel>

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
    QWidget* made = down({w.heading("Label1"), w("Lbl_Message1"), w("Lbl_Message2"), w("Lbl_MeterTitle"),
                          w("Meter"), foot({w("Cmd_Cancel")})});
    for (QLabel* label : made->findChildren<QLabel*>()) label->setAlignment(Qt::AlignCenter);
    // Room for the longest texts, so that nothing jumps while the search runs.
    const QFontMetrics metrics = made->fontMetrics();
    made->setMinimumWidth(metrics.averageCharWidth() * 56);
    for (const char* message : {"Lbl_Message1", "Lbl_Message2"})
        made->findChild<QLabel*>(message)->setMinimumHeight(metrics.lineSpacing() * 2);
    for (const char* part : {"Lbl_Message2", "Lbl_MeterTitle", "Meter"})
        keepRoom(made->findChild<QWidget*>(part));
    return made;
}

} // namespace metrisk
