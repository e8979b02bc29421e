#include "tests/screens/support/EveryScreen.h"

#include "desk/appearance/ColorSchemeScreen.h"
#include "desk/baseline/BaselineScreen.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/guardband/GuardbandScreen.h"
#include "desk/information/SystemInfoScreen.h"
#include "desk/links/RunExternalScreen.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/observed/ObservedScreen.h"
#include "desk/offset/OffsetScreen.h"
#include "desk/options/EqRatioScreen.h"
#include "desk/options/FalseAcceptScreen.h"
#include "desk/plots/ErrorPlotScreen.h"
#include "desk/plots/ParameterPlotScreens.h"
#include "desk/reliability/ReliabilityScreen.h"
#include "desk/reports/PreviewScreen.h"
#include "desk/reports/PrintDialogScreen.h"
#include "desk/reports/ReportOptionsScreen.h"
#include "desk/selfcheck/SelfCheckScreen.h"
#include "desk/sweeps/GuardPlot.h"
#include "desk/sweeps/RiskMapScreen.h"
#include "desk/uncertainty/BiasCalcOptionScreen.h"
#include "desk/uncertainty/CorrelationScreen.h"
#include "desk/uncertainty/DataEntryScreen.h"
#include "desk/uncertainty/MTEErrorScreen.h"
#include "desk/units/UnitsScreen.h"
#include "tests/screens/support/Desk.h"

namespace metrisk::testing {

EveryScreen::EveryScreen(Desk& desk) : plots_(desk.session), reports_(desk.session) {
    Session& session = desk.session;
    desk.boxes.expectBox("Database Unavailable",
                         "Unable to find the units database.\nPlease locate the database.", "Cancel");
    desk.boxes.expectBox(
        "Missing Database",
        "The measurement units database was not located.  To locate this database, attempt to open the "
        "Update Measurement Units screen and follow the on-screen instructions.");
    const auto add = [this]<class Screen>(std::unique_ptr<Screen> screen) -> Screen& {
        Screen& added = *screen;
        screens_.push_back(std::move(screen));
        return added;
    };
    add(std::make_unique<MainScreen>(session));
    add(std::make_unique<BaselineScreen>(session));
    add(std::make_unique<FalseAcceptScreen>(session));
    add(std::make_unique<EqRatioScreen>(session));
    add(std::make_unique<ComputingScreen>(session));
    add(std::make_unique<GuardbandScreen>(session));
    add(std::make_unique<ObservedScreen>(session));
    add(std::make_unique<ReliabilityScreen>(session));
    add(std::make_unique<MTEErrorScreen>(session));
    add(std::make_unique<DataEntryScreen>(session, 1));
    add(std::make_unique<CorrelationScreen>(session));
    add(std::make_unique<BiasCalcOptionScreen>(session, 0));
    add(std::make_unique<UnitsRevision>(session, files_));
    add(std::make_unique<OffsetCalc>(session, files_));
    add(std::make_unique<SelfCheckScreen>(session));
    add(std::make_unique<SUPlot>(plots_));
    add(std::make_unique<MTEPlot>(plots_));
    add(std::make_unique<ErrorPlot>(plots_));
    add(std::make_unique<GuardPlot>(session, Swept::MeasuringPct));
    add(std::make_unique<RiskMapScreen>(session));
    add(std::make_unique<ColorSchemeScreen>(session));
    add(std::make_unique<SystemInfoScreen>(session));
    add(std::make_unique<RunExternalScreen>(session));
    add(std::make_unique<PrintDialogScreen>(session, reports_));
    add(std::make_unique<ReportOptionsScreen>(session));
    if (!add(std::make_unique<PreviewScreen>(session, ReportSelection{})).compose()) qFatal("no report");
}

} // namespace metrisk::testing
