#include "unattended/AnalysisReport.h"

#include "base/Text.h"
#include "desk/compute/DataGate.h"
#include "desk/files/ReportFiles.h"
#include "files/CairoPress.h"
#include "rows/Cell.h"
#include "rows/Reading.h"

#include <algorithm>
#include <array>

namespace metrisk {

namespace {

/// Raises RowFault where the reading has a unit that cannot be.
ReportSelection selectionOf(const ReportRequest& request, const Analysis& record) {
    ReportSelection selection;
    selection.Report_IncludeRisk = request.holds("risk");
    selection.Report_IncludePlots = request.holds("plots");
    selection.Report_IncludeUncertainty = request.holds("uncertainty");
    selection.Report_IncludeErrorPlot = request.holds("error");
    selection.Report_IncludeDecision = request.holds("decision");
    if (request.reading)
        if (const auto measured = nominalReading(*request.reading, record))
            selection.Report_Decision = {*measured, request.rule, request.prior, request.coverage};
    selection.Report_FontName = request.font;
    return selection;
}

} // namespace

bool ReportRequest::holds(std::string_view section) const {
    return std::ranges::find(sections, section) != sections.end();
}

std::span<const std::string> reportSections() {
    static const std::array<std::string, 5> all{"risk", "plots", "uncertainty", "error", "decision"};
    return all;
}

std::optional<std::string> composeReport(AnalysisRun& run, const std::string& name,
                                         const ReportRequest& request) {
    if (request.organization) {
        run.record.Organization = withoutQuotes(std::string(firstCharacters(*request.organization, 60)));
        run.record.IncludeOrganization = true;
    }
    const bool allowed = withReason(run, "no report", [&] { return haveData(run.session, Needs::Both); });
    if (!allowed) return std::nullopt;
    try {
        return reportBytes(run.session, selectionOf(request, run.record), request.page, name, CairoPress());
    } catch (const RowFault& fault) {
        run.ui.note("Reading: " + fault.text);
        return std::nullopt;
    }
}

} // namespace metrisk
