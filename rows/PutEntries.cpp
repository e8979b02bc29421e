// The rules by which the entries of a row are put into a test point.
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "numerics/CoverageFactor.h"
#include "record/ComposedOffset.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "risk/BaselineModel.h"
#include "risk/decision/Counts.h"
#include "risk/decision/Coverage.h"
#include "rows/FollowUnit.h"
#include "rows/TypedK.h"
#include "rows/UnitFactors.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double turFactor = 1.959964;
constexpr double largestK = 6;
constexpr double sameK = 0.03;
constexpr double usualConfidence = 95;

[[noreturn]] void refuse(std::string text) {
    throw RowFault{false, std::move(text)};
}
[[noreturn]] void refuse(std::string_view title, std::string_view text) {
    refuse(toldText(title, text));
}
[[noreturn]] void refuse(const Message& message) {
    refuse(message.title, message.text);
}
[[noreturn]] void refuse(const Refusal& refusal) {
    refuse(refusal.title, refusal.text);
}

/// A row may name one of several forms: the entries of each.
using Form = std::initializer_list<Entry>;

void requireOneForm(const NamedEntries& named, std::initializer_list<Form> forms) {
    std::optional<Entry> first;
    for (const Form& form : forms)
        for (const Entry entry : form) {
            if (!named.has(entry)) continue;
            if (first)
                refuse(std::string(infoOf(*first).name) + " and " + std::string(infoOf(entry).name) +
                       " both given");
            first = entry;
            break;
        }
}

class Putting {
  public:
    Putting(TestPoint& point, const NamedEntries& named, const UnitFactors& units, CountsAs countsAs,
            std::string& notes, Unnamed unnamed)
        : p_(point), named_(named), units_(units), countsAs_(countsAs), notes_(notes),
          keeps_(unnamed == Unnamed::Kept) {}

    void all() {
        requireOneForm(named_, {{Entry::Tol, Entry::TolPct}, {Entry::Upper, Entry::Lower}});
        requireOneForm(named_,
                       {{Entry::TolUpper, Entry::TolLower, Entry::TolPct}, {Entry::Upper, Entry::Lower}});
        requireOneForm(named_, {{Entry::Tol}, {Entry::TolUpper, Entry::TolLower}});
        requireOneForm(named_, {{Entry::SubjectPct}, {Entry::Passed, Entry::Tested}});
        requireOneForm(named_, {{Entry::MteTol, Entry::MteTolPct},
                                {Entry::MteU},
                                {Entry::MteExpanded},
                                {Entry::Tur},
                                {Entry::MteRatio}});
        requireOneForm(named_, {{Entry::Gb}, {Entry::GbUpper, Entry::GbLower}});
        requireOneForm(named_, {{Entry::GbK}, {Entry::GbKUpper, Entry::GbKLower}});
        requireOneForm(named_, {{Entry::Gb, Entry::GbUpper, Entry::GbLower},
                                {Entry::GbK, Entry::GbKUpper, Entry::GbKLower},
                                {Entry::AcceptUpper, Entry::AcceptLower}});
        putUnits();
        putSides();
        putNominal();
        putTolerance();
        putPhysical();
        putSubjectPct();
        putMeasuring();
        putProcess();
        putGuardband();
        if (!namesGuardband(named_)) followTypedK(p_);
        putChoices();
        if (observed_) putTruePct();
    }

  private:
    TestEntries& e() { return p_.entries; }
    SubjectEntry& su() { return p_.entries.subject; }
    const SubjectEntry& su() const { return p_.entries.subject; }
    MeasuringEntry& mte() { return p_.entries.measuring; }

    /// In nominal units.
    double length(Entry entry) const {
        const NamedEntry& value = named_[entry];
        const EntryInfo& info = infoOf(entry);
        const bool place = info.kind == EntryKind::Length || info.kind == EntryKind::Limit;
        return units_.inNominal(value.number, value.unit, p_.nominalUnit, p_.area,
                                place ? UnitFactors::Length::Place : UnitFactors::Length::Interval,
                                info.name);
    }

