#include "desk/reports/PrintDialogScreen.h"

#include "base/NumberText.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/reports/ReportDesk.h"
#include "desk/reports/ReportOptionsScreen.h"
#include "desk/reports/ReportPrinter.h"
#include "persistence/SettingKeys.h"
#include "plots/DistributionPlots.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr Message nothingSelected{"Please include one or more reports.", "Nothing Selected"};
constexpr Message badMargin{"Please enter a margin of 0 to 20 inches.", "Print Analysis"};
constexpr double widestMargin = 20; // inches
constexpr const char* printCaption = "&Print";

/// The entry of a zoom factor, 100% for any that has none.
int zoomIndex(double factor) {
    for (int i = 0; i < static_cast<int>(std::size(zoomFactors)); ++i)
        if (std::fabs(zoomFactors[i] - factor) < 1e-6 * factor) return i;
    return 3;
}

float percentOf(int index) {
    return static_cast<float>(std::stod(zoomNames[index]));
}

} // namespace

PrintDialogScreen::PrintDialogScreen(Session& session, ReportDesk& desk)
    : Worksheet("PrintDialog", "Print Analysis", "reports"), session_(session), desk_(desk) {
    const Analysis& r = session.record;
    ReportSelection& s = desk.selection;
    Combo1.items = session.desktop->printer->fonts();
    s.Report_SUZoom = percentOf(zoomIndex(r.SUPlot_Zoom));
    s.Report_MTEZoom = percentOf(zoomIndex(r.MTEPlot_Zoom));
    s.Report_ErrorZoom = percentOf(zoomIndex(r.ErrorPlot_Zoom));
    bindChoices();
    bindPlotOptions();
    bindMargin(Txt_LMargin, s.Report_LeftMargin);
    bindMargin(Txt_TMargin, s.Report_TopMargin);
    cmd_Print.isDefault = true;
    cmd_Print.isPrimary = true;
    cmd_Close.closes = Way::Cancel;
    cmd_Preview.clicked = [this](bool) { preview(); };
    cmd_Print.clicked = [this](bool) { print(); };
    menus = {
        {.control = "mnu_Print", .caption = printCaption, .run = [this] { print(); }, .shortcut = "Ctrl+P"},
        {.control = "mnu_Preview", .caption = "Pre&view", .run = [this] { preview(); }},
        {.control = "mnu_Setup", .caption = "&Setup", .run = [this] { session_.desktop->printer->setUp(); }},
        {.control = "mnu_Options",
         .caption = "&Report Options",
         .run =
             [this] {
                 ReportOptionsScreen options(session_);
                 session_.ui.run(options);
             }},
        {.control = "mnu_Close", .caption = "&Close", .run = [this] { close(Way::Ok); }},
    };
    refresh();
}

void PrintDialogScreen::bindChoices() {
    ReportSelection& s = desk_.selection;
    const auto bind = [](CheckBox& box, bool& flag) { box.clicked = [&flag](bool on) { flag = on; }; };
    bind(Chk_IncludeRiskAnalysis, s.Report_IncludeRisk);
    bind(Chk_IncludePlots, s.Report_IncludePlots);
    bind(Chk_IncludeErled, s.Report_IncludeUncertainty);
    bind(Chk_IncludeErrPlot, s.Report_IncludeErrorPlot);
    bind(Chk_IncludeDecision, s.Report_IncludeDecision);
    const auto bindZoom = [](Choice& choice, float& percent) {
        for (const char* zoom : zoomNames) choice.items.emplace_back(zoom);
        choice.chosen = [&percent](int index) { percent = percentOf(index); };
    };
    bindZoom(cbo_SUZoom, s.Report_SUZoom);
    bindZoom(cbo_MTEZoom, s.Report_MTEZoom);
    bindZoom(cbo_ErrorZoom, s.Report_ErrorZoom);
    Combo1.chosen = [this, &s](int index) {
        s.Report_FontName = Combo1.items[static_cast<std::size_t>(index)];
        if (Chk_FontDefault.checked) session_.settings.write(reportSettings::defaultFont, s.Report_FontName);
    };
    Chk_FontDefault.clicked = [this, &s](bool on) {
        Chk_FontDefault.checked = on;
        if (on) session_.settings.write(reportSettings::defaultFont, s.Report_FontName);
    };
}

void PrintDialogScreen::changed() {
    session_.record.FileChanged = true;
}

void PrintDialogScreen::bindPlotOptions() {
    Analysis& r = session_.record;
    opt_ParamTolerance_0.clicked = [&r](bool) { r.MTEPlot_UseSUTols = true; };
    opt_ParamTolerance_1.clicked = [&r](bool) { r.MTEPlot_UseSUTols = false; };
    const auto refer = [this, &r](RadioButton& button, const char* reference) {
        button.clicked = [this, &r, reference](bool) {
            if (r.ErrorPlot_Param != reference) changed();
            r.ErrorPlot_Param = reference;
        };
    };
    refer(opt_ErrorTolerance_0, "MTE");
    refer(opt_ErrorTolerance_1, "SU");
    refer(opt_ErrorTolerance_2, totalErrorReference);
    chk_IncludeMTEBias.clicked = [this, &r](bool on) {
        r.IncludeMTEBias = on;
        changed();
    };
}

