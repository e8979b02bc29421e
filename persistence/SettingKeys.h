// The keys of the settings file that analyses take their defaults from, for reading and writing alike.
#pragma once

#include "base/Settings.h"
#include "record/WorksheetGroups.h"

namespace metrisk {

/// The default baseline. Figures are texts with either decimal symbol.
namespace baselineSettings {
inline constexpr std::string_view section = "BaselineDefaults";
inline constexpr TextSetting accuracyRatio{section, "Metrisk", "4:1", 60};
inline constexpr TextSetting mtePctInTol{section, "MTEPctInTol", "85", 60};
inline constexpr TextSetting suPctInTol{section, "SUPctInTol", "72", 60};
inline constexpr TextSetting falseAcceptRisk{section, "FalseAcceptRisk", "4.1", 60};
inline constexpr TextSetting falseAcceptUnits{section, "FalseAcceptUnits", "%", 60};
inline constexpr TextSetting falseAcceptCriterion{section, "FalseAcceptCriterion", "Consumer", 60};
inline constexpr TextSetting falseRejectRisk{section, "FalseRejectRisk", "3.75", 60};
inline constexpr TextSetting falseRejectUnits{section, "FalseRejectUnits", "%", 60};
inline constexpr TextSetting userOption{section, "UserOption", "User", 60};
} // namespace baselineSettings

/// "Consumer" or "Producer".
inline constexpr TextSetting falseAcceptConvention{"RiskOption", "FalseAcceptConvention", "Consumer", 60};

/// Texts and choices of reports with their fields; a choice is "Yes" or "No".
struct ReportText {
    TextSetting setting;
    std::string ReportFields::*field;
};
struct ReportChoice {
    TextSetting setting;
    bool ReportFields::*field;
};
namespace reportSettings {
inline constexpr std::string_view section = "ReportFormat";
inline constexpr ReportText texts[] = {
    {{section, "Organization", "", 150}, &ReportFields::Organization},
    {{section, "Department", "", 60}, &ReportFields::Department},
    {{section, "ApprovingDepartment", "", 60}, &ReportFields::ApprovingDepartment},
    {{section, "Submitter", "", 60}, &ReportFields::Submitter},
    {{section, "Approver", "", 60}, &ReportFields::Approver},
};
inline constexpr ReportChoice choices[] = {
    {{section, "IncludeOrganization", "No", 5}, &ReportFields::IncludeOrganization},
    {{section, "IncludeDepartment", "No", 60}, &ReportFields::IncludeDepartment},
    {{section, "IncludeApprovingDepartment", "No", 5}, &ReportFields::IncludeApprovingDepartment},
    {{section, "IncludeSubmitter", "No", 60}, &ReportFields::IncludeSubmitter},
    {{section, "IncludeApprover", "No", 60}, &ReportFields::IncludeApprover},
    {{section, "IncludeFileName", "No", 5}, &ReportFields::IncludeFileName},
    {{section, "IncludeRemarks", "No", 5}, &ReportFields::IncludeRemarks},
};
/// Font family of a report.
inline constexpr TextSetting defaultFont{section, "DefCurrentFont", "Arial", 60};
/// "Tab" or "Comma".
inline constexpr TextSetting delimiter{section, "Delimiter", "Tab", 60};
} // namespace reportSettings

/// "Yes" or "No".
namespace mainScreenSettings {
inline constexpr TextSetting worstCase{"MainScreen", "WorstCase", "Yes", 5};
inline constexpr TextSetting hideIdentification{"MainScreen", "HideIdentification", "No", 5};
} // namespace mainScreenSettings

/// The rule that readings are judged by, as the command line writes it.
namespace readingSettings {
inline constexpr std::string_view section = "Reading";
inline constexpr TextSetting rule{section, "Rule", "simple", 60};
inline constexpr TextSetting reject{section, "Reject", "", 60};
inline constexpr TextSetting outcomes{section, "Outcomes", "", 5};
inline constexpr TextSetting prior{section, "Prior", "No", 5};
inline constexpr TextSetting coverage{section, "Coverage", "", 60};
} // namespace readingSettings

/// Names of the process error rows 1 to 8. Those of the sample rows 1 and 7 are fixed captions; the key
/// of another row is the name that stands where nothing is stored.
inline constexpr std::string_view errorSourceNames[] = {
    "MTE Random", "MTE Resolution", "Data Acquisition", "Stress Response",
    "Ancillary",  "Miscellaneous",  "SU Random",        "SU Resolution"};
constexpr bool isFixedErrorSource(int row) {
    return row == 1 || row == 7;
}
constexpr TextSetting errorSourceSetting(int row) {
    const std::string_view name = errorSourceNames[row - 1];
    return {"ErrorSourceNames", name, name, 30};
}

} // namespace metrisk
