// The reference case beside the default kept in the settings, screen BaselineAnalysis.
#pragma once

#include "desk/kit/Worksheet.h"
#include "record/Analysis.h"
#include "record/KeptFields.h"

#include <functional>
#include <string>

namespace metrisk {

struct Message;
struct Session;
struct BaselineDefaults;

/// Title over a change that reaches the false accept option.
inline constexpr const char* optionChangeTitle = "False Accept Risk Option Change";

/// The texts of one side, and the figures behind those of the risks.
struct BaselineSide {
    std::string AccRat1;
    std::string AccRat2;
    std::string PctInTol1;   // measuring parameter
    std::string PctInTol2;   // subject parameter
    std::string FalseAccept; // " < 1" stands for a ppm figure below 1
    std::string FalseReject;
    std::string FalseAcceptRiskUnits;
    std::string FalseRejectRiskUnits;
    std::string FAOption;       // caption of the false accept option
    std::string BaselineOption; // "User" or "Z540"
    double falseAccept = 0;     // in shown units
    double falseReject = 0;
    int falseAcceptOption = 0;

    friend bool operator==(const BaselineSide&, const BaselineSide&) = default;
};

class BaselineScreen final : public Worksheet {
  public:
    RadioButton optUserBaseline{*this, "optUserBaseline", "User Defined Option", "Figures of your own"};
    RadioButton optZ540Baseline{*this, "optZ540Baseline", "Z540.3 Option",
                                "The requirement of ANSI/NCSL Z540.3"};
    TextBox BaseAccRat1{*this, "BaseAccRat1", "Accuracy ratio, left figure"};
    TextBox BaseAccRat2{*this, "BaseAccRat2", "Accuracy ratio, right figure"};
    TextBox BaselinePctInTol1{*this, "BaselinePctInTol1", "Measuring parameter % in-tolerance"};
    TextBox BaselinePctInTol2{*this, "BaselinePctInTol2", "Subject parameter % in-tolerance"};
    TextBox BaseFalseAccept{*this, "BaseFalseAccept", "False accept risk of the baseline"};
    Label FalseAcceptRiskUnits{*this, "FalseAcceptRiskUnits"};
    Label Lbl_ExactAccept{*this, "Lbl_ExactAccept"};
    TextBox BaseFalseReject{*this, "BaseFalseReject", "False reject risk of the baseline"};
    Label FalseRejectRiskUnits{*this, "FalseRejectRiskUnits"};
    Label Lbl_ExactReject{*this, "Lbl_ExactReject"};
    Label pnl_FAOption{*this, "pnl_FAOption"};
    PushButton cmd_FAOption{*this, "cmd_FAOption", "&False accept option...",
                            "Consumer's or Producer's risk"};
    PushButton ComputeBaselineResults{*this, "ComputeBaselineResults", computeCaption,
                                      "Compute the risks of these figures"};

    Panel pnl_Defaults{*this, "pnl_Defaults"};
    Label pnlDefBaselineOption{*this, "pnlDefBaselineOption"};
    TextBox DefAccRat1{*this, "DefAccRat1", "Default accuracy ratio, left figure"};
    TextBox DefAccRat2{*this, "DefAccRat2", "Default accuracy ratio, right figure"};
    TextBox DefPctInTol1{*this, "DefPctInTol1", "Default measuring parameter % in-tolerance"};
    TextBox DefPctInTol2{*this, "DefPctInTol2", "Default subject parameter % in-tolerance"};
    TextBox DefFalseAccept{*this, "DefFalseAccept", "False accept risk of the default baseline"};
    Label DefFalseAcceptRiskUnits{*this, "DefFalseAcceptRiskUnits"};
    TextBox DefFalseReject{*this, "DefFalseReject", "False reject risk of the default baseline"};
    Label DefFalseRejectRiskUnits{*this, "DefFalseRejectRiskUnits"};
    Label pnl_DefaultFAOption{*this, "pnl_DefaultFAOption"};
    PushButton Cmd_RetrieveDefaultBaseline{*this, "Cmd_RetrieveDefaultBaseline", "&Use default baseline",
                                           "Take the default figures into the analysis"};
    PushButton Cmd_SetDefaultBaseline{*this, "Cmd_SetDefaultBaseline", "&Set default baseline",
                                      "Make the analysis figures the default"};
    PushButton cmd_OK{*this, "cmd_OK", "&OK", "Keep the baseline"};
    PushButton mnu_Exit{*this, "mnu_Exit", "&Cancel", "Leave this screen"};

    /// The plot of its risks over the accuracy ratio, at these percentages as they are typed.
    std::function<void(const std::string& subjectPct, const std::string& measuringPct)> openPlot;

    explicit BaselineScreen(Session& session);

    void refresh() override;

    /// False if an entry is refused or there are no risks; the figures shown then stand.
    bool computeRisks();
    /// The same, after the false accept option has changed.
    bool computeForOption();

  protected:
    bool mayClose(Way way) override;

  private:
    static constexpr const char* computeCaption = "Compute Baseline &Risks";

    /// What leaving without retaining puts back.
    using Kept =
        KeptFields<&Analysis::FalseAcceptRisk, &Analysis::FalseRejectRisk, &Analysis::EqAccRat,
                   &Analysis::FalseAcceptUnits, &Analysis::FalseRejectUnits, &Analysis::EqAccRatDen,
                   &Analysis::RisksNeedCompute, &Analysis::FileChanged, &Analysis::FalseAcceptOption,
                   &Analysis::IncludeGuardbands, &Analysis::GuardbandsChanged, &Analysis::GB_EqAccRatValid,
                   &Analysis::GB_RisksStale, &Analysis::GB_MainStale, &Analysis::BaselineComputed>;

    Session& session_;
    Kept kept_;
    BaselineSide analysis_;
    BaselineSide defaults_;
    BaselineSide opened_;
    int storedOption_;
    bool storeDefault_ = false;
    bool defaultUsed_ = false;
    bool defaultsShown_ = false;

    double valueOf(const std::string& text) const;
    BaselineDefaults figuresOf(const BaselineSide& side) const;
    bool isZ540() const { return analysis_.BaselineOption == "Z540"; }
    bool changed() const;
    void bindBox(TextBox& box, std::string BaselineSide::*text, const Message* outOfRange = nullptr);
    bool validate();
    void chooseZ540();
    void changeOption();
    void plot();
    void setDefault();
    void retrieveDefault();
    bool store();
    void setZ540Figures();
    void showRisks(double falseAccept, double falseReject);
    void showSecondFigures();
    bool confirmUsedDefault();
    bool confirmStoredDefault();
    void storeDefault();
    void storeAnalysis();
};

} // namespace metrisk
