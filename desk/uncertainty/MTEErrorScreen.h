// The process uncertainty worksheet, screen MTEError: the budget of error sources, its totals and the bias
// analysis.
#pragma once

#include "desk/kit/Session.h"
#include "desk/kit/Worksheet.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace metrisk {

class MTEErrorScreen final : public Worksheet {
  public:
    /// One error source. Row 0 shows the measuring parameter and takes no entry but its tick.
    struct Row {
        /// Control names with their row, as the table counts.
        struct Names {
            std::string description, limits, confidence, uncertainty, include, degFreedom, share;
            explicit Names(int row);
        } const names;
        TextBox txt_Description;
        TextBox LimitsBox;
        TextBox ConfidenceBox;
        TextBox UncertaintyBox;
        CheckBox IncludeBox;
        TextBox txt_DegreesFreedom;
        Meter share;
        std::optional<PushButton> button; // cmd_Tolerances or cmd_Random

        Row(MTEErrorScreen& owner, int row);
    };

    static constexpr const char* confidencePicture = "#,##0.00";
    static constexpr const char* factorPicture = "#,##0.0000";

    std::array<Row, errorRowCount> rows{Row(*this, 0), Row(*this, 1), Row(*this, 2),
                                        Row(*this, 3), Row(*this, 4), Row(*this, 5),
                                        Row(*this, 6), Row(*this, 7), Row(*this, 8)};

    Label Lbl_ProcessUncertainty{*this, "Lbl_ProcessUncertainty", "Bias Excluded"};
    TextBox txt_ProcessUncertainty{*this, "txt_ProcessUncertainty", "Total of rows 1 to 8 that are included"};
    TextBox txt_ProcessDf{*this, "txt_ProcessDf", "Its effective degrees of freedom"};
    Label Lbl_TotalUncertainty{*this, "Lbl_TotalUncertainty", "Total Uncertainty"};
    TextBox MTEErrorSigmaBox{*this, "MTEErrorSigmaBox", "Total of all rows that are included"};
    TextBox txt_TotalDegFreedom{*this, "txt_TotalDegFreedom",
                                "Effective degrees of freedom with the MTE bias, included or not"};
    Label Lbl_ErledUnits{*this, "Lbl_ErledUnits", "Units"};
    TextBox ErledUnitsBox{*this, "ErledUnitsBox", "Tolerance units of the measuring parameter", Holds::Words};
    Label Lbl_Contradiction{*this, "Lbl_Contradiction"};
    CheckBox OptUncertainty{*this, "OptUncertainty", "Include in Analysis ",
                            "Risks are computed with this process uncertainty"};

    Label Lbl_TrueValue{*this, "Lbl_TrueValue", "Estimated True Offset"};
    TextBox TrueValueBox{*this, "TrueValueBox", ""};
    Label Lbl_MTEBias{*this, "Lbl_MTEBias", "Estimated MTE Bias"};
    TextBox MTEBiasBox{*this, "MTEBiasBox", ""};
    Label Lbl_MTEUncertainty{*this, "Lbl_MTEUncertainty", "Uncertainty"};
    TextBox MTEUncertaintyBox{*this, "MTEUncertaintyBox", ""};
    Label Lbl_MTELimits{*this, "Lbl_MTELimits", "Confidence Limits"};
    TextBox MTEUncertaintyLimitsBox{*this, "MTEUncertaintyLimitsBox", ""};
    Label Lbl_InTolProbability_0{*this, "Lbl_InTolProbability_0", "In-Tol Probability"};
    TextBox pnl_InTolProbability_0{*this, "pnl_InTolProbability_0", ""};
    Label Lbl_SUBias{*this, "Lbl_SUBias", "Estimated SU Bias"};
    TextBox SUBiasBox{*this, "SUBiasBox", ""};
    Label Lbl_SUUncertainty{*this, "Lbl_SUUncertainty", "Uncertainty"};
    TextBox SUUncertaintyBox{*this, "SUUncertaintyBox", ""};
    Label Lbl_SULimits{*this, "Lbl_SULimits", "Confidence Limits"};
    TextBox SUUncertaintyLimitsBox{*this, "SUUncertaintyLimitsBox", ""};
    Label Lbl_InTolProbability_1{*this, "Lbl_InTolProbability_1", "In-Tol Probability"};
    TextBox pnl_InTolProbability_1{*this, "pnl_InTolProbability_1", ""};
    Label Lbl_PctConfidence{*this, "Lbl_PctConfidence", "% Confidence"};
    TextBox PctConfidenceBox{*this, "PctConfidenceBox", "Confidence of the limits of both biases"};
    Label Lbl_CoverageFactor{*this, "Lbl_CoverageFactor", "Coverage Factor"};
    TextBox CoverageFactorBox{*this, "CoverageFactorBox", "Uncertainties between a bias and its limits"};
    PushButton cmd_BiasAnalysis{*this, "cmd_BiasAnalysis", "Analyze &Bias",
                                "Estimate both biases from the samples"};
    Label Lbl_Foot{*this, "Lbl_Foot"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Accept Changes"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Cancel Changes"};

    explicit MTEErrorScreen(Session& session);
    ~MTEErrorScreen() override;

    void refresh() override;

    /// Lets the user put tolerances of both parameters into the record of the session, which no Cancel here
    /// takes back; none while there is no such screen.
    std::function<void()> openTolerances;

    /// The report of the budget as it stands here, on screen and on paper.
    std::function<void(Session& desk)> previewReport;
    std::function<void(Session& desk)> printReport;

    /// Shows the error plot of the budget as it stands here.
    std::function<void(Session& desk)> openErrorPlot;

  protected:
    bool mayClose(Way way) override;
    FieldResult runRule(TextBox& box, const std::string& text) override;

  private:
    Session& session_;
    Session desk_;    // its record is worked on; OK carries the groups of the worksheet over
    Analysis loaded_; // what differs from it is a change
    std::optional<Totals> totals_;

    void makeMenus();
    void bindRow(int row);
    void viewDistribution();
    void report(const std::function<void(Session& desk)>& show);
    void bindBias();
    FieldResult leaveEntry(int row, ErrorEntry entry, TextBox& box, const std::string& text);
    bool changeTable(const std::function<void()>& change);
    void tableChanged();
    void enterTolerances();
    void enterSamples(int slot);
    void correlate();
    void importErrors();
    void analyzeBias();
    FieldResult leaveConfidence(const std::string& text);
    FieldResult leaveCoverageFactor(const std::string& text);

    void showRow(int row);
    void showTotals();
    void showBias();
    bool changed() const;
    void keepNames();
    void store();
};

} // namespace metrisk
