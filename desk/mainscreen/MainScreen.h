// The main screen: entry of both parameters, options, results.
#pragma once

#include "desk/kit/ScreenEntry.h"
#include "desk/mainscreen/SavedCopy.h"
#include "desk/mainscreen/WorstCaseLine.h"

#include <functional>
#include <string>

namespace metrisk {

struct Session;

class MainScreen final : public Worksheet {
  public:
    Panel pnl_IDData{*this, "pnl_IDData"};
    PushButton cmdSU{*this, "cmdSU", "SUBJECT\nUNIT", "Go to the subject unit's identification"};
    TextBox SystemIDBox{*this, "SystemIDBox", "Manufacturer of the subject unit", Holds::Words};
    TextBox SUModelNumberBox{*this, "SUModelNumberBox", "Model number of the subject unit", Holds::Words};
    TextBox SUDescriptionBox{*this, "SUDescriptionBox", "Description of the subject unit", Holds::Words};
    TextBox ParameterIDBox{*this, "ParameterIDBox", "Name of the subject parameter", Holds::Words};
    TextBox Qualifier1Box{*this, "Qualifier1Box", "First qualifier of the subject parameter", Holds::Words};
    TextBox Qualifier2Box{*this, "Qualifier2Box", "Second qualifier of the subject parameter", Holds::Words};
    PushButton cmdMTE{*this, "cmdMTE", "MEASURING\nSYSTEM", "Go to the measuring system's identification"};
    TextBox MTESystemIDBox{*this, "MTESystemIDBox", "Manufacturer of the measuring system", Holds::Words};
    TextBox MTEModelNumberBox{*this, "MTEModelNumberBox", "Model number of the measuring system",
                              Holds::Words};
    TextBox MTEDescriptionBox{*this, "MTEDescriptionBox", "Description of the measuring system",
                              Holds::Words};
    TextBox MTEParameterIDBox{*this, "MTEParameterIDBox", "Name of the measuring parameter", Holds::Words};
    TextBox MTEQualifier1Box{*this, "MTEQualifier1Box", "First qualifier of the measuring parameter",
                             Holds::Words};
    TextBox MTEQualifier2Box{*this, "MTEQualifier2Box", "Second qualifier of the measuring parameter",
                             Holds::Words};

    Label pnl_NominalValueLabel{*this, "pnl_NominalValueLabel", "Nominal or Reading Value"};
    TextBox ModeBox{*this, "ModeBox", "Nominal value of the parameter, or the reading"};
    Label pnl_SUUpper{*this, "pnl_SUUpper"};
    TextBox UpperLimitBox{*this, "UpperLimitBox", "Upper tolerance of the subject parameter"};
    Label pnl_SULower{*this, "pnl_SULower"};
    TextBox LowerLimitBox{*this, "LowerLimitBox", "Lower tolerance of the subject parameter"};
    Label Lbl_SUPctInTol{*this, "Lbl_SUPctInTol", "% In-Tolerance"};
    TextBox PctInTolBox{*this, "PctInTolBox", "Percent of the subject parameters that are in tolerance"};

    RadioButton TwoSideOption{*this, "TwoSideOption", "Two-Sided", "Both tolerance limits exist", 0};
    RadioButton SingleUpperOption{*this, "SingleUpperOption", "Single-Sided Upper",
                                  "Only an upper limit exists", 0};
    RadioButton SingleLowerOption{*this, "SingleLowerOption", "Single-Sided Lower",
                                  "Only a lower limit exists", 0};
    CheckBox chk_Symmetric{*this, "chk_Symmetric", " Symmetric Tolerances",
                           "The lower tolerance follows the upper"};
    CheckBox PhysLimitRequired{*this, "PhysLimitRequired", " Enter Physical Limit?",
                               "There is a value that the parameter cannot pass"};
    Label pnlOffsets{*this, "pnlOffsets", "Display\nOption"};
    RadioButton optOffsets_0{*this, "optOffsets_0", "Limits", "Show tolerance limits in nominal units", 1};
    RadioButton optOffsets_1{*this, "optOffsets_1", "Tolerances", "Show tolerances in their own units", 1};

