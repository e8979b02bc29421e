// The screen MTEError.
#include "window/uncertainty/Layouts.h"

#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <iterator>

namespace metrisk {

namespace {

struct Column {
    const char* control;
    const char* heading;
    bool figures;
};
constexpr Column columns[] = {{"txt_Description", "Error Source", false},
                              {"LimitsBox", "Error Limits", true},
                              {"ConfidenceBox", "% Confidence", true},
                              {"UncertaintyBox", "Uncertainty", true},
                              {"IncludeBox", "Include?", false},
                              {"txt_DegreesFreedom", "Deg Fdm", true},
                              {"pnl_Share", "Share", true}};
constexpr int rowCount = 9;
constexpr int tickColumn = 4;
constexpr int rowHeight = 26; // of the rows with a button

QLabel* headingOf(const Column& column) {
    if (column.figures) return overFigures(column.heading);
    auto* label = new QLabel(column.heading);
    label->setForegroundRole(captionRole());
    return label;
}

QGroupBox* budget(const WidgetMaker& w) {
    auto* grid = new QGridLayout;
    for (int column = 0; column < static_cast<int>(std::size(columns)); ++column) {
        const Column& made = columns[column];
        grid->addWidget(headingOf(made), 0, column);
        for (int row = 0; row < rowCount; ++row) {
            QWidget* cell =
                w(QByteArray(made.control).append('_').append(QByteArray::number(row)).constData());
            cell->setAccessibleName(QString("%1, row %2").arg(made.heading).arg(row));
            grid->addWidget(cell, row + 1, column);
        }
    }
    const auto widen = [grid](int column, int characters) {
        for (int row = 1; row <= rowCount; ++row) {
            QWidget* cell = grid->itemAtPosition(row, column)->widget();
            cell->setMinimumWidth(cell->fontMetrics().averageCharWidth() * characters);
        }
    };
    widen(0, 20);
    widen(6, 13);
    for (int row = 1; row <= rowCount; ++row) { // a tick stands in the middle of its column
        grid->setAlignment(grid->itemAtPosition(row, tickColumn)->widget(), Qt::AlignHCenter);
        grid->setRowMinimumHeight(row, rowHeight);
    }
    const int buttons = static_cast<int>(std::size(columns));
    grid->addWidget(w("cmd_Tolerances"), 1, buttons);
    grid->addWidget(w("cmd_Random_0"), 2, buttons);
    grid->addWidget(w("cmd_Random_1"), 8, buttons);
    for (const int column : {1, 2, 3, 5, 6}) grid->setColumnStretch(column, 1);
    return group("Error Sources", grid);
}

constexpr int labelColumn = 136; // as wide as that of the error sources

QWidget* total(QWidget* box) {
    QFont bold = box->font();
    bold.setBold(true);
    box->setFont(bold);
    return box;
}

QGroupBox* totals(const WidgetMaker& w) {
    QGridLayout* grid = rows({{w("Lbl_ProcessUncertainty"), w.box("txt_ProcessUncertainty", 15), "Deg Fdm",
                               w.box("txt_ProcessDf", 9), w("Lbl_ErledUnits"), w.box("ErledUnitsBox", 8)},
                              {w.heading("Lbl_TotalUncertainty"),
                               total(w.box("MTEErrorSigmaBox", 15)),
                               "Deg Fdm",
                               w.box("txt_TotalDegFreedom", 9),
                               {w("OptUncertainty"), 2}},
                              {{}, {w.heading("Lbl_Contradiction"), 5}}});
    grid->setColumnMinimumWidth(0, labelColumn);
    for (const int column : {1, 3, 5}) grid->setColumnStretch(column, 0);
    grid->setColumnStretch(6, 1);
    return group("Process Uncertainty", grid);
}

QGroupBox* bias(const WidgetMaker& w) {
    constexpr int figure = 10;
    QGridLayout* grid = rows({{wrapped(w("Lbl_TrueValue")),
                               w.box("TrueValueBox", figure),
                               wrapped(w("Lbl_PctConfidence")),
                               w.box("PctConfidenceBox", figure),
                               wrapped(w("Lbl_CoverageFactor")),
                               w.box("CoverageFactorBox", figure),
                               {w("cmd_BiasAnalysis"), 2}},
                              {wrapped(w("Lbl_MTEBias")), w.box("MTEBiasBox", figure),
                               w("Lbl_MTEUncertainty"), w.box("MTEUncertaintyBox", figure),
                               wrapped(w("Lbl_MTELimits")), w.box("MTEUncertaintyLimitsBox", figure),
                               wrapped(w("Lbl_InTolProbability_0")), w.box("pnl_InTolProbability_0", 8)},
                              {wrapped(w("Lbl_SUBias")), w.box("SUBiasBox", figure), w("Lbl_SUUncertainty"),
                               w.box("SUUncertaintyBox", figure), wrapped(w("Lbl_SULimits")),
                               w.box("SUUncertaintyLimitsBox", figure), wrapped(w("Lbl_InTolProbability_1")),
                               w.box("pnl_InTolProbability_1", 8)}});
    grid->setColumnMinimumWidth(0, labelColumn);
    return group("Parameter Bias Uncertainty Analysis", grid);
}

} // namespace

QWidget* layoutMTEError(const WidgetMaker& w) {
    return down({budget(w), totals(w), bias(w), foot(w("Lbl_Foot"), {w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
