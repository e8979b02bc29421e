// True versus observed % in-tolerance, screen ObservedPctWorksheet.
#pragma once

#include "desk/compute/ObservingUnits.h"
#include "desk/kit/Message.h"
#include "desk/kit/Worksheet.h"
#include "record/Analysis.h"
#include "risk/observed/ObservedModel.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct Session;

class ObservedScreen final : public Worksheet {
  public:
    Label Lbl_True{*this, "Lbl_True", "True"};
    TextBox TruePctBox{*this, "TruePctBox", "Percent of the subject parameters that are in tolerance"};
    Label Lbl_Observed{*this, "Lbl_Observed", "Observed"};
    TextBox ObservedPctBox{*this, "ObservedPctBox", "Percent of the subject parameters that pass the test"};
    PushButton CmdCompute{*this, "CmdCompute", "Compute Observed %", "Compute the other figure"};
    Label Lbl_ExactFigure{*this, "Lbl_ExactFigure"};

    RadioButton opt_UseGuardbands_0{*this, "opt_UseGuardbands_0", "Ignore Guardbands",
                                    "Accepted within the tolerance limits", 0};
    RadioButton opt_UseGuardbands_1{*this, "opt_UseGuardbands_1", "Use Guardbands",
                                    "Accepted within the test limits", 0};
    RadioButton opt_UseGuardbands_2{*this, "opt_UseGuardbands_2", "Equalize Obs to True",
                                    "Solve for guardbands that make both figures equal", 0};
    PushButton cmd_Update{*this, "cmd_Update", "Guardband Worksheet", "Open the guardband worksheet"};
    RadioButton opt_Limits_0{*this, "opt_Limits_0", "Show Guardband Limits",
                             "Show test limits in nominal units", 1};
    RadioButton opt_Limits_1{*this, "opt_Limits_1", "Show Guardbands",
                             "Show distances from the mode in tolerance units", 1};
    Label Lbl_Multiplier{*this, "Lbl_Multiplier", "Multiplier"};
    Label Lbl_kFactor{*this, "Lbl_kFactor", "k-Factor"};
    PushButton cmd_ShowLimit{*this, "cmd_ShowLimit", "",
                             "Show the same as limits, or as distances from the mode"};
    Label Lbl_Limit_0{*this, "Lbl_Limit_0"};
    TextBox pnl_Multiplier_0{*this, "pnl_Multiplier_0", "Upper guardband multiplier"};
    TextBox pnl_kFactor_0{*this, "pnl_kFactor_0", "Upper k-factor"};
    TextBox pnl_Limit_0{*this, "pnl_Limit_0", "Upper test limit"};
    Label Lbl_Limit_1{*this, "Lbl_Limit_1"};
    TextBox pnl_Multiplier_1{*this, "pnl_Multiplier_1", "Lower guardband multiplier"};
    TextBox pnl_kFactor_1{*this, "pnl_kFactor_1", "Lower k-factor"};
    TextBox pnl_Limit_1{*this, "pnl_Limit_1", "Lower test limit"};

    RadioButton ObservingUnitOption_0{*this, "ObservingUnitOption_0", "Other",
                                      "Another unit than the measuring parameter's has observed", 2};
    RadioButton ObservingUnitOption_1{*this, "ObservingUnitOption_1", "Current MTE",
                                      "The measuring parameter's own unit has observed", 2};
    TextBox ObsID_0{*this, "ObsID_0", "Manufacturer of the observing unit", Holds::Words};
    TextBox ObsID_1{*this, "ObsID_1", "Model number of the observing unit", Holds::Words};
    TextBox ObsID_2{*this, "ObsID_2", "Description of the observing unit", Holds::Words};
    TextBox ObsID_3{*this, "ObsID_3", "Parameter name of the observing unit", Holds::Words};
    Label Lbl_Limit{*this, "Lbl_Limit", "\u00b1 Limit"};
    TextBox StatsData_1{*this, "StatsData_1", "MTE Offset: tolerance of the observing unit"};
    Choice OffsetUnitsBox{*this, "OffsetUnitsBox", "Units of that tolerance"};
    Label Lbl_Confidence{*this, "Lbl_Confidence", "Error Confidence Level"};
    TextBox StatsData_0{*this, "StatsData_0", "AOP %: in-tolerance of the observing unit in percent"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Keep these figures"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave without them"};

    explicit ObservedScreen(Session& session);
    ~ObservedScreen() override;

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    enum class LastChanged { Percentage, MTELimBox, MTEPctBox };

    Session& session_;
    const Analysis opened_; // Cancel puts it back; every way out the measuring parameter
    Analysis loaded_;       // with the observing unit's data filled in; what differs is a change
    std::string trueText_;
    std::string observedText_;
    int use_ = 0; // index of opt_UseGuardbands
    LastChanged lastChanged_ = LastChanged::Percentage;
    bool computeTruePct_ = false;
    bool asLimits_ = false;
    bool changed_ = false;      // since the last compute
    bool fitted_ = true;        // the observing unit
    bool figureStands_ = false; // the percentage that follows from the other
    std::vector<OfferedUnit> units_;
    std::string exactText_; // where the figure computed last is another by exact integration
    // What the observing unit was before entries that have not been computed with yet.
    std::optional<double> offsetBefore_, aopBefore_;

    void bindFigures();
    void bindObservingUnit();
    void offerUnits();
    double unitsFactor() const;
    void markChanged();
    FieldResult leaveUnitBox(const TextBox& box, double Analysis::*field, std::optional<double>& before,
                             double value, const std::optional<Message>& refused, LastChanged what,
                             const std::string& text);
    bool unitIsThere();
    std::string exactRemarkOf(const ObservedModel& model, bool solvedTrue) const;
    void useCurrentUnit();
    void askForOtherUnit();
    void fitObservingUnit();
    void chooseUse(int index);
    void compute();
    bool computeFigures();
    void restoreRefused();
    void showFigures();
    bool differs() const;
    void store();
    void restoreMeasuring();
};

} // namespace metrisk
