#include "rows/FollowUnit.h"

#include "base/Real.h"
#include "base/SameNumber.h"
#include "rows/UnitFactors.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

class Following {
  public:
    Following(TestPoint& point, std::string_view before, const NamedEntries& named, const UnitFactors& units)
        : p_(point), before_(before), named_(named), units_(units) {}

    void all() {
        const bool subjectStays = !named_.any(
            {Entry::Tol, Entry::TolUpper, Entry::TolLower, Entry::TolPct, Entry::Upper, Entry::Lower});
        const bool measuringStays = !named_.any(
            {Entry::MteTol, Entry::MteTolPct, Entry::MteRatio, Entry::MteU, Entry::MteExpanded, Entry::Tur});
        SubjectEntry& su = p_.entries.subject;
        MeasuringEntry& mte = p_.entries.measuring;
        const bool sources = p_.entries.process && hasSources(*p_.entries.process);
        const double subject =
            scaleInto(p_.subjectUnit, subjectStays && (su.upperOffset != 0 || su.lowerOffset != 0));
        const double measuring = scaleInto(p_.measuringUnit, sources || (measuringStays && mte.offset != 0));
        if (subject != 1) {
            scaleOffset(su.upperOffset, p_.upper, subject);
            scaleOffset(su.lowerOffset, p_.lower, subject);
            su.upperLimit = checked(su.mode + su.upperOffset);
            su.lowerLimit = checked(su.mode - su.lowerOffset);
        }
        if (measuring != 1) {
            scaleOffset(mte.offset, p_.measuring, measuring);
            p_.stdUncertainty = checked(p_.stdUncertainty * measuring);
            if (sources) rescale(*p_.entries.process, measuring);
        }
    }

  private:
    /// The tolerance unit beside the new nominal unit, and by what lengths in nominal units change. Where
    /// none is needed, units that have no factor are those of the nominal.
    double scaleInto(ToleranceUnit& unit, bool needed) const {
        if (unit.isPpm()) return 1;
        const double factor = unit.factor;
        const std::string_view name = unit.name.empty() ? before_ : unit.name;
        unit = {p_.nominalUnit, 1};
        if (name.empty() || p_.nominalUnit.empty()) return 1;
        try {
            unit = {name, units_.factor(p_.nominalUnit, name, p_.area, columnOfUnit())};
        } catch (const RowFault&) {
            if (needed) throw;
            return 1;
        }
        return checked(factor / unit.factor);
    }

    /// Of the entry by which the nominal unit has changed.
    std::string_view columnOfUnit() const {
        const bool byNominal = named_.has(Entry::Nominal) && !named_[Entry::Nominal].unit.empty();
        return byNominal ? "nominal" : "unit";
    }

    /// Its part of the reading stays one.
    void scaleOffset(double& offset, OffsetPart& part, double scale) const {
        const double reading = std::fabs(p_.entries.subject.mode) * part.pct / 100;
        double rest = offset - reading;
        if (sameDerived(offset, part.fixed + reading)) rest = part.fixed; // no trace of the difference
        offset = checked(rest * scale + reading);
        part.fixed = checked(part.fixed * scale);
    }

    TestPoint& p_;
    std::string_view before_;
    const NamedEntries& named_;
    const UnitFactors& units_;
};

} // namespace

bool hasSources(const Budget& budget) {
    return std::ranges::any_of(budget.sources,
                               [](const BudgetSource& source) { return source.uncertainty != 0; });
}

void rescale(Budget& budget, double scale) {
    budget.process = checked(budget.process * scale);
    for (BudgetSource& source : budget.sources) source.uncertainty = checked(source.uncertainty * scale);
}

void followUnit(TestPoint& point, std::string_view before, const NamedEntries& named,
                const UnitFactors& units) {
    Following(point, before, named, units).all();
}

} // namespace metrisk
