// The screen MTEError.
#include "window/uncertainty/Layouts.h"

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
};
constexpr Column columns[] = {{"txt_Description", "Error Source"},
                              {"LimitsBox", "Error Limits"},
                              {"ConfidenceBox", "% Confidence"},
                              {"UncertaintyBox", "Uncertainty"},
                              {"IncludeBox", "Include?"},
                              {"txt_DegreesFreedom", "Deg Fdm"},
                              {"pnl_Share", "Share"}};
constexpr int rowCount = 9;

QGroupBox* budget(const WidgetMaker& w) {
    auto* grid = new QGridLayout;
    for (int column = 0; column < static_cast<int>(std::size(columns)); ++column) {
        const Column& made = columns[column];
        grid->addWidget(new QLabel(made.heading), 0, column);
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
    widen(6, 12);
    for (int row = 1; row <= rowCount; ++row) // a tick stands in the middle of its column
        grid->setAlignment(grid->itemAtPosition(row, 4)->widget(), Qt::AlignHCenter);
    const int buttons = static_cast<int>(std::size(columns));
    grid->addWidget(w("cmd_Tolerances"), 1, buttons);
    grid->addWidget(w("cmd_Random_0"), 2, buttons);
    grid->addWidget(w("cmd_Random_1"), 8, buttons);
    for (const int column : {0, 1, 2, 3, 5}) grid->setColumnStretch(column, 1);
    return group("Error Sources", grid);
}

QGroupBox* totals(const WidgetMaker& w) {
    return group("Process Uncertainty",
                 rows({{w("Lbl_ProcessUncertainty"), w("txt_ProcessUncertainty"), "Deg Fdm",
                        w("txt_ProcessDf"), w("Lbl_ErledUnits"), w("ErledUnitsBox")},
                       {w("Lbl_TotalUncertainty"),
                        w("MTEErrorSigmaBox"),
                        "Deg Fdm",
                        w("txt_TotalDegFreedom"),
                        {w("OptUncertainty"), 2}},
                       {{}, {w.heading("Lbl_Contradiction"), 3}}}));
}

QGroupBox* bias(const WidgetMaker& w) {
    return group("Parameter Bias Uncertainty Analysis",
                 rows({{w("Lbl_TrueValue"),
                        w("TrueValueBox"),
                        w("Lbl_PctConfidence"),
                        w("PctConfidenceBox"),
                        w("Lbl_CoverageFactor"),
                        w("CoverageFactorBox"),
                        {w("cmd_BiasAnalysis"), 2}},
                       {w("Lbl_MTEBias"), w("MTEBiasBox"), w("Lbl_MTEUncertainty"), w("MTEUncertaintyBox"),
                        w("Lbl_MTELimits"), w("MTEUncertaintyLimitsBox"), w("Lbl_InTolProbability_0"),
                        w("pnl_InTolProbability_0")},
                       {w("Lbl_SUBias"), w("SUBiasBox"), w("Lbl_SUUncertainty"), w("SUUncertaintyBox"),
                        w("Lbl_SULimits"), w("SUUncertaintyLimitsBox"), w("Lbl_InTolProbability_1"),
                        w("pnl_InTolProbability_1")}}));
}

} // namespace

QWidget* layoutMTEError(const WidgetMaker& w) {
    return down({budget(w), totals(w), bias(w), foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
