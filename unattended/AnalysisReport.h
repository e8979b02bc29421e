// The report of one analysis as the bytes of a file.
#pragma once

#include "reports/PageSetup.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/DecisionRule.h"
#include "unattended/AnalysisRun.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct ReportRequest {
    std::vector<std::string> sections{"risk"}; // of reportSections()
    std::optional<std::string> reading{};      // of the section decision, and of no other
    DecisionRule rule{};
    bool prior = false;
    CoverageChoice coverage{};
    std::string font = "Arial";
    std::optional<std::string> organization{}; // otherwise that of the analysis
    PageSetup page = PageSetup::a4();

    bool holds(std::string_view section) const;
};

/// "risk", "plots", "uncertainty", "error", "decision".
std::span<const std::string> reportSections();

/// The whole file that would go to `name`, whose extension tells the format. None if that was refused, which
/// has been told. Raises std::runtime_error where it cannot be drawn.
std::optional<std::string> composeReport(AnalysisRun& run, const std::string& name,
                                         const ReportRequest& request);

} // namespace metrisk
