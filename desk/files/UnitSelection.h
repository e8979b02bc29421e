// The units that a box offers, the one that is selected, and the factors that follow.
#pragma once

#include "desk/files/UnitsFile.h"
#include "desk/kit/Controls.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct Analysis;

/// A box of units. The items of its choice and the multipliers run side by side.
struct UnitsBox {
    Choice& choice;
    std::vector<double> UnitMultipliers{};

    /// The selected unit and its multiplier; empty and none without a selection.
    std::string unit() const;
    std::optional<double> multiplier() const;
    /// Offers a unit that the database does not hold.
    void add(const std::string& unit, double multiplier);
};

/// Fills the box with the units of the area. The wanted one is selected; with nothing wanted the last whose
/// multiplier is 1 and that is not "ppm". An empty area empties the box. A database that fails tells so and
/// leaves the box.
void FillUnitsBox(UnitsFile& units, UnitsBox& box, const std::string& area, const std::string& wanted);

/// Selects by text; nothing for an empty text or "None".
void SelectUnit(UnitsBox& box, const std::string& unit);

/// unitFactor for what the boxes have selected; none while one of the two is not selected, 1 without an area.
std::optional<double> toleranceFactor(const std::string& area, double mode, const UnitsBox& modeUnits,
                                      const UnitsBox& toleranceUnits);

/// Adds area units of the record that the database does not hold to the boxes, with multipliers that give the
/// record's own factors, and selects them.
void keepUnitsOfRecord(const Analysis& record, UnitsBox& mode, UnitsBox& subject, UnitsBox& measuring);

} // namespace metrisk
