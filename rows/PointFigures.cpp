#include "rows/PointFigures.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "record/EntryRules.h"
#include "record/Symmetry.h"
#include "risk/RatioSearch.h"
#include "risk/RiskMessages.h"
#include "risk/SubjectFit.h"
#include "risk/decision/Counts.h"
#include "risk/decision/Decide.h"
#include "risk/decision/TestRatios.h"
#include "risk/decision/WorstCase.h"
#include "risk/evaluate/EnteredSubject.h"
#include "risk/exact/Verified.h"
#include "risk/guardband/Bisection.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr std::string_view statusWords[] = {"ok", "note", "refused", "bad"};

constexpr double sameAsOne = 1e-12;
constexpr std::string_view notComputed = "Not Computed";

/// As a compute hands it out: by way of the shown value.
double shownFraction(double risk) {
    const ShownRisk shown = shownRisk(notNegative(risk));
    return riskFraction(shown.value, shown.units);
}

std::string_view nameOf(Distribution distribution) {
    switch (distribution) {
    case Distribution::Normal: return "Normal";
    case Distribution::LogNormal: return "LogNormal";
    case Distribution::Exponential: return "Exponential";
    case Distribution::Uniform: return "Uniform";
    case Distribution::None: break;
    }
    return "";
}

std::string_view wordOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Pass: return "pass";
    case Verdict::ConditionalPass: return "conditional-pass";
    case Verdict::Undecided: return "undecided";
    case Verdict::NoDecision: return "no-decision";
    case Verdict::ConditionalFail: return "conditional-fail";
    case Verdict::Fail: break;
    }
    return "fail";
}

/// What a compute would ask, and be told to go on.
void noteQuestions(const TestPoint& point, std::string& notes) {
    const SubjectEntry& su = point.entries.subject;
    if (su.pctInTol == 100) addNote(notes, toldText(nonPhysicalTitle, hundredPercentText));
    if (su.physicalLimitRequired && su.physicalLimit == su.mode)
        addNote(notes, toldText(nonPhysicalTitle, physicalOnModeText));
}

/// Nothing entered is told before any rule.
std::string refusedText(const TestPoint& point, const Refusal& refusal) {
    const SubjectEntry& su = point.entries.subject;
    const MeasuringEntry& mte = point.entries.measuring;
    const bool noMeasuring = mte.pctInTol == 0 && su.mode == 0 && mte.offset == 0;
    if (subjectEmpty(enteredSubject(su)))
        return toldText(insufficientTitle, noMeasuring ? noDataText : noSubjectDataText);
    if (noMeasuring) return toldText(insufficientTitle, noMeasuringDataText);
    if (refusal.told()) return toldText(refusal.title, refusal.text);
    return toldText(notComputed, "These entries lead to no finite risk.");
}

/// What is solved for a wanted guardband; an absent side has a multiplier of 1.
struct SolvedGuardband {
    Guardband multipliers{};
    Guardband k{0, 0};
    Risks risks{};
};

class Computing {
  public:
    Computing(const TestPoint& point, const Want& want, PointFigures& out, std::string& notes)
        : p_(point), e_(point.entries), want_(want), out_(out), notes_(notes) {}

    void all() {
        out_.count = 0;
        const auto figures = evaluate(e_, want_.ofEvaluate());
        if (!figures) throw RowFault{false, refusedText(p_, figures.refusal())};
        f_ = *figures;
        if (e_.subject.pctInTol == 100 || e_.subject.physicalLimitRequired) noteQuestions(p_, notes_);
        for (const WantInfo& info : wantTable()) {
            if (!want_.has(info.word)) continue;
            const std::size_t end = out_.count + info.columns.size();
            put(info.word);
            while (out_.count < end) none();
        }
    }

  private:
    void none() { out_.values[out_.count++] = {}; }
    void put(double number) {
        out_.values[out_.count++] =
            std::isfinite(number) ? FigureValue{FigureValue::Kind::Number, number} : FigureValue{};
    }
    void put(bool flag) { out_.values[out_.count++] = {FigureValue::Kind::Flag, flag ? 1.0 : 0.0}; }
    void put(std::string_view text) { out_.values[out_.count++] = {FigureValue::Kind::Text, 0, text}; }
    void put(const BoundedFigure& figure) { put(figure.value), put(figure.bound); }

    int option() const { return static_cast<int>(e_.convention); }
    bool hasUpper() const { return e_.subject.sides != Sides::Lower; }
    bool hasLower() const { return e_.subject.sides != Sides::Upper; }

    void put(WantWord word) {
        switch (word) {
        case WantWord::Risks: return putRisks();
        case WantWord::Tur:
            put(ratiosOf(p_.halfWidth(), f_->mteSigma, 1).tur);
            put(p_.halfWidth() / e_.measuring.offset);
            return put(f_->subject.sigma / f_->mteSigma);
        case WantWord::Ratio: return putRatio();
        case WantWord::Exact: return putExact();
        case WantWord::Baseline: return putBaseline();
        case WantWord::Fit: return putFit();
        case WantWord::Entries: return putEntryColumns();
        case WantWord::Guardband: return putGuardband();
        case WantWord::Worst: return putWorst();
        case WantWord::Uncertainty: return putUncertainty();
        case WantWord::Counts: return putCounts();
        case WantWord::Decide: return putDecision();
        }
    }

