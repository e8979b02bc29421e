#include "shell/screens/MainPanels.h"

#include "screens/EntryBox.h"
#include "screens/Widgets.h"
#include "shell/mainscreen/Captions.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

namespace metrisk {

namespace {

QLabel* label(const char* name) {
    return named(new QLabel(caption(captionOf(name))), name);
}

QLabel* labelOf(QWidget* box, const char* text) {
    auto* made = new QLabel(caption(text));
    made->setBuddy(box);
    return made;
}

template <class Button>
Button* button(const char* name, const char* toolTip) {
    return named(new Button(caption(captionOf(name))), name, toolTip);
}

EntryBox* entry(const char* name, const char* toolTip) {
    auto* box = named(new EntryBox, name, toolTip);
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 14);
    return box;
}

/// A figure that can be selected and copied but not typed into.
QLineEdit* result(const char* name, const char* toolTip, int characters = 10) {
    auto* box = named(new QLineEdit, name, toolTip);
    showLocked(box, true);
    box->setAlignment(Qt::AlignRight);
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * characters);
    return box;
}

QLabel* heading(const char* name) {
    auto* made = label(name);
    QFont bold = made->font();
    bold.setBold(true);
    made->setFont(bold);
    return made;
}

/// A grid with room for the whole screen at 1024 x 768.
QGridLayout* tightGrid(QWidget* parent) {
    auto* grid = new QGridLayout(parent);
    grid->setContentsMargins(8, 4, 8, 6);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(8);
    return grid;
}

QGroupBox* panel(const char* name, const char* title) {
    return named(new QGroupBox(title), name);
}

/// A label above its box.
void addColumn(QGridLayout* grid, int column, QLabel* above, QWidget* box) {
    above->setBuddy(box);
    grid->addWidget(above, 0, column);
    grid->addWidget(box, 1, column);
    grid->setColumnStretch(column, 1);
}

} // namespace

