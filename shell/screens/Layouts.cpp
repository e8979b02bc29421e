#include "shell/screens/Layouts.h"

#include "links/screens/Layouts.h"
#include "plots/screens/Layouts.h"
#include "reliability/screens/Layouts.h"
#include "reports/screens/Layouts.h"
#include "risk/screens/Layouts.h"
#include "selfcheck/screens/Layouts.h"
#include "uncertainty/screens/Layouts.h"
#include "units/screens/Layouts.h"

#include <string_view>
#include <utility>

namespace metrisk {

QWidget* layoutOf(const char* screen, const WidgetMaker& w) {
    static constexpr std::pair<std::string_view, QWidget* (*)(const WidgetMaker&)> layouts[] = {
        {"BaselineAnalysis", layoutBaselineAnalysis},
        {"BiasCalcOption", layoutBiasCalcOption},
        {"ColorScheme", layoutColorScheme},
        {"Computing", layoutComputing},
        {"CorrelationList", layoutCorrelationList},
        {"DataEntryWorksheet", layoutDataEntry},
        {"EqRatio", layoutEqRatio},
        {"ErrorPlot", layoutPlot},
        {"FAFORM", layoutFalseAccept},
        {"GuardPlot", layoutGuardPlot},
        {"GuardbandAnalysis", layoutGuardbandAnalysis},
        {"MTEError", layoutMTEError},
        {"MTEPlot", layoutPlot},
        {"ObservedPctWorksheet", layoutObservedPct},
        {"OffsetCalc", layoutOffsetCalc},
        {"PrintDialog", layoutPrintDialog},
        {"PrintOpt", layoutReportOptions},
        {"Print_SS", layoutPreview},
        {"ReliabilityModelCoefficients", layoutReliability},
        {"RiskMap", layoutRiskMap},
        {"SUPlot", layoutPlot},
        {"SelfCheck", layoutSelfCheck},
        {"SystemInformation", layoutSystemInfo},
        {"UnitsRevision", layoutUnitsRevision},
        {"form_RunExternal", layoutRunExternal},
    };
    for (const auto& [name, layout] : layouts)
        if (name == screen) return layout(w);
    return nullptr;
}

} // namespace metrisk