    /// A part of the nominal where the unit is ppm or %.
    OffsetPart part(Entry entry) const {
        const NamedEntry& value = named_[entry];
        const bool ppm = value.unit == ppmUnits && p_.nominalUnit != ppmUnits;
        const bool percent = value.unit == percentUnits && p_.nominalUnit != percentUnits;
        if (!ppm && !percent) return {length(entry), 0};
        if (su().mode == 0) refuse(ppmModeMessage);
        if (ppm) return {checked(value.number / (perMillion / std::fabs(su().mode))), 0};
        return {0, value.number};
    }

    double composed(const OffsetPart& parts) const {
        return composeOffset({parts.fixed, parts.pct, {}, {}}, su().mode).value;
    }

    void putUnits() {
        const std::string_view before = p_.nominalUnit;
        if (named_.has(Entry::Area)) p_.area = named_[Entry::Area].text;
        if (named_.has(Entry::Unit)) p_.unit = named_[Entry::Unit].text;
        p_.nominalUnit = p_.unit;
        if (const auto& nominal = named_[Entry::Nominal]; named_.has(Entry::Nominal) && !nominal.unit.empty())
            p_.unit = p_.nominalUnit = nominal.unit;
        if (p_.nominalUnit != before) followUnit(p_, before, named_, units_);
    }

    void putSides() {
        const Sides before = su().sides;
        Sides sides = before;
        if (named_.has(Entry::Sided)) {
            const std::string_view word = named_[Entry::Sided].text;
            if (equalCaseBlind(word, "two"))
                sides = Sides::Two;
            else if (equalCaseBlind(word, "upper"))
                sides = Sides::Upper;
            else if (equalCaseBlind(word, "lower"))
                sides = Sides::Lower;
            else
                throw RowFault{true, "column sided: " + std::string(word) + " is none of two, upper, lower"};
        }
        const bool noUpper = named_.has(Entry::Upper) && !std::isfinite(named_.number(Entry::Upper));
        const bool noLower = named_.has(Entry::Lower) && !std::isfinite(named_.number(Entry::Lower));
        if (noUpper && noLower) refuse("upper and lower are both none");
        if (noUpper) sides = Sides::Lower;
        if (noLower) sides = Sides::Upper;
        if (sides == Sides::Two) su().physicalLimitRequired = false, su().physicalLimit.reset();
        if (sides != before) su().physicalLimit.reset();
        su().sides = sides;
    }

    void putNominal() {
        if (!named_.has(Entry::Nominal)) return;
        const double mode = named_.number(Entry::Nominal), before = su().mode;
        if (mode == 0 && (p_.nominalUnit == ppmUnits || p_.subjectUnit.isPpm())) refuse(ppmModeMessage);
        su().mode = mode;
        if (mode != before) {
            followReading(su().upperOffset, p_.upper.fixed, p_.upper.pct, p_.subjectUnit.isPpm(), before,
                          mode);
            followReading(su().lowerOffset, p_.lower.fixed, p_.lower.pct, p_.subjectUnit.isPpm(), before,
                          mode);
            if (!mte().byUncertainty) {
                followReading(mte().offset, p_.measuring.fixed, p_.measuring.pct, p_.measuringUnit.isPpm(),
                              before, mode);
            } else if (p_.measuringUnit.isPpm()) {
                double none = 0;
                followReading(mte().offset, p_.measuring.fixed, 0, true, before, mode);
                followReading(p_.stdUncertainty, none, 0, true, before, mode);
            }
            // The figures of the table are parts of the reading, and stay so.
            if (p_.measuringUnit.isPpm() && p_.nominalUnit != ppmUnits && !p_.area.empty() && before != 0 &&
                mode != 0 && e().process && hasSources(*e().process))
                rescale(*e().process, std::fabs(mode / before));
        }
        su().upperLimit = checked(mode + su().upperOffset);
        su().lowerLimit = checked(mode - su().lowerOffset);
    }

    void putSide(const SubjectSide& side, const OffsetPart& parts) {
        const double offset = composed(parts);
        if (parts.fixed < 0 || parts.pct < 0 || offset < 0) refuse(side.offsetTitle, zeroOrAboveText);
        const bool upper = &side == &upperSide;
        (upper ? p_.upper : p_.lower) = parts;
        (upper ? su().upperOffset : su().lowerOffset) = offset;
        (upper ? su().upperLimit : su().lowerLimit) = checked(su().mode + side.sign * offset);
    }