void PrintDialogScreen::bindMargin(TextBox& box, double& margin) {
    box.left = [this, &box, &margin](const std::string& text) -> FieldResult {
        const double inches = ParseValue(text, session_.regional);
        if (!isNumeric(text, session_.regional) || !(inches >= 0 && inches <= widestMargin)) {
            tell(session_.ui, badMargin);
            return {true, box.last.value_or(box.text)};
        }
        margin = inches;
        return {false, text};
    };
}

void PrintDialogScreen::refresh() {
    const Analysis& r = session_.record;
    const ReportSelection& s = desk_.selection;
    Chk_IncludeRiskAnalysis.checked = s.Report_IncludeRisk;
    Chk_IncludePlots.checked = s.Report_IncludePlots;
    Chk_IncludeErled.checked = s.Report_IncludeUncertainty;
    Chk_IncludeErrPlot.checked = s.Report_IncludeErrorPlot;
    Chk_IncludeDecision.allow(s.Report_Decision.has_value(), "There is no reading of this run");
    Chk_IncludeDecision.checked = s.Report_IncludeDecision && s.Report_Decision;
    const auto zoom = [](Choice& choice, float percent) { choice.index = zoomIndex(100.0 / percent); };
    zoom(cbo_SUZoom, s.Report_SUZoom);
    zoom(cbo_MTEZoom, s.Report_MTEZoom);
    zoom(cbo_ErrorZoom, s.Report_ErrorZoom);
    opt_ParamTolerance_0.checked = r.MTEPlot_UseSUTols;
    opt_ParamTolerance_1.checked = !r.MTEPlot_UseSUTols;
    opt_ParamTolerance_1.text =
        r.MTE_EntryByUncertainty ? "Use MTE Uncertainty Limits" : "Use MTE Tolerance Limits";
    const bool errors = r.ProcessUncertainty > 0;
    pnl_ErrPlotOptions.enabled = errors;
    for (Button* each :
         std::initializer_list<Button*>{&Chk_IncludeErrPlot, &opt_ErrorTolerance_0, &opt_ErrorTolerance_1,
                                        &opt_ErrorTolerance_2, &chk_IncludeMTEBias})
        each->allow(errors, "There is no process error to plot");
    if (!errors) Chk_IncludeErrPlot.checked = desk_.selection.Report_IncludeErrorPlot = false;
    opt_ErrorTolerance_0.checked = r.ErrorPlot_Param == "MTE";
    opt_ErrorTolerance_1.checked = r.ErrorPlot_Param == "SU";
    opt_ErrorTolerance_2.checked = r.ErrorPlot_Param == totalErrorReference;
    chk_IncludeMTEBias.checked = r.IncludeMTEBias;
    const auto font = std::find(Combo1.items.begin(), Combo1.items.end(), s.Report_FontName);
    // A default font that this machine lacks stays the choice; the system shows another in its place.
    if (font == Combo1.items.end()) {
        Combo1.items.insert(Combo1.items.begin(), s.Report_FontName);
        Combo1.index = 0;
    } else {
        Combo1.index = static_cast<int>(font - Combo1.items.begin());
    }
    PrintSample.family = s.Report_FontName;
    const auto inches = [&](TextBox& box, Label& units, double margin) {
        box.text = GeneralText(margin, session_.regional);
        units.text = margin == 1 ? "inch" : "inches";
    };
    inches(Txt_LMargin, Lbl_LUnits, s.Report_LeftMargin);
    inches(Txt_TMargin, Lbl_TUnits, s.Report_TopMargin);
}

bool PrintDialogScreen::anythingSelected() {
    if (!desk_.selection.empty()) return true;
    tell(session_.ui, nothingSelected);
    return false;
}

void PrintDialogScreen::print() {
    if (!anythingSelected()) return;
    MenuItem& command = *findItem(menus, "mnu_Print");
    command.caption = cmd_Print.text = "Printing";
    command.off = true;
    cmd_Print.allow(false, "Printing");
    session_.ui.refresh(*this);
    desk_.print(session_, reportOrigin::printDialog);
    session_.record.AbortFlag = false;
    command.caption = printCaption;
    cmd_Print.text = "Print";
    command.off = false;
    cmd_Print.enabled = true;
}

void PrintDialogScreen::preview() {
    if (anythingSelected()) desk_.preview(session_, reportOrigin::printDialog);
}

} // namespace metrisk
