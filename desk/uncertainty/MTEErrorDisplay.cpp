// What the process uncertainty worksheet shows of the record it works on.
#include "desk/uncertainty/MTEErrorScreen.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/BiasAnalysis.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* contradictionMark = "Correlations contradict each other";
constexpr const char* staleTip = "Not computed for these entries";
constexpr const char* nothingYet = "\u2013";
constexpr int biasFigureDecimals = 4;

} // namespace

void MTEErrorScreen::refresh() {
    const Analysis& r = desk_.record;
    try {
        totals_ = ComputeTotals(readErrorRows(r, session_.regional), r.CorrelationMatrix);
    } catch (const RuntimeFault&) {
        totals_.reset();
    }
    for (int row = 0; row < errorRowCount; ++row) showRow(row);
    rows[biasRow].button->allow(static_cast<bool>(openTolerances),
                                "The tolerances cannot be changed from here");
    findItem(menus, "mnu_ViewDistribution")->off = !openErrorPlot;
    findItem(menus, "mnu_Print")->off = !printReport;
    findItem(menus, "mnu_Preview")->off = !previewReport;
    showTotals();
    OptUncertainty.checked = r.IncludeUncertainty;
    showBias();
}

void MTEErrorScreen::showRow(int index) {
    Row& row = rows[static_cast<std::size_t>(index)];
    const ErrorTableRow cells = readErrorTableRow(desk_.record, index, session_.regional);
    row.txt_Description.text = cells.name;
    row.LimitsBox.text = cells.limit.shown;
    row.ConfidenceBox.text = cells.confidence.shown;
    row.UncertaintyBox.text = cells.uncertainty.shown;
    row.IncludeBox.checked = cells.included;
    row.IncludeBox.allow(index == biasRow || cells.uncertainty.present(), "This row has no uncertainty");
    row.txt_DegreesFreedom.text = cells.degFreedom.shown;
    const double percent = totals_ ? 100 * totals_->shares[static_cast<std::size_t>(index)] : 0;
    row.share.value = std::clamp(percent, 0.0, 100.0);
    row.share.text = FormatNumber(percent, "0.0", session_.regional) + " %";
    row.share.visible = cells.uncertainty.present() || index == biasRow;
    row.share.toolTip = "Share of " + cells.name + " in the squared total";
}

void MTEErrorScreen::showTotals() {
    const ToleranceUnits units = measuringUnits(desk_.record);
    const Regional& regional = session_.regional;
    ErledUnitsBox.text = units.name;
    for (TextBox* box : {&txt_ProcessUncertainty, &txt_ProcessDf, &MTEErrorSigmaBox, &txt_TotalDegFreedom})
        box->text.clear();
    Lbl_Contradiction.text = totals_ && totals_->contradictory ? contradictionMark : "";
    Lbl_Contradiction.visible = !Lbl_Contradiction.text.empty();
    if (!totals_) return;
    const bool any = totals_->anyProcess || totals_->anyTotal;
    const int decimals = any ? std::max(totals_->processDecimals, totals_->totalDecimals) : 0;
    const auto figure = [&](double value) { return ErrorCell::readable(value, decimals, regional); };
    txt_ProcessUncertainty.text = figure(totals_->process);
    MTEErrorSigmaBox.text = rows[biasRow].IncludeBox.checked ? withUnits(figure(totals_->total), units.name)
                                                             : txt_ProcessUncertainty.text;
    if (totals_->anyProcess) txt_ProcessDf.text = degFreedomText(totals_->processFreedom, regional);
    if (totals_->anyTotal) txt_TotalDegFreedom.text = degFreedomText(totals_->totalFreedom, regional);
}

void MTEErrorScreen::showBias() {
    const Analysis& r = desk_.record;
    const ToleranceUnits units = measuringUnits(r);
    const Regional& regional = session_.regional;
    const bool stands = BiasResultsStand(desk_.record, session_.regional);
    const bool any = stands || r.SMPC_MTEUncertainty != 0 || r.SMPC_SUUncertainty != 0;
    const auto show = [&](TextBox& box, const std::string& text, const char* tip) {
        box.text = any ? text : "";
        box.enabled = stands;
        box.toolTip = stands || !any ? tip : staleTip;
    };
    const auto figure = [&](double nominal) {
        return ErrorCell::readable(units.shown(nominal), biasFigureDecimals, regional);
    };
    const auto percent = [&](double fraction) { return FormatNumber(100 * fraction, "##0.0000", regional); };
    show(TrueValueBox, figure(r.SMPC_TrueOffset), "Estimated true value less the mode");
    show(MTEBiasBox, figure(r.SMPC_Bias[1]), "True value less what the measuring parameter indicates");
    show(MTEUncertaintyBox, figure(r.SMPC_MTEUncertainty), "Uncertainty of the estimate");
    show(MTEUncertaintyLimitsBox, figure(r.SMPC_Limits[1]), "Limits of the estimate");
    show(SUBiasBox, figure(r.SMPC_Bias[2]), "True value less what the subject parameter indicates");
    show(SUUncertaintyBox, figure(r.SMPC_SUUncertainty), "Uncertainty of the estimate");
    show(SUUncertaintyLimitsBox, figure(r.SMPC_Limits[2]), "Limits of the estimate");
    show(pnl_InTolProbability_0, percent(r.SMPC_InTolProb[1]),
         "Percent probability that the measuring parameter is in tolerance");
    show(pnl_InTolProbability_1, percent(r.SMPC_InTolProb[2]),
         "Percent probability that the subject parameter is in tolerance");
    const bool samples = anySample(r);
    for (TextBox* box : {&TrueValueBox, &MTEBiasBox, &SUBiasBox}) box->hint = samples ? "" : "no samples";
    for (TextBox* box : {&MTEUncertaintyBox, &MTEUncertaintyLimitsBox, &SUUncertaintyBox,
                         &SUUncertaintyLimitsBox, &pnl_InTolProbability_0, &pnl_InTolProbability_1})
        box->hint = nothingYet;
    Lbl_Foot.text = samples ? "" : "Analyze Bias needs samples of a parameter.";
    cmd_BiasAnalysis.toolTip = samples ? "Estimate both biases from the samples" : Lbl_Foot.text;
    const auto picture = [](double value, const std::string& held, const char* otherwise) {
        return WidenPicture(value, held.empty() ? otherwise : held);
    };
    const double confidence = 100 * r.SMPC_Confidence;
    PctConfidenceBox.text =
        FormatNumber(confidence, picture(confidence, r.SMPC_Confidence_fmt, confidencePicture), regional);
    CoverageFactorBox.text =
        FormatNumber(r.SMPC_CoverageFactor,
                     picture(r.SMPC_CoverageFactor, r.SMPC_CoverageFactor_fmt, factorPicture), regional);
}

} // namespace metrisk
