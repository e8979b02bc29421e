#include "desk/compute/ObservingUnits.h"

#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "desk/kit/Session.h"
#include "record/ToleranceUnits.h"
#include "units/UnitFactor.h"
#include "units/database/UnitsDatabase.h"

#include <algorithm>
#include <filesystem>

namespace metrisk {

namespace {

std::vector<MeasurementUnit> unitsOfArea(const Session& session) {
    const std::string& path = session.places.UnitsDatabasePath;
    std::error_code none;
    if (withoutOuterBlanks(session.record.MeasurementArea).empty() || path.empty() ||
        !std::filesystem::exists(path, none))
        return {};
    try {
        return openUnitsDatabase(path)->unitsOf(session.record.MeasurementArea);
    } catch (const UnitsError&) {
        return {}; // the record's own units remain
    }
}

} // namespace

std::vector<OfferedUnit> observingUnits(const Session& session) {
    const Analysis& r = session.record;
    std::vector<OfferedUnit> offered;
    const auto offer = [&](const std::string& name, double factor) {
        const bool known =
            std::ranges::any_of(offered, [&](const OfferedUnit& unit) { return unit.name == name; });
        if (!name.empty() && !known) offered.push_back({name, factor});
    };
    offer(r.NominalUnits, 1);
    offer(r.MTE_ToleranceUnits, measuringUnits(r).factor);
    offer(r.SU_ToleranceUnits, subjectUnits(r).factor);
    const std::vector<MeasurementUnit> area = unitsOfArea(session);
    const auto nominal = std::ranges::find(area, r.NominalUnits, &MeasurementUnit::symbol);
    if (nominal != area.end())
        for (const MeasurementUnit& unit : area)
            if (unit.symbol != ppmUnits || r.SU_Mode != 0 || r.NominalUnits == ppmUnits)
                offer(unit.symbol, unitFactor(r.SU_Mode, r.NominalUnits, nominal->multiplier, unit.symbol,
                                              unit.multiplier));
    offer(r.Obs_Units, measuringUnits(r).factor);
    return offered;
}

double observingFactor(const Session& session) {
    const std::vector<OfferedUnit> offered = observingUnits(session);
    const auto found = std::ranges::find(offered, session.record.Obs_Units, &OfferedUnit::name);
    return found == offered.end() ? measuringUnits(session.record).factor : found->factor;
}

} // namespace metrisk
