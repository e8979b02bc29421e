#include "desk/files/UnitSelection.h"

#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "record/Analysis.h"
#include "units/UnitFactor.h"

namespace metrisk {

std::string UnitsBox::unit() const {
    return choice.index < 0 ? "" : choice.items[static_cast<std::size_t>(choice.index)];
}

std::optional<double> UnitsBox::multiplier() const {
    if (choice.index < 0) return {};
    return UnitMultipliers[static_cast<std::size_t>(choice.index)];
}

void UnitsBox::add(const std::string& unit, double multiplier) {
    choice.items.push_back(unit);
    UnitMultipliers.push_back(multiplier);
}

void FillUnitsBox(UnitsFile& units, UnitsBox& box, const std::string& area, const std::string& wanted) {
    if (area.empty()) {
        box.choice.items.clear();
        box.UnitMultipliers.clear();
        box.choice.index = -1;
        return;
    }
    units.perform([&](UnitsDatabase& database) {
        const std::vector<MeasurementUnit> all = database.unitsOf(area);
        box.choice.items.clear();
        box.UnitMultipliers.clear();
        box.choice.index = -1;
        for (const MeasurementUnit& unit : all) {
            const int index = static_cast<int>(box.choice.items.size());
            box.add(std::string(withoutOuterBlanks(unit.symbol)), unit.multiplier);
            const bool primary = unit.multiplier == 1 && box.choice.items.back() != ppmUnits;
            const bool isWanted = box.choice.items.back() == wanted && box.choice.index < 0;
            if (wanted.empty() ? primary : isWanted) box.choice.index = index;
        }
    });
}

void SelectUnit(UnitsBox& box, const std::string& unit) {
    box.choice.index = -1;
    if (unit.empty() || unit == "None") return;
    for (std::size_t i = box.choice.items.size(); i-- > 0;)
        if (box.choice.items[i] == unit) box.choice.index = static_cast<int>(i);
}

std::optional<double> toleranceFactor(const std::string& area, double mode, const UnitsBox& modeUnits,
                                      const UnitsBox& toleranceUnits) {
    const auto m = modeUnits.multiplier();
    const auto t = toleranceUnits.multiplier();
    if (!m || !t) return {};
    if (area.empty()) return 1;
    return unitFactor(mode, modeUnits.unit(), *m, toleranceUnits.unit(), *t);
}

namespace {

bool offers(const UnitsBox& box, const std::string& unit) {
    for (const std::string& item : box.choice.items)
        if (item == unit) return true;
    return false;
}

/// The multiplier of a unit so that `mode` has the factor to it.
void keep(UnitsBox& box, const std::string& unit, double mode, double factor) {
    if (!unit.empty() && !offers(box, unit))
        box.add(unit, unit == ppmUnits ? 1 : mode / usableFactor(factor));
    SelectUnit(box, unit);
}

} // namespace

void keepUnitsOfRecord(const Analysis& r, UnitsBox& mode, UnitsBox& subject, UnitsBox& measuring) {
    const double factor = usableFactor(r.SU_TolUnitsFactor);
    if (!r.NominalUnits.empty() && !offers(mode, r.NominalUnits)) {
        SelectUnit(subject, r.SU_ToleranceUnits);
        const bool relative = r.SU_ToleranceUnits == ppmUnits;
        mode.add(r.NominalUnits, relative ? 1 : factor * subject.multiplier().value_or(1));
    }
    SelectUnit(mode, r.NominalUnits);
    const double m = mode.multiplier().value_or(1);
    keep(subject, r.SU_ToleranceUnits, m, factor);
    keep(measuring, r.MTE_ToleranceUnits, m, r.MTE_TolUnitsFactor);
}

} // namespace metrisk
