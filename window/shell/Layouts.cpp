#include "window/shell/Layouts.h"

#include "window/decision/Layouts.h"
#include "window/links/Layouts.h"
#include "window/plots/Layouts.h"
#include "window/points/Layouts.h"
#include "window/reliability/Layouts.h"
#include "window/reports/Layouts.h"
#include "window/risk/Layouts.h"
#include "window/selfcheck/Layouts.h"
#include "window/uncertainty/Layouts.h"
#include "window/units/Layouts.h"

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
        {"PointColumn", layoutPointColumn},
        {"PrintDialog", layoutPrintDialog},
        {"PrintOpt", layoutReportOptions},
        {"Print_SS", layoutPreview},
        {"Reading", layoutReading},
        {"ReliabilityModelCoefficients", layoutReliability},
        {"RiskMap", layoutRiskMap},
        {"SUPlot", layoutPlot},
        {"SelfCheck", layoutSelfCheck},
        {"Strategies", layoutStrategies},
        {"SystemInformation", layoutSystemInfo},
        {"TestPoints", layoutTestPoints},
        {"UnitsRevision", layoutUnitsRevision},
        {"form_RunExternal", layoutRunExternal},
    };
    for (const auto& [name, layout] : layouts)
        if (name == screen) return layout(w);
    return nullptr;
}

} // namespace metrisk
