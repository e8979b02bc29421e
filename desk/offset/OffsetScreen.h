// The tolerance offset worksheet, screen OffsetCalc: tolerances of both parameters from fixed and percent
// parts, in units of their own, and the bias uncertainty that follows.
#pragma once

#include "desk/files/UnitSelection.h"
#include "desk/kit/Session.h"
#include "desk/kit/Worksheet.h"

namespace metrisk {

struct SubjectSide;

/// Works on a copy of the record; OK carries both parameters over. Figures are the copy's own: a text counts
/// only when the user has changed it.
class OffsetCalc final : public Worksheet {
  public:
    Choice MeasAreaBox{*this, "MeasAreaBox", "Area that the units are chosen from"};
    Label Lbl_Mode{*this, "Lbl_Mode", "Nominal or Reading Value"};
    TextBox txt_Mode{*this, "txt_Mode", "The value at which the parameter is tested, in nominal units"};
    Choice ModeUnitsBox{*this, "ModeUnitsBox", "Nominal units"};
    RadioButton ModeUnitsButton{*this, "ModeUnitsButton", "Nominal or Reading Units",
                                "Show the tolerances in nominal units", 0};
    RadioButton OffsetUnitsButton{*this, "OffsetUnitsButton", "Tolerance Units",
                                  "Show the tolerances in tolerance units", 0};

    RadioButton opt_Tolerance_0{*this, "opt_Tolerance_0", "Two-Sided", "There is an upper and a lower limit",
                                1};
    RadioButton opt_Tolerance_1{*this, "opt_Tolerance_1", "Single-Sided Upper",
                                "There is an upper limit alone", 1};
    RadioButton opt_Tolerance_2{*this, "opt_Tolerance_2", "Single-Sided Lower",
                                "There is a lower limit alone", 1};
    CheckBox chk_Symmetric{*this, "chk_Symmetric", "Symmetric Specs", "The lower side is as the upper one"};
    CheckBox chk_PhysicalLimit{*this, "chk_PhysicalLimit", "Physical Limit",
                               "The parameter cannot pass a limit on the side without a tolerance"};
    Label Lbl_SUUpper{*this, "Lbl_SUUpper", "Upper Tolerance Limit"};
    TextBox SUUpperOffsetBox{*this, "SUUpperOffsetBox", "Distance of the upper limit, or the physical limit"};
    Panel pnl_Upper{*this, "pnl_Upper"};
    TextBox SUUpperFixedBox{*this, "SUUpperFixedBox", "Fixed part of the upper tolerance, 0 or more"};
    TextBox SUUpperPctBox{*this, "SUUpperPctBox", "Percent of the reading, 0 or more"};
    Label Lbl_SULower{*this, "Lbl_SULower", "Lower Tolerance Limit"};
    TextBox SULowerOffsetBox{*this, "SULowerOffsetBox", "Distance of the lower limit, or the physical limit"};
    Panel pnl_Lower{*this, "pnl_Lower"};
    TextBox SULowerFixedBox{*this, "SULowerFixedBox", "Fixed part of the lower tolerance, 0 or more"};
    TextBox SULowerPctBox{*this, "SULowerPctBox", "Percent of the reading, 0 or more"};
    Choice SUOffsetUnitsBox{*this, "SUOffsetUnitsBox", "Tolerance units of the subject parameter"};
    TextBox txt_PctInTol_0{*this, "txt_PctInTol_0", "% in-tolerance of the subject parameter, below 100"};
    TextBox txt_SUBiasUncertainty{*this, "txt_SUBiasUncertainty",
                                  "Standard deviation of the subject parameter"};
    TextBox pnl_Distribution_0{*this, "pnl_Distribution_0", "Distribution of the subject parameter",
                               Holds::Words};

