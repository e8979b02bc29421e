// The screen GuardbandAnalysis.
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"
#include "window/risk/Layouts.h"

#include <QBoxLayout>
#include <QLabel>
#include <algorithm>

namespace metrisk {

namespace {

constexpr int figure = 17; // characters: -0.0005556232929

/// Ten digits with a sign, which no box shortens in a font of usual size.
QWidget* box(const WidgetMaker& w, const char* control) {
    constexpr int leastWidth = 144;
    QWidget* made = w.box(control, figure);
    made->setMinimumWidth(std::min(made->sizeHint().width(), leastWidth));
    return made;
}

QWidget* radios(QWidget* one, QWidget* other) {
    QWidget* made = across({one, other});
    static_cast<QBoxLayout*>(made->layout())->addStretch();
    return made;
}

QGroupBox* specifications(const WidgetMaker& w) {
    return group("Subject Parameter Specifications and Process Uncertainty",
                 rows({{w("Lbl_Mode"), box(w, "ModeBox"), wrapped(w("Lbl_ProcessUncertainty")),
                        box(w, "pnl_ProcessUncertainty")},
                       {wrapped(w("Lbl_UpperTolerance")), box(w, "UpperTolLimitBox"),
                        wrapped(w("Lbl_LowerTolerance")), box(w, "LowerTolLimitBox")},
                       {{}, {radios(w("LimitsOptionButton"), w("OffsetsOptionButton")), 3}}}));
}

QGroupBox* multipliers(const WidgetMaker& w) {
    return group("Guardband Multipliers", rows({{w("Lbl_UpperMultiplier"), box(w, "UpperMultiplierBox"),
                                                 w("Lbl_LowerMultiplier"), box(w, "LowerMultiplierBox")},
                                                {{}, {w("SymmetryCheckBox"), 3}}}));
}

QGroupBox* guardbands(const WidgetMaker& w) {
    return group("Guardbands and k-Factors",
                 rows({{w("Lbl_UpperK"), box(w, "txt_kFactor_0"), w("Lbl_LowerK"), box(w, "txt_kFactor_1")},
                       {{}, {w("chk_SymmetricK"), 3}},
                       {wrapped(w("Lbl_UpperGuardband")), box(w, "UpperGuardbandBox"),
                        wrapped(w("Lbl_LowerGuardband")), box(w, "LowerGuardbandBox")}}));
}

QGroupBox* keyOn(const WidgetMaker& w) {
    return group("Key On", {w("opt_FARisk"), w("opt_FRRisk"), w("opt_EqualizeRisks")});
}

QWidget* commands(const WidgetMaker& w) {
    QWidget* resolution = w.box("txt_DisplayedResolution", 4);
    resolution->setMaximumWidth(resolution->sizeHint().width());
    resolution->setAccessibleName("Displayed resolution");
    QWidget* others = across({w("CmdPlot"), w("cmd_RoundOff"), resolution, w("Lbl_Digits")});
    auto* row = static_cast<QBoxLayout*>(others->layout());
    for (const int button : {0, 1}) row->setStretch(button, 1);
    QWidget* made = down({w("cmdComputeGuardbands"), w("Lbl_Symmetry"), others});
    auto* column = static_cast<QBoxLayout*>(made->layout());
    column->insertStretch(0);
    column->addStretch();
    return made;
}

/// The figures stand below those of the other panels; what is told of them, behind their units.
QGroupBox* risks(const WidgetMaker& w) {
    QWidget* right = w.box("EqAccRat2Box", 4);
    right->setAccessibleName(right->accessibleDescription());
    QWidget* ratio = across({w("Lbl_RatioColon"), right});
    return group("Risks",
                 rows({{wrapped(w("Lbl_FARisk")), box(w, "FARiskBox"), w("FARiskUnitsBox"), w("Lbl_FANote")},
                       {{w("Lbl_ExactAccept"), 4}},
                       {wrapped(w("Lbl_FRRisk")), box(w, "FRRiskBox"), w("FRRiskUnitsBox"), w("Lbl_FRNote")},
                       {{w("Lbl_ExactReject"), 4}},
                       {{w("Lbl_ExactSolve"), 3}, w("cmd_UseExact")},
                       {wrapped(w("Lbl_EqAccRat")), box(w, "EqAccRatBox"), ratio, w("IncludeEqAccRatBox")},
                       {{w("Lbl_ExactRatio"), 4}},
                       {{}, {w("CmdCompute"), 2}}}));
}

} // namespace

QWidget* layoutGuardbandAnalysis(const WidgetMaker& w) {
    QGroupBox* entries[] = {specifications(w), multipliers(w), guardbands(w), risks(w)};
    lineUp({entries[0], entries[1], entries[2], entries[3]});
    QWidget* solve = across({keyOn(w), commands(w)});
    static_cast<QBoxLayout*>(solve->layout())->setStretch(1, 1);
    QWidget* work = down({entries[0], entries[1], entries[2], solve, entries[3],
                          headedPanel("Computed Risks", {w("Lbl_RiskKey"), w("pnl_RiskKey")})});
    static_cast<QBoxLayout*>(work->layout())->addStretch();
    QWidget* text = onForm(w("txt_Procedure"));
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 24);
    QWidget* procedure = named(group("Procedure", {text}), "pnl_Procedure");
    QWidget* sides = across({work, procedure});
    static_cast<QBoxLayout*>(sides->layout())->setStretch(1, 1);
    return down({sides, foot(w("Lbl_Foot"), {w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