QWidget* makeIdentificationPanel() {
    auto* made = panel("pnl_IDData", "Identification");
    auto* grid = tightGrid(made);
    auto* subject = button<QPushButton>("cmdSU", "Go to the subject unit's identification");
    auto* measuring = button<QPushButton>("cmdMTE", "Go to the measuring system's identification");
    grid->addWidget(subject, 0, 1);
    grid->addWidget(measuring, 0, 3);
    struct Row {
        const char* su;
        const char* mte;
    };
    static constexpr Row rows[] = {
        {"SystemIDBox", "MTESystemIDBox"},         {"SUModelNumberBox", "MTEModelNumberBox"},
        {"SUDescriptionBox", "MTEDescriptionBox"}, {"ParameterIDBox", "MTEParameterIDBox"},
        {"Qualifier1Box", "MTEQualifier1Box"},     {"Qualifier2Box", "MTEQualifier2Box"}};
    std::vector<QWidget*> subjectColumn = {subject};
    std::vector<QWidget*> measuringColumn = {measuring};
    int line = 1;
    for (const Row& row : rows) {
        const char* text = identificationLabels()[static_cast<std::size_t>(line - 1)];
        auto* su = named(new EntryBox, row.su, QString("%1 of the subject unit").arg(caption(text)));
        auto* mte = named(new EntryBox, row.mte, QString("%1 of the measuring system").arg(caption(text)));
        grid->addWidget(labelOf(su, text), line, 0);
        grid->addWidget(su, line, 1);
        grid->addWidget(labelOf(mte, text), line, 2);
        grid->addWidget(mte, line, 3);
        subjectColumn.push_back(su);
        measuringColumn.push_back(mte);
        ++line;
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    // One unit is described before the other.
    for (const auto* column : {&subjectColumn, &measuringColumn})
        for (std::size_t i = 1; i < column->size(); ++i) QWidget::setTabOrder((*column)[i - 1], (*column)[i]);
    QWidget::setTabOrder(subjectColumn.back(), measuring);
    for (const auto* column : {&subjectColumn, &measuringColumn})
        QObject::connect(static_cast<QPushButton*>(column->front()), &QPushButton::clicked, column->at(1),
                         [first = column->at(1)] { first->setFocus(); });
    return made;
}

QWidget* makeSubjectPanel() {
    auto* made = panel("pnl_SUSpecs", "Subject Parameter");
    auto* grid = tightGrid(made);
    addColumn(grid, 0, label("pnl_NominalValueLabel"),
              entry("ModeBox", "Nominal value of the parameter, or the reading"));
    addColumn(grid, 1, label("pnl_SUUpper"),
              entry("UpperLimitBox", "Upper tolerance of the subject parameter"));
    addColumn(grid, 2, label("pnl_SULower"),
              entry("LowerLimitBox", "Lower tolerance of the subject parameter"));
    addColumn(grid, 3, label("Lbl_SUPctInTol"),
              entry("PctInTolBox", "Percent of the subject parameters that are in tolerance"));

    auto* options = panel("pnl_LblSUTolerances", captionOf("pnl_LblSUTolerances"));
    auto* row = tightGrid(options);
    auto* sides = new QButtonGroup(options);
    const auto side = [&](const char* name, const char* tip) {
        auto* option = button<QRadioButton>(name, tip);
        sides->addButton(option);
        return option;
    };
    row->addWidget(side("TwoSideOption", "Both tolerance limits exist"), 0, 0);
    row->addWidget(side("SingleUpperOption", "Only an upper limit exists"), 0, 1);
    row->addWidget(side("SingleLowerOption", "Only a lower limit exists"), 0, 2);
    row->addWidget(button<QCheckBox>("chk_Symmetric", "The lower tolerance follows the upper"), 1, 0);
    row->addWidget(button<QCheckBox>("PhysLimitRequired", "There is a value that the parameter cannot pass"),
                   1, 1);
    auto* display = new QButtonGroup(options);
    auto* limits = button<QRadioButton>("optOffsets_0", "Show tolerance limits in nominal units");
    auto* tolerances = button<QRadioButton>("optOffsets_1", "Show tolerances in their own units");
    display->addButton(limits);
    display->addButton(tolerances);
    row->addWidget(label("pnlOffsets"), 0, 3, 2, 1);
    row->addWidget(limits, 0, 4);
    row->addWidget(tolerances, 1, 4);
    row->setColumnStretch(5, 1);
    grid->addWidget(options, 2, 0, 1, 4);
    return made;
}

QWidget* makeMeasuringPanel() {
    auto* made = panel("pnl_MTESpecs", "Measuring Parameter");
    auto* grid = tightGrid(made);
    addColumn(grid, 0, label("pnl_MTELimit"),
              entry("MTEOffsetBox", "Tolerance limit or expanded uncertainty of the measuring parameter"));
    grid->addWidget(label("Lbl_Equals"), 1, 1);
    addColumn(grid, 2, label("pnl_MTEFixed"),
              entry("MTEFixedOffsetBox", "Fixed part of the tolerance, or the standard uncertainty"));
    grid->setColumnStretch(1, 0);
    grid->addWidget(label("Lbl_Plus"), 1, 3);
    addColumn(grid, 4, label("pnl_PctReading"),
              entry("MTEPctOfReadingBox",
                    "Part of the tolerance in percent of the reading, or degrees of freedom"));
    addColumn(grid, 5, label("pnl_Units"), entry("MTEParameterUnitsBox", "Units of the measuring parameter"));
    addColumn(grid, 6, label("LbL_MTEPctInTol"),
              entry("MTEPctInTolBox", "Percent in-tolerance or confidence level of the measuring parameter"));
    return made;
}

namespace {

QLineEdit* unitsBox(const char* name) {
    auto* box = result(name, "Units of the risk", 5);
    box->setAlignment(Qt::AlignLeft);
    return box;
}

/// A figure of a risks panel: the label's control, the box with its tool tip, and what stands behind it.
struct RiskRow {
    const char* label;
    const char* box;
    const char* toolTip;
    const char* behind;
};

/// Heading, two risks, a ratio in two figures, and the command.
QWidget* makeRisksPanel(const char* name, const char* headingName, const RiskRow (&rows)[3],
                        QPushButton* command) {
    auto* made = panel(name, "");
    auto* grid = tightGrid(made);
    grid->addWidget(heading(headingName), 0, 0, 1, 4);
    int line = 1;
    for (const RiskRow& row : rows) {
        grid->addWidget(label(row.label), line, 0);
        grid->addWidget(result(row.box, row.toolTip), line, 1);
        grid->addWidget(unitsBox(row.behind), line, 3);
        ++line;
    }
    grid->addWidget(new QLabel(":"), line - 1, 2); // between the figures of the ratio
    grid->setRowStretch(line, 1);
    grid->addWidget(command, line + 1, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    return made;
}

} // namespace

QWidget* makeComputedRisksPanel() {
    return makeRisksPanel("pnl_ComputedRisks", "Heading_0",
                          {{"pnl_RiskLabel_0", "AcceptRisk", "Computed false accept risk", "AcceptUnits"},
                           {"pnl_RiskLabel_1", "RejectRisk", "Computed false reject risk", "RejectUnits"},
                           {"pnl_EqAccRatLabel", "AccRatEquivalent1Box",
                            "Accuracy ratio with the same risk in the baseline", "AccRatEquivalent2Box"}},
                          button<QPushButton>("ComputeResults", "Compute the risks of this analysis"));
}

QWidget* makeBaselineRisksPanel() {
    return makeRisksPanel(
        "pnl_BaselineRisks", "Heading_1",
        {{"pnl_BaseRiskLabel_0", "BaseAcceptRisk", "False accept risk of the baseline", "BaseAcceptUnits"},
         {"pnl_BaseRiskLabel_1", "BaseRejectRisk", "False reject risk of the baseline", "BaseRejectUnits"},
         {"pnl_BaseAccRatLabel", "BaselineAccRat1Box", "Accuracy ratio of the baseline",
          "BaselineAccRat2Box"}},
        button<QPushButton>("cmd_Baseline", "Set and compute the baseline"));
}

QWidget* makeOptionsPanel() {
    auto* made = panel("pnl_Options", "Options");
    auto* grid = tightGrid(made);
    grid->addWidget(label("pnl_UncRatioLabel"), 0, 0);
    grid->addWidget(result("pnl_UncRatio", "Subject sigma over measuring sigma"), 0, 1, 1, 2);
    grid->addWidget(label("pnlTURLabel"), 1, 0);
    grid->addWidget(result("pnlTUR", "Subject tolerance over the measuring uncertainty at 95 %"), 1, 1, 1, 2);

    grid->addWidget(label("pnl_GuardbandLabel"), 2, 0);
    auto* bands = new QButtonGroup(made);
    auto* limits = button<QRadioButton>("optGuardbands_0", "Show guardbands as test limits");
    auto* multipliers = button<QRadioButton>("optGuardbands_1", "Show guardband multipliers");
    bands->addButton(limits);
    bands->addButton(multipliers);
    grid->addWidget(limits, 2, 1);
    grid->addWidget(multipliers, 2, 2);
    for (int i : {0, 1}) {
        grid->addWidget(label(i == 0 ? "Lbl_Guardbands_0" : "Lbl_Guardbands_1"), 3 + i, 0, Qt::AlignRight);
        grid->addWidget(result(i == 0 ? "txt_GuardbandMultiplier_0" : "txt_GuardbandMultiplier_1",
                               i == 0 ? "Upper guardband" : "Lower guardband"),
                        3 + i, 1);
    }
    grid->addWidget(button<QCheckBox>("chk_IncludeGuardbands", "Compute risks with the test limits"), 3, 2);
    grid->addWidget(button<QCheckBox>("chk_SymmetricGBands", "One multiplier for both sides"), 4, 2);

    grid->addWidget(label("pnl_UncertaintyLabel"), 5, 0);
    grid->addWidget(result("pnl_ProcessUncertainty", "Total measurement process uncertainty"), 5, 1);
    grid->addWidget(button<QCheckBox>("chk_IncludeUncertainty",
                                      "Take the process uncertainty into the measuring parameter"),
                    5, 2);
    grid->setColumnStretch(1, 1);
    return made;
}

} // namespace metrisk
