// The reference case beside the default kept in the settings, screen BaselineAnalysis.
#pragma once

#include "model/FieldResult.h"
#include "model/KeptFields.h"
#include "risk/FalseAcceptScreen.h"

#include <functional>
#include <string>

namespace metrisk {

struct Session;
struct BaselineDefaults;

/// Title over a change that reaches the false accept option.
inline constexpr const char* optionChangeTitle = "False Accept Risk Option Change";

/// The texts of one side. Its controls are the members' names behind "Base" (BaselinePctInTol1,
/// FalseAcceptRiskUnits) on the analysis side and behind "Def" on the default side.
struct BaselineSide {
    std::string AccRat1;
    std::string AccRat2;
    std::string PctInTol1;   // measuring parameter
    std::string PctInTol2;   // subject parameter
    std::string FalseAccept; // " < 1" stands for a ppm figure below 1
    std::string FalseReject;
    std::string FalseAcceptRiskUnits;
    std::string FalseRejectRiskUnits;
    std::string FAOption;       // pnl_FAOption, pnl_DefaultFAOption
    std::string BaselineOption; // "User" or "Z540"
    double falseAccept = 0;     // the figures behind the texts, in shown units
    double falseReject = 0;
    int falseAcceptOption = 0;

    friend bool operator==(const BaselineSide&, const BaselineSide&) = default;
};

enum class BaselineBox { BaseAccRat1, BaseAccRat2, BaselinePctInTol1, BaselinePctInTol2 };

class BaselineScreen {
  public:
    static constexpr const char* title = "Risk Baseline Analysis";
    static constexpr const char* analysisHeading = "Analysis Baseline";
    static constexpr const char* defaultHeading = "Default Baseline";
    static constexpr const char* optUserBaselineCaption = "User Defined Option";
    static constexpr const char* optZ540BaselineCaption = "Z540.3 Option";
    static constexpr const char* Cmd_RetrieveDefaultBaselineCaption = "&Use default baseline";
    static constexpr const char* Cmd_SetDefaultBaselineCaption = "&Set default baseline";
    static constexpr const char* computeCaption = "Compute Baseline &Risks";
    static constexpr const char* computingCaption = "COMPUTING";

    BaselineSide analysis;
    BaselineSide defaults;
    std::string ComputeBaselineResultsCaption = computeCaption;
    bool defaultsShown = false; // with them the two default commands

    /// Called whenever texts or locks have changed.
    std::function<void()> repaint = [] {};

    explicit BaselineScreen(Session& session);

    bool optZ540Baseline() const { return analysis.BaselineOption == "Z540"; }
    /// The four data boxes take no entry.
    bool boxesLocked() const { return optZ540Baseline(); }
    const char* mnu_ShowDefaultsCaption() const {
        return defaultsShown ? "Hide &Defaults" : "Show &Defaults";
    }

    /// A box of the analysis side was left with this text.
    FieldResult lostFocus(BaselineBox box, const std::string& text);
    /// Any key in a box of the default side; the key itself goes nowhere.
    void defaultKeyPressed();

    void chooseZ540();
    void chooseUser();
    /// False if an entry is refused or there are no risks; the figures shown then stand.
    bool ComputeBaselineResults();
    void cmd_FAOption(const RunFalseAcceptScreen& run);
    void Cmd_SetDefaultBaseline();
    void Cmd_RetrieveDefaultBaseline();
    void mnu_ShowDefaults();

    bool changed() const;
    /// Each is false when the screen stays open.
    bool mnu_Exit();
    bool cmd_OK();

  private:
    /// What leaving without retaining puts back.
    using Kept =
        KeptFields<&Analysis::FalseAcceptRisk, &Analysis::FalseRejectRisk, &Analysis::EqAccRat,
                   &Analysis::FalseAcceptUnits, &Analysis::FalseRejectUnits, &Analysis::EqAccRatDen,
                   &Analysis::RisksNeedCompute, &Analysis::FileChanged, &Analysis::IncludeGuardbands,
                   &Analysis::GuardbandsChanged, &Analysis::GB_EqAccRatValid, &Analysis::GB_RisksStale,
                   &Analysis::GB_MainStale, &Analysis::BaselineComputed, &Analysis::FalseAcceptOption>;

    Session& session_;
    Kept kept_;
    BaselineSide opened_;
    int storedOption_;
    bool storeDefault_ = false;
    bool defaultUsed_ = false;

    double valueOf(const std::string& text) const;
    BaselineDefaults figuresOf(const BaselineSide& side) const;
    std::string& textOf(BaselineBox box);
    bool validate();
    void setZ540Figures();
    void showRisks(double falseAccept, double falseReject);
    bool confirmUsedDefault();
    bool confirmStoredDefault();
    void storeDefault();
    void storeAnalysis();
};

} // namespace metrisk
