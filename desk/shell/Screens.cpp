#include "desk/appearance/ColorSchemeScreen.h"
#include "desk/baseline/BaselineScreen.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/DataGate.h"
#include "desk/decision/ReadingScreen.h"
#include "desk/decision/StrategyScreen.h"
#include "desk/guardband/GuardbandScreen.h"
#include "desk/information/SystemInfoScreen.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/links/RunExternalScreen.h"
#include "desk/observed/ObservedScreen.h"
#include "desk/offset/OffsetScreen.h"
#include "desk/options/EqRatioScreen.h"
#include "desk/options/FalseAcceptScreen.h"
#include "desk/plots/ErrorPlotScreen.h"
#include "desk/plots/ParameterPlotScreens.h"
#include "desk/plots/PlotDesk.h"
#include "desk/points/ColumnScreen.h"
#include "desk/points/TestPointsScreen.h"
#include "desk/reliability/ReliabilityScreen.h"
#include "desk/reports/PreviewScreen.h"
#include "desk/reports/PrintDialogScreen.h"
#include "desk/reports/ReportDesk.h"
#include "desk/reports/ReportOptionsScreen.h"
#include "desk/selfcheck/SelfCheckScreen.h"
#include "desk/sweeps/GuardPlot.h"
#include "desk/sweeps/RiskMapScreen.h"
#include "desk/uncertainty/BiasCalcOptionScreen.h"
#include "desk/uncertainty/CorrelationScreen.h"
#include "desk/uncertainty/DataEntryScreen.h"
#include "desk/uncertainty/MTEErrorScreen.h"
#include "desk/units/UnitsScreen.h"

