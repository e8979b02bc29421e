#include "persistence/ClearAnalysis.h"

#include "model/Text.h"
#include "persistence/BaselineDefaults.h"

namespace metrisk {
namespace {

/// Names of the process error rows 1 to 8; those of the sample rows 1 and 7 are fixed captions.
constexpr const char* defaultSourceNames[] = {"MTE Random",      "MTE Resolution", "Data Acquisition",
                                              "Stress Response", "Ancillary",      "Miscellaneous",
                                              "SU Random",       "SU Resolution"};

void readSourceNames(const Settings& settings, ProcessErrors& errors) {
    for (int row = 1; row <= 8; ++row) {
        const char* name = defaultSourceNames[row - 1];
        const bool fixed = row == 1 || row == 7;
        errors.ErrorSourceName[row] =
            fixed ? name : withoutQuotes(settings.ReadSetting("ErrorSourceNames", name, name, 30));
    }
}

void readReportFields(const Settings& settings, ReportFields& report) {
    const auto text = [&](const char* key, int length) {
        return withoutQuotes(settings.ReadSetting("ReportFormat", key, "", length));
    };
    const auto yes = [&](const char* key, int length) {
        return equalCaseBlind(settings.ReadSetting("ReportFormat", key, "No", length), "YES");
    };
    report.Organization = text("Organization", 150);
    report.IncludeOrganization = yes("IncludeOrganization", 5);
    report.Department = text("Department", 60);
    report.IncludeDepartment = yes("IncludeDepartment", 60);
    report.ApprovingDepartment = text("ApprovingDepartment", 60);
    report.IncludeApprovingDepartment = yes("IncludeApprovingDepartment", 5);
    report.Submitter = text("Submitter", 60);
    report.IncludeSubmitter = yes("IncludeSubmitter", 60);
    report.Approver = text("Approver", 60);
    report.IncludeApprover = yes("IncludeApprover", 60);
    report.IncludeFileName = yes("IncludeFileName", 5);
    report.IncludeRemarks = yes("IncludeRemarks", 5);
    const std::string delimiter = settings.ReadSetting("ReportFormat", "Delimiter", "Tab", 60);
    report.Delimiter = equalCaseBlind(delimiter, "TAB") ? "Tab" : "Comma";
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

void ClearWorksheets(Session& session) {
    Analysis& record = session.record;
    static_cast<Guardbands&>(record) = {};
    static_cast<ProcessErrors&>(record) = {};
    static_cast<SampleStatistics&>(record) = {};
    static_cast<ObservedPct&>(record) = {};
    static_cast<BiasAnalysis&>(record) = {};
    static_cast<Reliability&>(record) = {};
    static_cast<ReportFields&>(record) = {};
    static_cast<PlotOptions&>(record) = {};
    readSourceNames(session.settings, record);
    readReportFields(session.settings, record);
}

void ClearAnalysis(Session& session) {
    Analysis& record = session.record;

    SubjectParameter subject;
    subject.NominalUnits = record.NominalUnits;
    static_cast<Identification&>(record) = {};
    static_cast<SubjectParameter&>(record) = subject;
    static_cast<MeasuringParameter&>(record) = {};

    const BaselineDefaults defaults = ReadBaselineDefaults(session.settings, record.Base_EqRatioTarget);
    static_cast<Baseline&>(record) = defaults.figures;

    RiskResults results;
    results.FalseAcceptOption = ReadFalseAcceptConvention(session.settings);
    results.UserOption = defaults.UserOption;
    results.EqRatioOnFalseAccept = record.EqRatioOnFalseAccept;
    static_cast<RiskResults&>(record) = results;

    ClearWorksheets(session);
    static_cast<Snapshot&>(record) = {};
    static_cast<SessionState&>(record) = newState(record);
    session.ui.repaintMainScreen();
}

} // namespace metrisk