    void putTolerance() {
        if (named_.any({Entry::Tol, Entry::TolUpper, Entry::TolLower, Entry::TolPct})) {
            const OffsetPart upper = tolerance(Entry::TolUpper, Entry::TolLower, p_.upper);
            const OffsetPart lower = tolerance(Entry::TolLower, Entry::TolUpper, p_.lower);
            putSide(upperSide, su().sides == Sides::Lower ? OffsetPart{} : upper);
            putSide(lowerSide, su().sides == Sides::Upper ? OffsetPart{} : lower);
        }
        if (!named_.any({Entry::Upper, Entry::Lower})) return;
        putLimit(upperSide, Entry::Upper, su().sides == Sides::Lower);
        putLimit(lowerSide, Entry::Lower, su().sides == Sides::Upper);
    }

    /// One side named alone leaves the other as it is, or is that of both where they are symmetric.
    OffsetPart tolerance(Entry own, Entry other, const OffsetPart& present) const {
        const bool both = named_.has(Entry::Tol), alone = named_.has(other) && !named_.has(own);
        OffsetPart found = present;
        if (both || named_.has(own))
            found = part(both ? Entry::Tol : own);
        else if (alone && p_.symmetricTolerances)
            found = part(other);
        else if (!alone)
            found = {keeps_ ? present.fixed : 0, 0};
        else if (named_.has(Entry::TolPct))
            found.pct = 0;
        if (named_.has(Entry::TolPct)) found.pct += named_.number(Entry::TolPct);
        return found;
    }

    void putLimit(const SubjectSide& side, Entry entry, bool absent) {
        if (absent) return putSide(side, {});
        if (!named_.has(entry)) {
            const std::string name(infoOf(entry).name);
            refuse(name + " is empty: none, or sided=" + (entry == Entry::Upper ? "lower" : "upper") +
                   ", if there is no such limit");
        }
        putSide(side, {checked(side.sign * (length(entry) - su().mode)), 0});
    }

    void putPhysical() {
        if (!named_.has(Entry::Phys)) return;
        if (su().sides == Sides::Two) refuse("phys: only with a single-sided tolerance");
        su().physicalLimitRequired = true;
        su().physicalLimit = length(Entry::Phys);
    }

    void putSubjectPct() {
        if (named_.any({Entry::Passed, Entry::Tested})) {
            for (const Entry entry : {Entry::Passed, Entry::Tested})
                if (!named_.has(entry)) refuse(std::string(infoOf(entry).name) + " is empty");
            putCounts({named_.number(Entry::Passed), named_.number(Entry::Tested)});
        } else if (named_.has(Entry::SubjectPct)) {
            const double pct = named_.number(Entry::SubjectPct);
            if (!(pct > 0 && pct <= 100)) refuse(subjectPctMessage);
            su().pctInTol = pct;
        }
    }

    void putCounts(const Counts& counts) {
        p_.passed = counts.passed;
        p_.tested = counts.tested;
        if (const auto refusal = refusedCounts(counts)) refuse(*refusal);
        if (countsAs_ == CountsAs::Lower || (countsAs_ == CountsAs::Median && counts.allPassed())) {
            const auto lower = countsLowerEntry(counts);
            if (!lower) refuse(lower.refusal());
            su().pctInTol =
                countsAs_ == CountsAs::Lower ? *lower : countedPct(counts)->median.value_or(*lower);
        } else {
            const auto estimate = countsEntry(counts);
            if (!estimate) {
                const Refusal& why = estimate.refusal();
                refuse(toldText(why.title, why.text) + " Give su_pct or --counts lower.");
            }
            su().pctInTol = *estimate;
            observed_ = countsAs_ == CountsAs::Observed;
        }
        if (!observed_)
            addNote(notes_, "counts of passes are observed: false accepts and false rejects are in them");
    }

    /// The percentage of which the test accepts the share that was observed.
    void putTruePct() {
        const auto basis = decisionBasis(e());
        if (!basis) refuse(basis.refusal());
        const auto truePct = truePctOf(*basis, su().pctInTol);
        if (!truePct) refuse("no true % in-tolerance is observed so");
        su().pctInTol = *truePct;
    }

