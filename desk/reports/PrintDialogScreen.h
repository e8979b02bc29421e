// "Print Analysis", screen PrintDialog: which reports, in which font, with which plots.
#pragma once

#include "desk/kit/Worksheet.h"

namespace metrisk {

class ReportDesk;
struct Session;

/// Sections, margins and font stay as chosen for the next time; the sizes of curves are those of the plots
/// when it opens. The options of the plots are those of the plots'
/// own screens.
class PrintDialogScreen final : public Worksheet {
  public:
    CheckBox Chk_IncludeRiskAnalysis{*this, "Chk_IncludeRiskAnalysis", " &Risk analysis report",
                                     "Parameters, baseline and risks"};
    CheckBox Chk_IncludePlots{*this, "Chk_IncludePlots", " Parameter &distribution plots",
                              "The bias distributions of both parameters"};
    CheckBox Chk_IncludeErled{*this, "Chk_IncludeErled", " &Uncertainty analysis report",
                              "The budget of the process uncertainty"};
    CheckBox Chk_IncludeErrPlot{*this, "Chk_IncludeErrPlot", " &Error distribution plot",
                                "The distribution of the total measurement error"};
    CheckBox Chk_IncludeDecision{*this, "Chk_IncludeDecision", " Decision on the &last reading",
                                 "Verdict, probabilities and sentence; needs a reading of this run"};
    Choice cbo_SUZoom{*this, "cbo_SUZoom", "Size of the subject parameter's curve"};
    Choice cbo_MTEZoom{*this, "cbo_MTEZoom", "Size of the measuring parameter's curve"};
    RadioButton opt_ParamTolerance_0{*this, "opt_ParamTolerance_0", " Use SU Tolerance Limits",
                                     "The measuring parameter's plot shows the subject's limits", 0};
    RadioButton opt_ParamTolerance_1{*this, "opt_ParamTolerance_1", " Use MTE Tolerance Limits",
                                     "The measuring parameter's plot shows its own limits", 0};
    Panel pnl_ErrPlotOptions{*this, "pnl_ErrPlotOptions"};
    Choice cbo_ErrorZoom{*this, "cbo_ErrorZoom", "Size of the error's curve"};
    RadioButton opt_ErrorTolerance_0{*this, "opt_ErrorTolerance_0", " Use MTE Tolerance Limits",
                                     "The error plot shows the measuring parameter's limits", 1};
    RadioButton opt_ErrorTolerance_1{*this, "opt_ErrorTolerance_1", " Use SU Tolerance Limits(s)",
                                     "The error plot shows the subject parameter's limits", 1};
    RadioButton opt_ErrorTolerance_2{*this, "opt_ErrorTolerance_2", "Use 2-Sigma Limits",
                                     "The error plot shows two standard uncertainties", 1};
    CheckBox chk_IncludeMTEBias{*this, "chk_IncludeMTEBias", " &Include MTE bias uncertainty",
                                "The measuring parameter's bias counts in the error"};
    Choice Combo1{*this, "Combo1", "Font of the report"};
    Label PrintSample{*this, "PrintSample", "AaBbCc 123 $&#"};
    CheckBox Chk_FontDefault{*this, "Chk_FontDefault", " Set as default font",
                             "Reports begin with this font from now on"};
    TextBox Txt_LMargin{*this, "Txt_LMargin", "Left margin of the page"};
    Label Lbl_LUnits{*this, "Lbl_LUnits"};
    TextBox Txt_TMargin{*this, "Txt_TMargin", "Top margin of the page"};
    Label Lbl_TUnits{*this, "Lbl_TUnits"};
    PushButton cmd_Preview{*this, "cmd_Preview", "Preview", "See the chosen reports before they are printed"};
    PushButton cmd_Print{*this, "cmd_Print", "Print", "Print the chosen reports"};
    PushButton cmd_Close{*this, "cmd_Close", "Close", "Leave without printing"};

    PrintDialogScreen(Session& session, ReportDesk& desk);

    void refresh() override;

  private:
    Session& session_;
    ReportDesk& desk_;

    void bindChoices();
    void bindPlotOptions();
    void bindMargin(TextBox& box, double& margin);
    bool anythingSelected();
    void print();
    void preview();
    void changed();
};

} // namespace metrisk
