// The main screen: identification, both parameters, results, options.
#include "window/shell/Layouts.h"

#include "desk/appearance/ScreenFonts.h"
#include "window/kit/EntryBox.h"
#include "window/kit/Widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace metrisk {

namespace {

constexpr int figureCharacters = 12; // 1,000,000.00

/// Little air, so that the whole screen has room at 1024 x 768.
QGridLayout* tight(QGridLayout* grid) {
    grid->setContentsMargins(6, 1, 6, 3);
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(6);
    return grid;
}

QGroupBox* panel(const char* name, const char* title, QLayout* content) {
    const QMargins margins = content->contentsMargins();
    QGroupBox* made = group(title, content);
    content->setContentsMargins(margins);
    named(made, name);
    return made;
}

/// A label above its box, as one piece.
QWidget* column(QWidget* label, QWidget* box, const char* name = "") {
    nameBy(label, box);
    QWidget* made = named(down({label, box}), name);
    made->layout()->setSpacing(1);
    return made;
}

/// No larger than the heading that it is.
QWidget* asHeading(QWidget* button) {
    QFont small = button->font();
    small.setBold(true);
    small.setPointSizeF(steppedFontSize(small.pointSizeF(), -1));
    button->setFont(small);
    static_cast<QPushButton*>(button)->setFlat(true);
    button->setMaximumHeight(QFontMetrics(small).lineSpacing() * 2 + 4);
    return button;
}

/// A result, in a font so many steps larger.
QWidget* figure(const WidgetMaker& w, const char* control, int steps) {
    QWidget* box = w(control);
    QFont large = box->font();
    large.setPointSizeF(steppedFontSize(large.pointSizeF(), steps));
    large.setBold(true); // has room for it
    box->setFont(large);
    static_cast<EntryBox*>(box)->setRoom(figureCharacters);
    return box;
}

QWidget* identification(const WidgetMaker& w) {
    QGridLayout* grid = tight(rows({
        {{}, asHeading(w("cmdSU")), {}, asHeading(w("cmdMTE"))},
        {"Manufacturer", w("SystemIDBox"), "Manufacturer", w("MTESystemIDBox")},
        {"Model Number", w("SUModelNumberBox"), "Model Number", w("MTEModelNumberBox")},
        {"Description", w("SUDescriptionBox"), "Description", w("MTEDescriptionBox")},
        {"Parameter Name", w("ParameterIDBox"), "Parameter Name", w("MTEParameterIDBox")},
        {"Qualifier 1", w("Qualifier1Box"), "Qualifier 1", w("MTEQualifier1Box")},
        {"Qualifier 2", w("Qualifier2Box"), "Qualifier 2", w("MTEQualifier2Box")},
    }));
    auto* labels = named(new QWidget, "pnl_Lbl");
    labels->setLayout(grid);
    auto* outer = tight(rows({{labels}}));
    outer->setContentsMargins(0, 0, 0, 0);
    return panel("pnl_IDData", "", outer);
}

QWidget* subject(const WidgetMaker& w) {
    QGroupBox* options =
        panel("pnl_LblSUTolerances", "Subject Parameter Tolerance Options",
              tight(rows({{w("TwoSideOption"), w("SingleUpperOption"), w("SingleLowerOption"),
                           w("pnlOffsets"), w("optOffsets_0")},
                          {w("chk_Symmetric"), {w("PhysLimitRequired"), 2}, {}, w("optOffsets_1")}})));
    QWidget* columns = across({column(w("pnl_NominalValueLabel"), w.box("ModeBox", 10)),
                               column(w("pnl_SUUpper"), w.box("UpperLimitBox", 10)),
                               column(w("pnl_SULower"), w.box("LowerLimitBox", 10)),
                               column(w("Lbl_SUPctInTol"), w.box("PctInTolBox", 10))});
    return panel("pnl_SUSpecs", "Subject Parameter", tight(rows({{columns}, {options}})));
}

QWidget* measuring(const WidgetMaker& w) {
    QWidget* columns =
        across({column(w("pnl_MTELimit"), w.box("MTEOffsetBox", 10), "pnl_MTEOffset"),
                column(new QLabel, w("Lbl_Equals")),
                column(w("pnl_MTEFixed"), w.box("MTEFixedOffsetBox", 10), "pnl_MTEFixedOffset"),
                column(new QLabel, w("Lbl_Plus")),
                column(w("pnl_PctReading"), w.box("MTEPctOfReadingBox", 10), "pnl_MTEPctOfReading"),
                column(w("pnl_Units"), w.box("MTEParameterUnitsBox", 10)),
                column(w("LbL_MTEPctInTol"), w.box("MTEPctInTolBox", 10), "pnl_MTEPctInTol")});
    return panel("pnl_MTESpecs", "Measuring Parameter", tight(rows({{columns}})));
}

/// Figures first, the command at the foot.
QWidget* risks(const char* name, QGridLayout* grid) {
    tight(grid);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    return panel(name, "", grid);
}

QWidget* computedRisks(const WidgetMaker& w) {
    constexpr int large = 1; // read from afar
    return risks("pnl_ComputedRisks",
                 rows({{{w.heading("Heading_0"), 4}},
                       {w("pnl_RiskLabel_0"), figure(w, "AcceptRisk", large), {w("AcceptUnits"), 2}},
                       {{w("Lbl_ExactAccept"), 4}},
                       {w("pnl_RiskLabel_1"), figure(w, "RejectRisk", large), {w("RejectUnits"), 2}},
                       {{w("Lbl_ExactReject"), 4}},
                       {w("pnl_EqAccRatLabel"), figure(w, "AccRatEquivalent1Box", large),
                        w("Lbl_EqAccRatColon"), w.box("AccRatEquivalent2Box", 4)},
                       {{w("Lbl_EqAccRatNote"), 4}},
                       {{w("Lbl_ExactRatio"), 4}},
                       {{w("Lbl_WorstCase"), 4}},
                       {{w("ComputeResults"), 4}}}));
}

QWidget* baselineRisks(const WidgetMaker& w) {
    return risks("pnl_BaselineRisks",
                 rows({{{w.heading("Heading_1"), 4}},
                       {w("pnl_BaseRiskLabel_0"), figure(w, "BaseAcceptRisk", 0), {w("BaseAcceptUnits"), 2}},
                       {{w("Lbl_ExactBaseAccept"), 4}},
                       {w("pnl_BaseRiskLabel_1"), figure(w, "BaseRejectRisk", 0), {w("BaseRejectUnits"), 2}},
                       {{w("Lbl_ExactBaseReject"), 4}},
                       {w("pnl_BaseAccRatLabel"), figure(w, "BaselineAccRat1Box", 0), ":",
                        w.box("BaselineAccRat2Box", 4)},
                       {{w("cmd_Baseline"), 4}}}));
}

QWidget* options(const WidgetMaker& w) {
    constexpr int narrow = 9;
    QWidget* upperLabel = w("Lbl_Guardbands_0");
    QWidget* upper = w.box("txt_GuardbandMultiplier_0", narrow);
    QWidget* lowerLabel = w("Lbl_Guardbands_1");
    QWidget* lower = w.box("txt_GuardbandMultiplier_1", narrow);
    nameBy(upperLabel, upper);
    nameBy(lowerLabel, lower);
    return panel("pnl_Options", "Options",
                 tight(rows({{w("pnl_UncRatioLabel"), w.box("pnl_UncRatio", narrow)},
                             {w("pnlTURLabel"), w.box("pnlTUR", narrow)},
                             {{across({w("optGuardbands_0"), w("optGuardbands_1")}), 3}},
                             {{across({w("pnl_GuardbandLabel"), upperLabel, upper, lowerLabel, lower}), 3}},
                             {{across({w("chk_IncludeGuardbands"), w("chk_SymmetricGBands")}), 3}},
                             {w("pnl_UncertaintyLabel"), w.box("pnl_ProcessUncertainty", narrow),
                              w("chk_IncludeUncertainty")}})));
}

} // namespace