    void putMeasuring() {
        const bool tolerance = named_.any({Entry::MteTol, Entry::MteTolPct, Entry::MteRatio});
        const bool uncertainty = named_.any({Entry::MteU, Entry::MteExpanded, Entry::Tur});
        const bool changes = tolerance ? mte().byUncertainty : uncertainty && !mte().byUncertainty;
        if (changes) {
            mte().byUncertainty = uncertainty;
            mte().pctInTol = uncertainty ? usualConfidence : 0;
            mte().degFreedom = 0;
            p_.stdUncertainty = 0;
            p_.measuring = {};
        }
        if (named_.has(Entry::MteDof)) mte().degFreedom = named_.number(Entry::MteDof);
        putPct();
        if (named_.has(Entry::MteK)) putCoverage();
        if (tolerance) putMeasuringTolerance();
        if (mte().byUncertainty &&
            (uncertainty || named_.any({Entry::MtePct, Entry::MteConf, Entry::MteDof})))
            putUncertainty();
    }

    void putPct() {
        const bool conf = named_.has(Entry::MteConf);
        if (!conf && !named_.has(Entry::MtePct)) return;
        if (conf && named_.has(Entry::MtePct)) refuse("mte_pct and mte_conf both given");
        const double pct = named_.number(conf ? Entry::MteConf : Entry::MtePct);
        const bool tooHigh = mte().byUncertainty ? pct > 100 : pct >= 100;
        if (tooHigh || !(pct > 0)) refuse(measuringPctMessage);
        mte().pctInTol = pct;
    }

    /// The confidence of which k is the factor.
    void putCoverage() {
        const double k = named_.number(Entry::MteK);
        if (!named_.has(Entry::MteExpanded)) refuse("mte_k needs mte_expanded");
        if (!(k > 0 && k <= largestK)) refuse("mte_k must be above 0 and at most 6");
        if (named_.has(Entry::MteConf)) {
            const double usual = CoverageFactor(mte().pctInTol, mte().degFreedom);
            if (!(std::fabs(k - usual) <= sameK * usual)) refuse("mte_k and mte_conf both given");
            addNote(notes_, "mte_k counts, mte_conf is its rounded confidence");
        }
        mte().pctInTol = 100 * coverageContent(k, mte().degFreedom);
    }

    void putMeasuringTolerance() {
        OffsetPart parts;
        if (named_.has(Entry::MteRatio)) {
            const double ratio = named_.number(Entry::MteRatio);
            if (!(ratio > 0)) refuse("mte_ratio must be above 0");
            parts.fixed = checked(p_.halfWidth() / ratio);
        } else {
            if (named_.has(Entry::MteTol))
                parts = part(Entry::MteTol);
            else if (keeps_)
                parts.fixed = p_.measuring.fixed;
            if (named_.has(Entry::MteTolPct)) parts.pct += named_.number(Entry::MteTolPct);
        }
        p_.measuring = parts;
        mte().offset = composed(parts);
    }

    void putUncertainty() {
        const double factor = CoverageFactor(mte().pctInTol, mte().degFreedom);
        if (named_.has(Entry::MteExpanded)) {
            mte().offset = composed(part(Entry::MteExpanded));
            if (factor > 0) p_.stdUncertainty = checked(mte().offset / factor);
            return;
        }
        if (named_.has(Entry::MteU)) {
            p_.stdUncertainty = composed(part(Entry::MteU));
            if (p_.stdUncertainty == 0) mte().offset = 0;
        } else if (named_.has(Entry::Tur)) {
            const double tur = named_.number(Entry::Tur);
            if (!(tur > 0)) refuse("tur must be above 0");
            p_.stdUncertainty = checked(p_.halfWidth() / (turFactor * tur));
        }
        if (factor > 0 && p_.stdUncertainty != 0) mte().offset = checked(factor * p_.stdUncertainty);
    }

    void putProcess() {
        if (!named_.has(Entry::ProcessU)) return;
        const double process = composed(part(Entry::ProcessU));
        if (process < 0) refuse(processUncertaintyTitle, zeroOrAboveText);
        e().process = Budget{.process = process};
    }