    void putRisks() {
        const bool producer = e_.convention == Convention::Producer;
        const double own = shownFraction(f_->by(e_.convention).falseAccept);
        put(own);
        put(producer ? notNegative(f_->consumer.falseAccept) : own);
        put(producer ? own : notNegative(f_->producer.falseAccept));
        put(shownFraction(f_->consumer.falseReject));
    }

    void putRatio() {
        if (!f_->ratio) {
            constexpr int uniformCase = 9;
            const bool onAccept = e_.ratioOnFalseAccept && f_->subject.caseCode != uniformCase;
            addNote(notes_,
                    toldText(ratioFailureTitle, onAccept ? ratioFailureOnAccept : ratioFailureOnReject));
        }
        const double ratio = f_->ratio.value_or(0);
        put(ratio);
        put(ratioAttained(ratio));
    }

    void putExact() {
        if (!f_->exact) return;
        const BoundedFigure accept = f_->exact->falseAccept(option());
        const BoundedFigure reject = f_->exact->falseReject();
        put(accept);
        put(reject);
        const Reference& base = e_.reference;
        Verified verified =
            verifyBaseline(base.ratio, base.subjectPct / 100, base.measuringPct / 100, option());
        verified.falseAccept = {shownFraction(f_->by(e_.convention).falseAccept), accept};
        verified.falseReject = {shownFraction(f_->consumer.falseReject), reject};
        if (const auto digits = agreeingDigits(verified)) put(static_cast<double>(*digits));
    }

    void putBaseline() {
        if (!f_->reference) return;
        put(notNegative(f_->reference->falseAccept));
        put(notNegative(f_->reference->falseReject));
    }

    void putFit() {
        put(nameOf(f_->subject.distribution));
        put(static_cast<double>(f_->subject.caseCode));
        put(f_->subject.sigma);
        put(f_->subject.physicalLimit);
        put(f_->mteSigma);
        put(f_->kFactor);
    }

    void putEntryColumns() {
        const SubjectEntry& su = e_.subject;
        put(su.mode);
        put(su.sides == Sides::Two);
        put(su.sides == Sides::Upper);
        put(su.sides == Sides::Lower);
        put(su.upperOffset);
        put(su.lowerOffset);
        put(su.pctInTol);
        put(su.physicalLimitRequired);
        put(su.physicalLimit.value_or(0));
        put(e_.measuring.offset);
        put(e_.measuring.pctInTol);
        put(e_.measuring.degFreedom);
        put(e_.process ? e_.process->process : 0.0);
        put(e_.process.has_value());
        put(p_.includeGuardbands);
        put(p_.multipliers.upper);
        put(p_.multipliers.lower);
        put(static_cast<double>(option()));
    }

    SolvedGuardband solvedGuardband() const {
        const SubjectEntry& su = e_.subject;
        const double sigma = f_->mteSigma;
        GuardbandSolver solver(fitSubject(enteredSubject(su), {}), sigma, option());
        SolvedGuardband found;
        if (su.sides != Sides::Two || !want_.guardbandByK) {
            found.multipliers.upper = found.multipliers.lower = solver.multiplierFor(want_.guardband);
        } else {
            const bool equal = want_.guardband.key == GuardbandKey::Equalize;
            if (su.upperOffset == 0 || su.lowerOffset == 0)
                throw SolveFailure{"Subject parameter tolerance offsets must be nonzero."};
            const double k = solver.kFactorFor(want_.guardband);
            found.multipliers = {checked(1 - sigma * k / su.upperOffset),
                                 checked(1 - sigma * k / su.lowerOffset)};
            if (std::min(found.multipliers.upper, found.multipliers.lower) < -sameAsOne)
                throw SolveFailure{equal ? noEqualKFactorsText : noKFactorsText};
        }
        const auto k = [&](double multiplier, double offset) {
            return std::fabs(multiplier - 1) < sameAsOne ? 0 : checked((1 - multiplier) * offset / sigma);
        };
        found.k = {k(found.multipliers.upper, su.upperOffset), k(found.multipliers.lower, su.lowerOffset)};
        const auto risks =
            risksAt(f_->subject, sigma,
                    {-found.multipliers.lower * su.lowerOffset, found.multipliers.upper * su.upperOffset});
        if (!risks) throw SolveFailure{risks.refusal().text};
        const Risks& own = risks->by(e_.convention);
        found.risks = {std::max(own.falseAccept, 0.0), std::max(own.falseReject, 0.0)};
        return found;
    }

    void failGuardband(std::string_view text) {
        addNote(notes_, toldText("Guardband", text.empty() ? "there is none" : text));
        put(std::string_view("failed"));
    }

