// The decision on a reading.
#include "base/NumberFormat.h"
#include "reports/Compose.h"
#include "reports/ReportFigures.h"
#include "reports/TableMarkup.h"
#include "risk/decision/Judge.h"
#include "risk/decision/ShownFigures.h"

namespace metrisk {

namespace {

constexpr const char* title = "Decision";
constexpr const char* noReading = "There is no reading to decide on.";
constexpr const char* noFigure = "These entries lead to no decision.";
constexpr const char* exactRemark =
    "The probabilities are of this item alone and by exact integration; they are not to be compared with the "
    "false accept and false reject risk of all items.";
constexpr const char* columns = "<3600|<5500;";

bool refuse(Composition& c, const std::string& text) {
    c.watch.tell({text, title});
    return false;
}

std::string rowsOf(const Composition& c, const Judge& judge, double reading, const Judgement& judgement) {
    const DecisionBasis& basis = judge.basis();
    const DecisionTexts& texts = judge.texts();
    const Decision& decision = judgement.decision;
    const Conformance& p = decision.conformance;
    std::string rows = columns;
    const auto add = [&](const char* label, const std::string& value) {
        rows += std::string(label) + "|" + oneLine(value) + ";";
    };
    add("Reading:", texts.reading(reading));
    add(basis.twoSided() ? "Tolerance Limits:" : "Tolerance Limit:",
        limitsText(basis, basis.tolerance(), texts));
    add("Decision Rule:", ruleSentence(judge.rule(), basis, texts));
    add("Acceptance Limits:",
        judgement.acceptance ? limitsText(basis, *judgement.acceptance, texts) : "no reading can pass");
    if (decision.limits && decision.limits->rejection)
        add("Fails Unless:", limitsText(basis, *decision.limits->rejection, texts));
    add("Standard Uncertainty:",
        texts.width(basis.sigma) +
            (basis.withProcess ? ", with process errors" : ", of the measuring parameter alone"));
    add("Expanded Uncertainty:",
        texts.width(basis.expanded()) + " (k = " + GeneralText(basis.coverage, c.regional, 3) + ")");
    if (basis.degFreedom > 0)
        add("Degrees of Freedom:", freedomText(basis.degFreedom, "#,##0.0", c.regional));
    add("Verdict:", std::string(textOf(decision.verdict)));
    add("Probability of Conformance:", judgement.conformance);
    if (p.nonconforming > 0)
        add("Of Nonconformance:", shownPercent({p.nonconforming, p.conforming}, {}, c.regional));
    return rows;
}

} // namespace

bool ComposeDecision(Composition& c) {
    ReportDocument& d = c.document;
    const auto& request = c.selection.Report_Decision;
    if (!request) return refuse(c, noReading);
    const auto judge = judgeOf(c.record, c.regional, *request);
    if (!judge) return refuse(c, judge.refusal().told() ? judge.refusal().text : noFigure);
    const auto judgement = judge->judge(request->reading);
    if (!judgement) return refuse(c, judgement.refusal().told() ? judgement.refusal().text : noFigure);

    c.running("Measurement Decision Risk Analysis||Decision");
    c.style(14, true);
    d.Text(title);
    c.style(10, false);
    c.subjectUnitLine();
    c.measuringUnitLine();
    c.rule();
    c.lineFeed();
    d.Table(rowsOf(c, *judge, request->reading, *judgement));
    c.lineFeed();
    d.Text(judgement->sentence);
    for (const std::string& note : judge->notes()) d.Text(note);
    if (!judgement->note.empty()) d.Text(judgement->note);
    c.style(8, false);
    d.Text(exactRemark);
    return true;
}

} // namespace metrisk