    void putGuardband() {
        if (!namesGuardband(named_)) return;
        const bool single = named_.any({Entry::Gb, Entry::GbK});
        for (const bool upper : {true, false}) {
            double& multiplier = upper ? p_.multipliers.upper : p_.multipliers.lower;
            bool& typed = upper ? p_.kUpperTyped : p_.kLowerTyped;
            const Entry own = upper ? Entry::GbUpper : Entry::GbLower;
            const Entry ownK = upper ? Entry::GbKUpper : Entry::GbKLower;
            const Entry limit = upper ? Entry::AcceptUpper : Entry::AcceptLower;
            if (keeps_ && !single && !named_.any({own, ownK, limit})) {
                if (!upper && p_.symmetricMultipliers && named_.has(Entry::GbUpper)) {
                    multiplier = p_.multipliers.upper;
                    typed = false;
                }
                continue;
            }
            typed = named_.any({Entry::GbK, Entry::GbKUpper, Entry::GbKLower});
            if (typed)
                multiplier = fromK(upper);
            else if (named_.has(Entry::Gb) || named_.has(own))
                multiplier = named_.number(named_.has(Entry::Gb) ? Entry::Gb : own);
            else if (named_.has(limit))
                multiplier = checked((upper ? length(limit) - su().mode : su().mode - length(limit)) /
                                     (upper ? su().upperOffset : su().lowerOffset));
            else
                multiplier = 1;
        }
        p_.includeGuardbands = true;
        e().excludedGuardband = false;
        e().guardband = p_.multipliers;
    }

    double fromK(bool upper) {
        const Entry entry = named_.has(Entry::GbK) ? Entry::GbK : upper ? Entry::GbKUpper : Entry::GbKLower;
        const double k = named_.has(entry) ? named_.number(entry) : 0;
        (upper ? p_.kUpper : p_.kLower) = k;
        const KBasis basis = kBasisOf(p_);
        const bool absent = su().sides == (upper ? Sides::Lower : Sides::Upper);
        if (k == 0 || (upper ? basis.upperOffset : basis.lowerOffset) == 0 || absent ||
            std::isnan(basis.sigma))
            return 1;
        return multiplierOfK(k, basis, upper, named_[entry].text);
    }

    void putChoices() {
        if (named_.has(Entry::Convention)) {
            const std::string_view word = named_[Entry::Convention].text;
            if (equalCaseBlind(word, "consumer") || word == "0")
                e().convention = Convention::Consumer;
            else if (equalCaseBlind(word, "producer") || word == "1")
                e().convention = Convention::Producer;
            else
                throw RowFault{true, "column convention: " + std::string(word) +
                                         " is neither consumer nor producer"};
        }
        putReference();
        if (named_.has(Entry::EqOn)) {
            const std::string_view word = named_[Entry::EqOn].text;
            if (!equalCaseBlind(word, "fa") && !equalCaseBlind(word, "fr"))
                throw RowFault{true, "column eq_on: " + std::string(word) + " is neither fa nor fr"};
            e().ratioOnFalseAccept = equalCaseBlind(word, "fa");
        }
        if (named_.has(Entry::Reading)) p_.reading = length(Entry::Reading);
        if (named_.has(Entry::Rule)) p_.rule = named_[Entry::Rule].text;
    }

    void putReference() {
        Reference& base = e().reference;
        const auto pct = [&](Entry entry, double& into) {
            if (!named_.has(entry)) return;
            into = named_.number(entry);
            if (!isProbability(into / 100)) refuse(infoOf(entry).name, pctRangeText);
        };
        if (named_.has(Entry::BaseRatio)) {
            base.ratio = named_.number(Entry::BaseRatio);
            if (!(base.ratio > 0)) refuse(infoOf(Entry::BaseRatio).name, ratioTooLowText);
        }
        pct(Entry::BaseMtePct, base.measuringPct);
        pct(Entry::BaseSubjectPct, base.subjectPct);
    }

    TestPoint& p_;
    const NamedEntries& named_;
    const UnitFactors& units_;
    CountsAs countsAs_;
    std::string& notes_;
    const bool keeps_; // what is not named of a form
    bool observed_ = false;
};

} // namespace

bool namesGuardband(const NamedEntries& named) {
    return named.any({Entry::Gb, Entry::GbUpper, Entry::GbLower, Entry::GbK, Entry::GbKUpper, Entry::GbKLower,
                      Entry::AcceptUpper, Entry::AcceptLower});
}

void putEntries(TestPoint& point, const NamedEntries& named, const UnitFactors& units, CountsAs countsAs,
                std::string& notes, Unnamed unnamed) {
    try {
        Putting(point, named, units, countsAs, notes, unnamed).all();
    } catch (const RuntimeFault&) {
        refuse("Not Computed", "These entries lead to no finite number.");
    }
}

} // namespace metrisk
