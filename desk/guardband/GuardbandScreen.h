// The guardband worksheet, screen GuardbandAnalysis: holds, solves, rounds and tries guardbands.
#pragma once

#include "desk/compute/SolveGuardbands.h"
#include "desk/kit/Worksheet.h"
#include "record/Analysis.h"
#include "record/KeptFields.h"
#include "risk/RiskModel.h"
#include "risk/guardband/ExactGuardband.h"

#include <optional>
#include <string>

namespace metrisk {

struct Session;
struct SubjectSide;

/// A uniform subject parameter has no false accept risk.
bool hasNoFalseAccepts(const Analysis& record);

class GuardbandScreen final : public Worksheet {
  public:
    Label Lbl_Mode{*this, "Lbl_Mode", "Mode:"};
    TextBox ModeBox{*this, "ModeBox", "Nominal value of the subject parameter"};
    Label Lbl_UpperTolerance{*this, "Lbl_UpperTolerance"};
    TextBox UpperTolLimitBox{*this, "UpperTolLimitBox", "Upper tolerance of the subject parameter"};
    Label Lbl_LowerTolerance{*this, "Lbl_LowerTolerance"};
    TextBox LowerTolLimitBox{*this, "LowerTolLimitBox", "Lower tolerance of the subject parameter"};
    Label Lbl_ProcessUncertainty{*this, "Lbl_ProcessUncertainty", "Process Uncertainty:"};
    TextBox pnl_ProcessUncertainty{*this, "pnl_ProcessUncertainty",
                                   "Standard deviation of the measuring process, the unit of a k-factor"};
    RadioButton LimitsOptionButton{*this, "LimitsOptionButton", "&Tolerances", "Show limits in nominal units",
                                   0};
    RadioButton OffsetsOptionButton{*this, "OffsetsOptionButton", "Tol. Limits",
                                    "Show distances from the mode in tolerance units", 0};

    Label Lbl_UpperMultiplier{*this, "Lbl_UpperMultiplier", "Upper:"};
    TextBox UpperMultiplierBox{*this, "UpperMultiplierBox",
                               "Part of the upper tolerance at which the upper test limit stands"};
    Label Lbl_LowerMultiplier{*this, "Lbl_LowerMultiplier", "Lower:"};
    TextBox LowerMultiplierBox{*this, "LowerMultiplierBox",
                               "Part of the lower tolerance at which the lower test limit stands"};
    CheckBox SymmetryCheckBox{*this, "SymmetryCheckBox", "&Symmetric Multipliers ",
                              "One multiplier for both sides"};

    Label Lbl_UpperK{*this, "Lbl_UpperK", "Upper k-Factor:"};
    TextBox txt_kFactor_0{*this, "txt_kFactor_0",
                          "Process uncertainties between the upper test limit and the upper tolerance limit"};
    Label Lbl_LowerK{*this, "Lbl_LowerK", "Lower k-Factor:"};
    TextBox txt_kFactor_1{*this, "txt_kFactor_1",
                          "Process uncertainties between the lower test limit and the lower tolerance limit"};
    CheckBox chk_SymmetricK{*this, "chk_SymmetricK", "Symmetric &k-Factors", "One k-factor for both sides"};
    Label Lbl_UpperGuardband{*this, "Lbl_UpperGuardband"};
    TextBox UpperGuardbandBox{*this, "UpperGuardbandBox", "Upper test limit"};
    Label Lbl_LowerGuardband{*this, "Lbl_LowerGuardband"};
    TextBox LowerGuardbandBox{*this, "LowerGuardbandBox", "Lower test limit"};

    RadioButton opt_FARisk{*this, "opt_FARisk", "False Accept", "Solve for the false accept risk entered", 1};
    RadioButton opt_FRRisk{*this, "opt_FRRisk", "False Reject", "Solve for the false reject risk entered", 1};
    RadioButton opt_EqualizeRisks{*this, "opt_EqualizeRisks", "Equalize Risks",
                                  "Solve for guardbands that make both risks equal", 1};
    PushButton cmdComputeGuardbands{*this, "cmdComputeGuardbands", "Co&mpute Guardbands",
                                    "Find the guardbands that give the risk keyed on"};
    Label Lbl_Symmetry{*this, "Lbl_Symmetry"}; // what a solve still needs
    PushButton CmdPlot{*this, "CmdPlot", "&View Plot", "Plot the risks against the guardbands"};
    PushButton cmd_RoundOff{*this, "cmd_RoundOff", "Round Off",
                            "Round multipliers or k-factors to the displayed resolution"};
    TextBox txt_DisplayedResolution{*this, "txt_DisplayedResolution",
                                    "Digits behind the point that Round Off keeps"};
    Label Lbl_Digits{*this, "Lbl_Digits", "digits"};