    void putGuardband() {
        try {
            const SolvedGuardband found = solvedGuardband();
            const auto side = [&](bool there, double value) { there ? put(value) : none(); };
            const SubjectEntry& su = e_.subject;
            put(std::string_view("solved"));
            side(hasUpper(), found.multipliers.upper);
            side(hasLower(), found.multipliers.lower);
            side(hasUpper(), found.k.upper);
            side(hasLower(), found.k.lower);
            side(hasUpper(), su.mode + found.multipliers.upper * su.upperOffset);
            side(hasLower(), su.mode - found.multipliers.lower * su.lowerOffset);
            put(found.risks.falseAccept);
            put(found.risks.falseReject);
        } catch (const SolveFailure& failure) {
            failGuardband(failure.text);
        } catch (const RuntimeFault&) {
            failGuardband({});
        }
    }

    /// What decisions are computed from; a note where there is none.
    const DecisionBasis* basis() {
        if (!basis_) {
            basis_ = decisionBasis(e_);
            if (!*basis_) addNote(notes_, toldText(basis_->refusal().title, basis_->refusal().text));
        }
        return *basis_ ? &**basis_ : nullptr;
    }

    void noteRefusal(const Refusal& refusal) { addNote(notes_, toldText(refusal.title, refusal.text)); }

    void putWorst() {
        const DecisionBasis* from = basis();
        if (!from) return;
        const auto worst = worstCase(*from, Convention::Producer, wholeRange(*from));
        if (!worst) return noteRefusal(worst.refusal());
        put(worst->falseAccept);
        put(worst->pctInTol);
    }

    void putUncertainty() {
        const DecisionBasis* from = basis();
        if (!from) return;
        put(from->coverage);
        put(from->expanded());
        put(from->ratio());
        if (!f_->exact) return;
        put(f_->exact->accepted.value);
        put(f_->exact->inTolerance.value);
    }

    void putCounts() {
        if (!p_.passed || !p_.tested) return addNote(notes_, "counts: passed and tested are empty");
        const auto pct = countedPct({*p_.passed, *p_.tested});
        if (!pct) return noteRefusal(pct.refusal());
        put(pct->lower);
        put(pct->upper);
        const DecisionBasis* from = basis();
        if (!from) return;
        const CountedRisks risks = countedRisks(*from, *pct);
        const auto risk = [&](const std::optional<GuardedRisks>& at, bool accept) {
            if (!at) return none();
            put(accept ? at->falseAccept(e_.convention) : at->falseReject);
        };
        risk(risks.atLower, true);
        risk(risks.atUpper, true);
        risk(risks.atLower, false);
        risk(risks.atUpper, false);
    }

    void putDecision() {
        const auto rule = p_.rule.empty() ? want_.rule : ruleCellOf(p_.rule);
        if (!rule) throw RowFault{true, "column rule: " + std::string(p_.rule) + " is no decision rule"};
        if (!p_.reading) return addNote(notes_, "decide: reading is empty");
        const DecisionBasis* from = basis();
        if (!from) return;
        const auto decision = decide(*from, *p_.reading, *rule);
        if (!decision) return noteRefusal(decision.refusal());
        put(wordOf(decision->verdict));
        put(decision->conformance.conforming);
        putDecisionLimits(*from, *rule, *decision);
        put(decision->conformance.nonconforming);
    }

    void putDecisionLimits(const DecisionBasis& from, const DecisionRule& rule, const Decision& decision) {
        std::optional<Interval> limits;
        if (decision.limits) {
            limits = decision.limits->acceptance;
        } else if (const auto found = conformanceLimits(from, rule.value)) {
            limits = *found;
        }
        if (!limits) return none(), none();
        put(from.subject.mode + limits->lower);
        put(from.subject.mode + limits->upper);
    }

    const TestPoint& p_;
    const TestEntries& e_;
    const Want& want_;
    PointFigures& out_;
    std::string& notes_;
    std::optional<TestFigures> f_{};
    std::optional<Result<DecisionBasis>> basis_{};
};

} // namespace

void figuresOf(const TestPoint& point, const Want& want, PointFigures& figures, std::string& notes) {
    Computing(point, want, figures, notes).all();
}

std::string_view wordOf(PointStatus status) {
    return statusWords[static_cast<std::size_t>(status)];
}

PointStatus pointStatusOf(std::string_view word) {
    for (const PointStatus each : {PointStatus::Ok, PointStatus::Note, PointStatus::Refused})
        if (word == wordOf(each)) return each;
    return PointStatus::Bad;
}

PointStatus computePoint(TestPoint& point, const NamedEntries& named, const UnitFactors& units,
                         CountsAs countsAs, const Want& want, PointFigures& figures, std::string& message) {
    try {
        putEntries(point, named, units, countsAs, message);
        figuresOf(point, want, figures, message);
        return message.empty() ? PointStatus::Ok : PointStatus::Note;
    } catch (const RowFault& fault) {
        figures.count = 0;
        message = fault.text;
        return fault.bad ? PointStatus::Bad : PointStatus::Refused;
    }
}

} // namespace metrisk