    Label pnl_MTELimit{*this, "pnl_MTELimit"};
    TextBox MTEOffsetBox{*this, "MTEOffsetBox",
                         "Tolerance limit or expanded uncertainty of the measuring parameter"};
    Label Lbl_Equals{*this, "Lbl_Equals", "="};
    Label pnl_MTEFixed{*this, "pnl_MTEFixed"};
    TextBox MTEFixedOffsetBox{*this, "MTEFixedOffsetBox",
                              "Fixed part of the tolerance, or the standard uncertainty"};
    Label Lbl_Plus{*this, "Lbl_Plus", "+"};
    Label pnl_PctReading{*this, "pnl_PctReading"};
    TextBox MTEPctOfReadingBox{*this, "MTEPctOfReadingBox",
                               "Part of the tolerance in percent of the reading, or degrees of freedom"};
    Label pnl_Units{*this, "pnl_Units", "Units"};
    TextBox MTEParameterUnitsBox{*this, "MTEParameterUnitsBox", "Units of the measuring parameter",
                                 Holds::Words};
    Label LbL_MTEPctInTol{*this, "LbL_MTEPctInTol"};
    TextBox MTEPctInTolBox{*this, "MTEPctInTolBox",
                           "Percent in-tolerance or confidence level of the measuring parameter"};

    Label Heading_0{*this, "Heading_0"};
    Label Lbl_State{*this, "Lbl_State"};
    Label pnl_RiskLabel_0{*this, "pnl_RiskLabel_0", "False Accept Risk"};
    TextBox AcceptRisk{*this, "AcceptRisk", ""};
    Label AcceptUnits{*this, "AcceptUnits"};
    Label Lbl_AcceptMark{*this, "Lbl_AcceptMark"};
    Label Lbl_ExactAccept{*this, "Lbl_ExactAccept"};
    Label pnl_RiskLabel_1{*this, "pnl_RiskLabel_1", "False Reject Risk"};
    TextBox RejectRisk{*this, "RejectRisk", ""};
    Label RejectUnits{*this, "RejectUnits"};
    Label Lbl_RejectMark{*this, "Lbl_RejectMark"};
    Label Lbl_ExactReject{*this, "Lbl_ExactReject"};
    Label pnl_EqAccRatLabel{*this, "pnl_EqAccRatLabel", "Equivalent Accuracy Ratio"};
    TextBox AccRatEquivalent1Box{*this, "AccRatEquivalent1Box", ""};
    Label Lbl_EqAccRatColon{*this, "Lbl_EqAccRatColon", ":"};
    TextBox AccRatEquivalent2Box{*this, "AccRatEquivalent2Box",
                                 "Right figure of the equivalent accuracy ratio"};
    Label Lbl_EqAccRatNote{*this, "Lbl_EqAccRatNote"};
    Label Lbl_ExactRatio{*this, "Lbl_ExactRatio"};
    Label Lbl_WorstCase{*this, "Lbl_WorstCase"};
    PushButton ComputeResults{*this, "ComputeResults", "&COMPUTE  RISKS", "Computing Risks"};

    Label Heading_1{*this, "Heading_1"};
    Label pnl_BaseRiskLabel_0{*this, "pnl_BaseRiskLabel_0", "False Accept Risk"};
    TextBox BaseAcceptRisk{*this, "BaseAcceptRisk", ""};
    Label BaseAcceptUnits{*this, "BaseAcceptUnits"};
    Label Lbl_ExactBaseAccept{*this, "Lbl_ExactBaseAccept"};
    Label pnl_BaseRiskLabel_1{*this, "pnl_BaseRiskLabel_1", "False Reject Risk"};
    TextBox BaseRejectRisk{*this, "BaseRejectRisk", ""};
    Label BaseRejectUnits{*this, "BaseRejectUnits"};
    Label Lbl_ExactBaseReject{*this, "Lbl_ExactBaseReject"};
    Label pnl_BaseAccRatLabel{*this, "pnl_BaseAccRatLabel", "Accuracy Ratio"};
    TextBox BaselineAccRat1Box{*this, "BaselineAccRat1Box", "Accuracy ratio of the baseline"};
    TextBox BaselineAccRat2Box{*this, "BaselineAccRat2Box", "Right figure of the baseline's accuracy ratio"};
    PushButton cmd_Baseline{*this, "cmd_Baseline", "COMPUTE  &BASELINE", "Set and compute the baseline"};

