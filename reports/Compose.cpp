#include "reports/Compose.h"

#include "base/Text.h"
#include "reports/RunningText.h"

namespace metrisk {

namespace {

constexpr double spacing = 90; // above a rule
constexpr const char* runningFooter = "|- %d -|";

/// The header of a document of several sections, or null: each has its own then.
const char* combinedHeader(const ReportSelection& selection) {
    if (!selection.Report_IncludePlots) return nullptr;
    if (selection.Report_IncludeUncertainty)
        return selection.Report_IncludeRisk
                   ? "Measurement Decision Risk Analysis||Risk and Uncertainty Analysis Results"
                   : "Measurement Decision Risk Analysis||Parameter Distributions and Uncertainty Analysis "
                     "Results";
    return selection.Report_IncludeRisk ? "Measurement Decision Risk Analysis||Analysis Results" : nullptr;
}

} // namespace

ReportSelection ReportSelection::settled() const {
    ReportSelection selection = *this;
    if (Report_Origin == reportOrigin::mainScreen) {
        selection.Report_IncludeRisk = true;
        selection.Report_IncludeUncertainty = false;
    } else if (Report_Origin == reportOrigin::uncertainty) {
        selection.Report_IncludeRisk = selection.Report_IncludePlots = selection.Report_IncludeDecision =
            false;
        selection.Report_IncludeUncertainty = true;
    }
    if (selection.Report_FontName.empty()) selection.Report_FontName = "Arial";
    return selection;
}

void Composition::style(double size, bool bold) {
    document.FontSize = size;
    document.FontBold = bold;
}

void Composition::rule() {
    document.CurrentY += spacing;
    document.DrawLine(document.MarginLeft, document.CurrentY, document.PageWidth - document.MarginRight,
                      document.CurrentY);
}

void Composition::running(const char* sectionHeader) {
    document.HdrFontName = selection.Report_FontName;
    document.HdrFontSize = 9;
    document.HdrFontBold = true;
    const char* combined = combinedHeader(selection);
    document.Header = combined ? combined : sectionHeader;
    document.Footer = runningFooter;
    document.FontName = selection.Report_FontName;
    document.IndentLeft = 0;
    BeginExportHeader(document, !exportBegun);
    exportBegun = true;
}

void Composition::unitLine(const char* label, std::initializer_list<std::string> names) {
    std::string line = label;
    const char* separator = "";
    for (const std::string& name : names) {
        const std::string_view trimmed = withoutOuterBlanks(name);
        if (trimmed.empty()) continue;
        line.append(separator).append(trimmed);
        separator = "  ";
    }
    document.Text(line);
}

void Composition::subjectUnitLine() {
    unitLine("Subject Unit:  ", {record.SU_Manufacturer, record.SU_ModelNumber, record.SU_Description});
}

void Composition::measuringUnitLine() {
    unitLine("MTE System:  ", {record.MTE_Manufacturer, record.MTE_ModelNumber, record.MTE_Description});
}

bool compose(Composition& composition) {
    const ReportSelection& selection = composition.selection;
    ReportDocument& document = composition.document;
    const std::pair<bool, bool (*)(Composition&)> sections[] = {
        {selection.Report_IncludeRisk, ComposeRiskReport},
        {selection.Report_IncludePlots, ComposeParameterPlots},
        {selection.Report_IncludeUncertainty, ComposeUncertaintyReport},
        {selection.Report_IncludeErrorPlot, ComposeErrorPlot},
        {selection.Report_IncludeDecision, ComposeDecision},
    };
    document.FontName = selection.Report_FontName; // before StartDoc: a file may name it at its head
    document.StartDoc();
    bool any = false;
    for (const auto& [included, composeSection] : sections) {
        if (!included) continue;
        if (any) document.NewPage();
        any = true;
        try {
            if (!composeSection(composition)) return false;
        } catch (const RuntimeFault& fault) {
            composition.watch.failed(fault);
            return false;
        }
    }
    ComposeOrigin(composition);
    document.EndDoc();
    return true;
}

} // namespace metrisk