    Label Lbl_FARisk{*this, "Lbl_FARisk", "False Accept Risk:"};
    TextBox FARiskBox{*this, "FARiskBox", "False accept risk: computed, or the target of a solve"};
    Choice FARiskUnitsBox{*this, "FARiskUnitsBox", "Units of the false accept risk"};
    Label Lbl_FANote{*this, "Lbl_FANote"};
    Label Lbl_ExactAccept{*this, "Lbl_ExactAccept"};
    Label Lbl_FRRisk{*this, "Lbl_FRRisk", "False Reject Risk:"};
    TextBox FRRiskBox{*this, "FRRiskBox", "False reject risk: computed, or the target of a solve"};
    Choice FRRiskUnitsBox{*this, "FRRiskUnitsBox", "Units of the false reject risk"};
    Label Lbl_FRNote{*this, "Lbl_FRNote"};
    Label Lbl_ExactReject{*this, "Lbl_ExactReject"};
    Label Lbl_ExactSolve{*this, "Lbl_ExactSolve"};
    PushButton cmd_UseExact{*this, "cmd_UseExact", "Use This",
                            "Enter the guardband that meets the target by exact integration"};
    PushButton CmdCompute{*this, "CmdCompute", "Comp&ute Risks", "Compute the risks of these guardbands"};
    Label Lbl_EqAccRat{*this, "Lbl_EqAccRat", "Equivalent Accuracy Ratio:"};
    TextBox EqAccRatBox{*this, "EqAccRatBox", "Accuracy ratio with the same risk in the baseline"};
    Label Lbl_ExactRatio{*this, "Lbl_ExactRatio"};
    Label Lbl_RatioColon{*this, "Lbl_RatioColon", ":"};
    TextBox EqAccRat2Box{*this, "EqAccRat2Box", "Right figure of the equivalent accuracy ratio"};
    CheckBox IncludeEqAccRatBox{*this, "IncludeEqAccRatBox", " &Include",
                                "Search the equivalent accuracy ratio with the risks"};
    Label Lbl_RiskKey{*this, "Lbl_RiskKey", "Keyed to:"};
    Label pnl_RiskKey{*this, "pnl_RiskKey"};

    Panel pnl_Procedure{*this, "pnl_Procedure"};
    Hypertext txt_Procedure{*this, "txt_Procedure", "What to do, with words that do it"};
    Label Lbl_Foot{*this, "Lbl_Foot",
                   "OK stores the multipliers. Tick Include on the main screen to use them."};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Keep the guardbands"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave without them"};

    explicit GuardbandScreen(Session& session);
    ~GuardbandScreen() override;

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    /// A difference in any of these counts as a change.
    using Kept =
        KeptFields<&Analysis::GB_UpperMult, &Analysis::GB_LowerMult, &Analysis::GB_UpperMult_fmt,
                   &Analysis::GB_LowerMult_fmt, &Analysis::GB_UpperK, &Analysis::GB_LowerK,
                   &Analysis::GB_UpperK_fmt, &Analysis::GB_LowerK_fmt, &Analysis::GB_UpperKEntered,
                   &Analysis::GB_LowerKEntered, &Analysis::GB_SymmetricK, &Analysis::GB_SymmetricMult,
                   &Analysis::GB_AsymmetricMult, &Analysis::GB_ShowLimits, &Analysis::GB_KeyOn,
                   &Analysis::GB_FARisk, &Analysis::GB_FRRisk, &Analysis::GB_FARiskUnits,
                   &Analysis::GB_FRRiskUnits, &Analysis::GB_EqAccRat, &Analysis::GB_IncludeEqAccRat,
                   &Analysis::GB_EqAccRatValid, &Analysis::GuardbandsChanged>;

    /// One of the two risk boxes.
    struct RiskBox {
        TextBox GuardbandScreen::*box;
        Choice GuardbandScreen::*units;
        double Analysis::*value;
        std::string Analysis::*unitsName;
    };
    static const RiskBox falseAcceptBox;
    static const RiskBox falseRejectBox;

    Session& session_;
    const Analysis opened_; // what Cancel puts back
    Kept loaded_;           // with what loading derives, which is no change of the user's
    std::string faText_;    // as shown or typed
    std::string frText_;
    std::optional<Risks> computed_; // unrounded, of the present guardbands
    bool faTyped_ = false;          // the text is a target, which is no result
    bool frTyped_ = false;
    std::optional<MissedTarget> missed_; // by the last solve
    bool ratioCurrent_ = false;          // EqRatioCurrent
    std::string ratioText_;
    double lastUpper_ = 0; // multipliers of the last compute
    double lastLower_ = 0;
    int lastResolution_ = 0;
    std::string resolution_;
    bool procedureShown_ = true;
    bool labelsAsLoaded_ = true;

    void bindOptions();
    void bindGuardbands();
    void bindRisks();
    void loadRisks();
    std::string& textOf(const RiskBox& risk) { return &risk == &falseAcceptBox ? faText_ : frText_; }
    bool& typed(const RiskBox& risk) { return &risk == &falseAcceptBox ? faTyped_ : frTyped_; }

    FieldResult leaveMultiplier(const SubjectSide& side, const std::string& text);
    FieldResult leaveK(const SubjectSide& side, const std::string& text);
    void guardbandsTyped();
    void dropRisks();
    void showKFactors();
    void setSymmetricMultipliers(bool on);
    void setSymmetricK(bool on);
    void typeRisk(const RiskBox& risk, const std::string& text);
    void takeUnits(const RiskBox& risk, int index);

    bool fitBoth();
    void computeGuardbands();
    void useExact();
    void showRiskBoxes();
    void showNotes();
    bool guardbandChanged();
    void computeRisks();
    bool computeAtGuardbands();
    void showRisks(bool known);
    void showSecondFigures();
    void searchRatio();
    void roundOff();
    int resolutionDigits() const;
    void plot();
    void jumpTo(const std::string& word);

    void store(bool changed);
};

} // namespace metrisk
