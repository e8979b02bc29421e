// What a report is to hold, as the print dialog keeps it while the program runs.
#pragma once

#include "risk/decision/Judge.h"

#include <optional>
#include <string>

namespace metrisk {

/// Who asks for a report.
namespace reportOrigin {
inline constexpr const char* printDialog = "PrintDialog";
inline constexpr const char* mainScreen = "Metrisk";   // the risk report always, the uncertainty report never
inline constexpr const char* uncertainty = "MTEError"; // the uncertainty report always, no risks and plots
} // namespace reportOrigin

struct ReportSelection {
    bool Report_IncludeRisk = true;
    bool Report_IncludePlots = false;
    bool Report_IncludeUncertainty = false;
    bool Report_IncludeErrorPlot = false;
    bool Report_IncludeDecision = false;
    bool Report_Preview = false;
    std::string Report_Origin = reportOrigin::printDialog;
    std::string Report_FontName = "Arial";
    float Report_MTEZoom = 100; // percent
    float Report_SUZoom = 100;
    float Report_ErrorZoom = 100;
    double Report_LeftMargin = 1; // inches
    double Report_TopMargin = 1;
    std::optional<DecisionRequest> Report_Decision{}; // the reading that is decided on

    /// With the sections that its origin asks for.
    ReportSelection settled() const;
    bool empty() const {
        return !(Report_IncludeRisk || Report_IncludePlots || Report_IncludeUncertainty ||
                 Report_IncludeErrorPlot || Report_IncludeDecision);
    }
};

} // namespace metrisk