    RadioButton opt_MTETolerance_0{*this, "opt_MTETolerance_0", "Parameter Tolerances",
                                   "The measuring parameter is entered by its tolerance", 2};
    RadioButton opt_MTETolerance_1{*this, "opt_MTETolerance_1", "Error Containment Limits / Uncertainties",
                                   "The measuring parameter is entered by its uncertainty", 2};
    Label Lbl_MTE{*this, "Lbl_MTE"};
    TextBox MTEOffsetBox{*this, "MTEOffsetBox", "Tolerance limit or expanded uncertainty"};
    Label Lbl_Equals{*this, "Lbl_Equals", "="};
    Label Lbl_MTEFixed{*this, "Lbl_MTEFixed"};
    TextBox MTEFixedBox{*this, "MTEFixedBox",
                        "Fixed part of the tolerance, or the standard uncertainty; 0 or more"};
    Label Lbl_Plus{*this, "Lbl_Plus", "+"};
    Label Lbl_MTEPct{*this, "Lbl_MTEPct"};
    TextBox MTEPctBox{*this, "MTEPctBox", "Percent of the reading, or degrees of freedom (0: infinite)"};
    Choice MTEOffsetUnitsBox{*this, "MTEOffsetUnitsBox", "Tolerance units of the measuring parameter"};
    Label Lbl_MTEPctInTol{*this, "Lbl_MTEPctInTol"};
    TextBox txt_PctInTol_1{*this, "txt_PctInTol_1",
                           "% in-tolerance or confidence of the measuring parameter"};
    Label Lbl_MTEBias{*this, "Lbl_MTEBias"};
    TextBox txt_MTEBiasUncertainty{*this, "txt_MTEBiasUncertainty",
                                   "Standard uncertainty of the measuring parameter, or its coverage factor"};
    TextBox pnl_Distribution_1{*this, "pnl_Distribution_1", "Distribution of the measuring parameter",
                               Holds::Words};

    PushButton cmd_Form{*this, "cmd_Form", "Form Control", "Look at the screen behind"};
    PushButton mnu_OK{*this, "mnu_OK", "&OK", "Accept Changes"};
    PushButton mnu_Cancel{*this, "mnu_Cancel", "&Cancel", "Cancel Changes"};

    OffsetCalc(Session& session, FileChooser& chooser);

    void begin() override;
    void refresh() override;

  protected:
    bool mayClose(Way way) override;
    FieldResult runRule(TextBox& box, const std::string& text) override;

  private:
    static constexpr const char* inTolPicture = "##0.0000";
    enum class Parameter { Subject, Measuring };

    void makeMenus();
    void bindSubject();
    void bindMeasuring();
    void bindUnits();

    void openReliability(int slot);
    void openBiasReference(int slot);
    void keepReliability();
    void openUnits();

    void readAreas();
    void fillUnits(const std::string& mode, const std::string& subject, const std::string& measuring);
    void chooseArea(int index);
    void chooseUnits(UnitsBox& box, std::string Analysis::*field, int index);
    /// Both factors from the boxes. A tolerance entered in its own units stays as entered.
    void UpdateToleranceFactors();

    FieldResult leaveMode(const std::string& text);
    FieldResult leavePart(double Analysis::*value, std::string Analysis::*picture, Parameter parameter,
                          const std::string& text);
    FieldResult leavePct(double Analysis::*value, std::string Analysis::*picture, const std::string& text);
    FieldResult leaveInTol(double Analysis::*value, bool to100, const std::string& text);
    FieldResult leaveBiasUncertainty(const std::string& text);
    FieldResult leaveExpanded(const std::string& text);
    void chooseTolerance(int kind);
    void chooseEntry(bool byUncertainty);

    void compose();
    void ComposeSUTolerance();
    void ComposeMTETolerance();
    /// The coverage factor of confidence and degrees of freedom, or the confidence of a factor that was
    /// typed.
    void followCoverage();
    void ComputeFromUncertainty();
    bool ValidateOffsets();
    void fit();

    void showSide(const SubjectSide& side);
    void showMeasuring();
    double factorOf(Parameter parameter) const;
    std::string offsetText(double nominal, const std::string& picture, Parameter parameter) const;
    bool changed() const;
    void store();

    Session& session_;
    FileChooser& chooser_;
    Session desk_;
    Analysis loaded_;
    UnitsFile units_;
    UnitsBox mode_{ModeUnitsBox};
    UnitsBox subject_{SUOffsetUnitsBox};
    UnitsBox measuring_{MTEOffsetUnitsBox};
};

} // namespace metrisk
