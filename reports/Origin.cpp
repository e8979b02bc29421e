// The small print of a report: where its figures come from, and those of the other convention.
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "persistence/Fingerprint.h"
#include "reports/Compose.h"
#include "risk/decision/RecordDecision.h"
#include "risk/decision/TestRatios.h"
#include "risk/evaluate/CurrentFigures.h"

namespace metrisk {

namespace {

/// By exact integration, so that a reader of either convention finds his own figure. Empty where the risks
/// above are not those of the entries.
std::string bothConventions(const Composition& c) {
    if (!currentFigures(c.record, c.regional).risks) return "";
    const auto basis = decisionBasis(c.record, c.regional);
    if (!basis) return "";
    const auto risks = risksOf(*basis);
    if (!risks) return "";
    const TestRatios ratios = ratiosOf(*basis);
    const auto number = [&](double value, std::string_view picture) {
        return FormatNumber(value, WidenPicture(value, picture), c.regional);
    };
    const auto risk = [&](double fraction) {
        const ShownRisk shown = shownRisk(fraction);
        return number(shown.value, riskPicture(shown.units)) + (shown.units == ppmUnits ? " ppm" : "%");
    };
    return "TUR " + number(ratios.tur, "##0.00") + ":1, U " +
           decisionTexts(c.record, c.regional, basis->expanded()).width(basis->expanded()) +
           " (k = " + FormatNumber(basis->coverage, "##0.##", c.regional) +
           "); by exact integration: False Accept Risk " + risk(risks->consumer) +
           " of the accepted (Consumer), " + risk(risks->producer) +
           " of all (Producer), False Reject Risk " + risk(risks->falseReject) + "\n";
}

} // namespace

void ComposeOrigin(Composition& c) {
    const Analysis& r = c.record;
    c.document.IndentLeft = 0;
    c.document.CurrentY += 180;
    c.style(6.5, false);
    const std::string fingerprint = inputsFingerprint(r);
    c.document.SmallPrint((c.selection.Report_IncludeRisk ? bothConventions(c) : "") +
                          "Metrisk " METRISK_VERSION ", False Accept Risk " +
                          std::string(r.FalseAcceptOption == 0 ? "Option 1 (Consumer's Perspective)"
                                                               : "Option 2 (Producer's Perspective)") +
                          ", " + longDate(c.now) +
                          (fingerprint.empty() ? "" : "\nSHA-256 of the inputs: " + fingerprint));
}

} // namespace metrisk