namespace metrisk {

namespace {

using Made = std::unique_ptr<Worksheet>;

template <class Screen>
Made ofSession(const DeskParts& parts) {
    return std::make_unique<Screen>(parts.session);
}

template <class Screen, auto argument>
Made with(const DeskParts& parts) {
    return std::make_unique<Screen>(parts.session, argument);
}

template <class Screen>
Made ofFiles(const DeskParts& parts) {
    return std::make_unique<Screen>(parts.session, *parts.files);
}

template <class Screen>
Made ofPlots(const DeskParts& parts) {
    return std::make_unique<Screen>(*parts.plots);
}

template <int slot>
Made reliabilityOf(const DeskParts& parts) {
    parts.session.record.Rel_ActiveSlot = slot;
    return std::make_unique<ReliabilityScreen>(parts.session);
}

Made baselineOf(const DeskParts& parts) {
    auto screen = std::make_unique<BaselineScreen>(parts.session);
    screen->openPlot = [&session = parts.session, shown = screen.get()](const std::string& subjectPct,
                                                                        const std::string& measuringPct) {
        GuardPlot plot(session, GuardPlot::Baseline{subjectPct,
                                                    measuringPct,
                                                    {shown->BaseAccRat1.text, shown->BaseAccRat2.text}});
        session.ui.run(plot);
    };
    return screen;
}

Made uncertaintyOf(const DeskParts& parts) {
    auto screen = std::make_unique<MTEErrorScreen>(parts.session);
    screen->openTolerances = parts.openTolerances;
    screen->openErrorPlot = [](Session& desk) {
        if (haveData(desk, Needs::BothForPlot)) PlotDesk(desk).show(PlotKind::Error);
    };
    if (ReportDesk* reports = parts.reports) {
        screen->previewReport = [reports](Session& desk) {
            reports->preview(desk, reportOrigin::uncertainty);
        };
        screen->printReport = [reports](Session& desk) { reports->print(desk, reportOrigin::uncertainty); };
    }
    screen->refresh();
    return screen;
}

Made printDialogOf(const DeskParts& parts) {
    return std::make_unique<PrintDialogScreen>(parts.session, *parts.reports);
}

Made readingOf(const DeskParts& parts) {
    auto screen = std::make_unique<ReadingScreen>(parts.session, parts.readings);
    if (ReportDesk* reports = parts.reports)
        screen->decided = [reports](const DecisionRequest& request) {
            reports->selection.Report_Decision = request;
        };
    return screen;
}

Made testPointsOf(const DeskParts& parts) {
    auto screen = std::make_unique<TestPointsScreen>(parts.session, parts.files, parts.points);
    screen->openAnalysis = parts.openAnalysis;
    if (ReportDesk* reports = parts.reports) {
        screen->papers.printTable = [reports](const TableReport& table) {
            return reports->printTable(table);
        };
        screen->papers.tablePdf = [reports](const TableReport& table) { return reports->tablePdf(table); };
    }
    return screen;
}

Made pointColumnOf(const DeskParts& parts) {
    return std::make_unique<ColumnScreen>(parts.session, "Add a Column", "");
}

Made previewOf(const DeskParts& parts) {
    return std::make_unique<PreviewScreen>(parts.session, ReportSelection{});
}

constexpr ScreenEntry table[] = {
    {screens::baseline, "&Baseline", Needs::Nothing, baselineOf},
    {screens::falseAccept, "&False Accept Risk", Needs::Nothing, ofSession<FalseAcceptScreen>},
    {screens::ratio, "&Equivalent Accuracy Ratio", Needs::Nothing, ofSession<EqRatioScreen>},
    {"Computing", "", Needs::Nothing, ofSession<ComputingScreen>},
    {screens::guardbands, "&Guardband", Needs::Nothing, ofSession<GuardbandScreen>},
    {screens::observed, "&True vs. Observed % In-Tolerance", Needs::Nothing, ofSession<ObservedScreen>},
    {screens::reading, "Decision on a &Reading", Needs::Nothing, readingOf},
    {screens::strategies, "&Guardband Strategies", Needs::Nothing, ofSession<StrategyScreen>},
    {screens::reliability[0], "&Subject Parameter", Needs::Nothing, reliabilityOf<0>},
    {screens::reliability[1], "&Measuring Parameter", Needs::Nothing, reliabilityOf<1>},
    {screens::uncertainty, "&Uncertainty", Needs::Nothing, uncertaintyOf},
    {"DataEntryWorksheet.Measuring", "", Needs::Nothing, with<DataEntryScreen, 1>},
    {"DataEntryWorksheet.Subject", "", Needs::Nothing, with<DataEntryScreen, 2>},
    {"CorrelationList", "", Needs::Nothing, ofSession<CorrelationScreen>},
    {screens::biasReference[0], "&Subject Parameter", Needs::Nothing,
     with<BiasCalcOptionScreen, std::size_t{0}>},
    {screens::biasReference[1], "&Measuring Parameter", Needs::Nothing,
     with<BiasCalcOptionScreen, std::size_t{1}>},
    {screens::testPoints, "&Test Points", Needs::Nothing, testPointsOf},
    {"PointColumn", "", Needs::Nothing, pointColumnOf},
    {screens::units, "Measurement &Units", Needs::Nothing, ofFiles<UnitsRevision>},
    {screens::offsets, "&Tol Ref", Needs::Nothing, ofFiles<OffsetCalc>},
    {screens::selfCheck, "&Self-Check", Needs::Nothing, ofSession<SelfCheckScreen>},
    {"SUPlot", "&Subject Parameter Bias Distribution", Needs::Subject, ofPlots<SUPlot>},
    {"MTEPlot", "&Measuring Parameter Bias Distribution", Needs::BothForPlot, ofPlots<MTEPlot>},
    {"ErrorPlot", "&Process Error Distribution", Needs::BothForPlot, ofPlots<ErrorPlot>},
    {screens::riskBySubjectPct, "&Risk vs. Subject Parameter % In-Tol", Needs::BothForPlot,
     with<GuardPlot, Swept::SubjectPct>},
    {screens::riskByMeasuringPct, "Risk &vs. Measuring Parameter % In-Tol", Needs::BothForPlot,
     with<GuardPlot, Swept::MeasuringPct>},
    {screens::riskByMultiplier, "", Needs::BothForPlot, with<GuardPlot, Swept::Multiplier>},
    {screens::riskByK, "", Needs::BothForPlot, with<GuardPlot, Swept::KFactor>},
    {screens::riskMap, "Risk M&ap", Needs::BothForPlot, ofSession<RiskMapScreen>},
    {screens::colours, "Screen &Appearance", Needs::Nothing, ofSession<ColorSchemeScreen>},
    {screens::systemInformation, "System &Information", Needs::Nothing, ofSession<SystemInfoScreen>},
    {"form_RunExternal", "&Run External Application", Needs::Nothing, ofSession<RunExternalScreen>},
    {"PrintDialog", "&Print...", Needs::Both, printDialogOf},
    {"PrintOpt", "&Report Format", Needs::Nothing, ofSession<ReportOptionsScreen>},
    {"Print_SS", "Print Pre&view", Needs::Both, previewOf},
};

} // namespace

std::span<const ScreenEntry> allScreens() {
    return table;
}

} // namespace metrisk
