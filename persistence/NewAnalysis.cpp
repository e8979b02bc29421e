#include "persistence/NewAnalysis.h"

#include "base/Text.h"
#include "persistence/BaselineDefaults.h"
#include "persistence/SettingKeys.h"
#include "persistence/SettingsFile.h"

namespace metrisk {
namespace {

void readSourceNames(const Settings& settings, ProcessErrors& errors) {
    for (int row = 1; row <= 8; ++row) {
        const TextSetting setting = errorSourceSetting(row);
        errors.ErrorSourceName[row] =
            isFixedErrorSource(row) ? std::string(setting.otherwise) : withoutQuotes(settings.read(setting));
    }
}

/// A new analysis does not end what the program is doing.
SessionState newState(const SessionState& running) {
    SessionState state;
    state.LastAnalysisName = running.LastAnalysisName;
    state.FileReadOnly = running.FileReadOnly;
    state.Computing = running.Computing;
    state.LoadInProgress = running.LoadInProgress;
    state.ObservedWorksheetOpen = running.ObservedWorksheetOpen;
    state.UncertaintyWorksheetOpen = running.UncertaintyWorksheetOpen;
    state.GB_ScreenOpen = running.GB_ScreenOpen;
    state.FirstDisplay = running.FirstDisplay;
    state.DirectCompute = running.DirectCompute;
    state.DirectComputeChanged = running.DirectComputeChanged;
    return state;
}

} // namespace

void readReportFields(const Settings& settings, ReportFields& report) {
    for (const ReportText& text : reportSettings::texts)
        report.*text.field = withoutQuotes(settings.read(text.setting));
    for (const ReportChoice& choice : reportSettings::choices)
        report.*choice.field = equalCaseBlind(settings.read(choice.setting), "YES");
    report.Delimiter = equalCaseBlind(settings.read(reportSettings::delimiter), "TAB") ? "Tab" : "Comma";
}

void ClearWorksheets(Analysis& record, const Settings& settings) {
    static_cast<Guardbands&>(record) = {};
    static_cast<ProcessErrors&>(record) = {};
    static_cast<SampleStatistics&>(record) = {};
    static_cast<ObservedPct&>(record) = {};
    static_cast<BiasAnalysis&>(record) = {};
    static_cast<Reliability&>(record) = {};
    static_cast<ReportFields&>(record) = {};
    static_cast<PlotOptions&>(record) = {};
    static_cast<RiskPlotState&>(record) = {};
    readSourceNames(settings, record);
    readReportFields(settings, record);
}

void clearAnalysis(Analysis& record, const Settings& settings) {
    SubjectParameter subject;
    subject.NominalUnits = record.NominalUnits;
    static_cast<Identification&>(record) = {};
    static_cast<SubjectParameter&>(record) = subject;
    static_cast<MeasuringParameter&>(record) = {};

    const BaselineDefaults defaults = ReadBaselineDefaults(settings, record.Base_EqRatioTarget);
    static_cast<Baseline&>(record) = defaults.figures;

    RiskResults results;
    results.FalseAcceptOption = ReadFalseAcceptConvention(settings);
    results.UserOption = defaults.UserOption;
    results.EqRatioOnFalseAccept = record.EqRatioOnFalseAccept;
    static_cast<RiskResults&>(record) = results;

    ClearWorksheets(record, settings);
    static_cast<Snapshot&>(record) = {};
    static_cast<SessionState&>(record) = newState(record);
}

Analysis newAnalysis() {
    Analysis fresh;
    const SettingsFile none(SettingsContent{});
    clearAnalysis(fresh, none);
    ClearWorksheets(fresh, none);
    return fresh;
}

} // namespace metrisk