    Label pnl_UncRatioLabel{*this, "pnl_UncRatioLabel", "Uncertainty Ratio"};
    TextBox pnl_UncRatio{*this, "pnl_UncRatio", "Subject sigma over measuring sigma"};
    Label pnlTURLabel{*this, "pnlTURLabel", "Test Uncertainty Ratio"};
    TextBox pnlTUR{*this, "pnlTUR", "Subject tolerance over the measuring uncertainty at 95 %"};
    Label pnl_GuardbandLabel{*this, "pnl_GuardbandLabel", "Guardbands"};
    RadioButton optGuardbands_0{*this, "optGuardbands_0", "Show Limits", "Show guardbands as test limits", 2};
    RadioButton optGuardbands_1{*this, "optGuardbands_1", "Show Multipliers", "Show guardband multipliers",
                                2};
    Label Lbl_Guardbands_0{*this, "Lbl_Guardbands_0", "Upper"};
    TextBox txt_GuardbandMultiplier_0{*this, "txt_GuardbandMultiplier_0", "Upper guardband"};
    CheckBox chk_IncludeGuardbands{*this, "chk_IncludeGuardbands", "Include ",
                                   "Compute risks with the test limits"};
    Label Lbl_Guardbands_1{*this, "Lbl_Guardbands_1", "Lower"};
    TextBox txt_GuardbandMultiplier_1{*this, "txt_GuardbandMultiplier_1", "Lower guardband"};
    CheckBox chk_SymmetricGBands{*this, "chk_SymmetricGBands", "Symmetric", "One multiplier for both sides"};
    Label pnl_UncertaintyLabel{*this, "pnl_UncertaintyLabel", "Process Uncertainty"};
    TextBox pnl_ProcessUncertainty{*this, "pnl_ProcessUncertainty", "Total measurement process uncertainty"};
    CheckBox chk_IncludeUncertainty{*this, "chk_IncludeUncertainty", "Include",
                                    "Take the process uncertainty into the measuring parameter"};

    /// What the status bar tells while nothing else does: the next step.
    std::string nextStep;
    std::string unreadUnit; // told instead, if a unit was typed behind the last figure
    /// What it tells at its right: of what the analysis is, and whether exact integration agrees.
    std::string area, agreement;

    WorstCaseLine worstCase;

    /// Option optGuardbands: test limits instead of multipliers.
    bool guardbandsAsLimits = false;

    /// Asks whether the program may end.
    std::function<bool()> mayExit = [] { return true; };

    explicit MainScreen(Session& session);

    void refresh() override;

    /// Shows a worksheet that may change the measuring parameter: what depends on it follows.
    void open(std::string_view screen, const DeskParts& parts);
    /// The guardband worksheet.
    void openGuardbands();
    /// The worksheet of tolerance offsets, with the parts' files.
    void openOffsets(const DeskParts& parts);
    /// The process uncertainty worksheet, with the parts' files and reports.
    void openUncertainty(DeskParts parts);

    /// Leaves its room to what is computed; the choice is kept in the settings.
    void hideIdentification(bool hidden);

    /// The record has been replaced: every next comparison of a box counts as a change.
    void forgetLastTexts();

    void TakeSavedCopy();
    /// There is something to save.
    bool hasChanges() const;
    /// Raises FileChanged if the record differs from the saved copy.
    void DetectChanges();

  protected:
    /// On a refusal or a numeric fault the record is unchanged but for AbortFlag, which is set; it is set as
    /// well when the entry is kept but cannot be fitted.
    FieldResult runRule(TextBox& box, const std::string& text) override;
    bool mayRun(const MenuItem& item) override;
    bool mayClose(Way) override { return mayExit(); }

  private:
    Session& session_;
    SavedCopy saved_;

    void followInKFactors();
    void bindTexts();
    void bindNumbers();
    void bindOptions();
};

/// Record to screen, after a load and after a worksheet.
void RefreshMainScreen(Session& session);

} // namespace metrisk
