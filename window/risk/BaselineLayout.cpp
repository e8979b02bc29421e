// The screen BaselineAnalysis: the analysis's reference case beside the default one.
#include "window/risk/Layouts.h"

#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

#include <QBoxLayout>
#include <QLabel>
#include <utility>

namespace metrisk {

namespace {

QWidget* row(QWidget* left, QWidget* right) {
    QWidget* made = across({left, right});
    static_cast<QBoxLayout*>(made->layout())->insertStretch(1, 1);
    return made;
}

QWidget* note(QWidget* label) {
    static_cast<QLabel*>(label)->setForegroundRole(captionRole());
    return label;
}

} // namespace

/// Both halves on the same rows and columns.
QWidget* layoutBaselineAnalysis(const WidgetMaker& w) {
    constexpr int figure = 8;
    constexpr int right = 5;
    QGroupBox* analysis =
        group("Analysis Baseline",
              rows({{w("optUserBaseline"), {w("optZ540Baseline"), 3}},
                    {"Accuracy ratio", w.box("BaseAccRat1", figure), ":", w.box("BaseAccRat2", right)},
                    {"Measuring parameter % in-tolerance", w.box("BaselinePctInTol1", figure), "%"},
                    {"Subject parameter % in-tolerance", w.box("BaselinePctInTol2", figure), "%"},
                    {"False accept risk", w.box("BaseFalseAccept", figure), w("FalseAcceptRiskUnits")},
                    {{w("Lbl_ExactAccept"), 4}},
                    {"False reject risk", w.box("BaseFalseReject", figure), w("FalseRejectRiskUnits")},
                    {{w("Lbl_ExactReject"), 4}},
                    {{row(note(w("pnl_FAOption")), w("cmd_FAOption")), 4}},
                    {{w("ComputeBaselineResults"), 4}}}));
    QGroupBox* defaults =
        group("Default Baseline",
              rows({{"Baseline option", {w("pnlDefBaselineOption"), 3}},
                    {"Accuracy ratio", w.box("DefAccRat1", figure), ":", w.box("DefAccRat2", right)},
                    {"Measuring parameter % in-tolerance", w.box("DefPctInTol1", figure), "%"},
                    {"Subject parameter % in-tolerance", w.box("DefPctInTol2", figure), "%"},
                    {"False accept risk", w.box("DefFalseAccept", figure), w("DefFalseAcceptRiskUnits")},
                    {},
                    {"False reject risk", w.box("DefFalseReject", figure), w("DefFalseRejectRiskUnits")},
                    {},
                    {{note(w("pnl_DefaultFAOption")), 4}},
                    {{across({w("Cmd_RetrieveDefaultBaseline"), w("Cmd_SetDefaultBaseline")}), 4}}}));
    const auto sharedRows = {std::pair{0, 24}, {8, 26}};
    for (QGroupBox* half : {analysis, defaults})
        for (const auto& [index, height] : sharedRows)
            static_cast<QGridLayout*>(half->layout())->setRowMinimumHeight(index, height);
    lineUp({analysis, defaults});
    QWidget* sides = across({analysis, named(defaults, "pnl_Defaults")});
    return down({sides, foot({w("cmd_OK"), w("mnu_Exit")})});
}

} // namespace metrisk