QWidget* layoutMainScreen(const WidgetMaker& w) {
    auto* made = named(new QWidget, "pnl_Controls");
    auto* grid = new QGridLayout(made);
    grid->setContentsMargins(6, 2, 6, 2);
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(4);
    grid->addWidget(identification(w), 1, 0, 1, 3);
    grid->addWidget(subject(w), 2, 0, 1, 3);
    grid->addWidget(measuring(w), 3, 0, 1, 3);
    grid->addWidget(computedRisks(w), 4, 0);
    grid->addWidget(baselineRisks(w), 4, 1);
    grid->addWidget(options(w), 4, 2);
    for (int row : {0, 5}) grid->setRowStretch(row, 1);
    // Not wider than the eye follows a line.
    made->setMaximumWidth(made->fontMetrics().averageCharWidth() * 210);

    // The height of a text, which every box takes.
    auto* height = static_cast<QLabel*>(named(new QLabel("Xg", made), "Lbl_TextHeight"));
    height->hide();
    // Takes the focus when an entry is to be committed without going anywhere.
    auto* lostFocus = new QLineEdit(made);
    named(lostFocus, "txt_LostFocus");
    lostFocus->setFixedSize(0, 0);
    lostFocus->setFocusPolicy(Qt::ClickFocus);
    return made;
}

} // namespace metrisk
