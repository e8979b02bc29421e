// The units in which a parameter's tolerances are entered and shown, beside the nominal units in which
// they are held.
#pragma once

#include "base/NumberEntry.h"
#include "base/Regional.h"
#include "record/Analysis.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Tolerance units of one parameter; `name` lives as long as the record.
struct ToleranceUnits {
    double factor; // tolerance units per nominal unit; a factor of 0 is 1 here
    int shift;     // decimals that a figure loses by being shown in tolerance units
    std::string_view name;

    bool isPpm() const;

    double shown(double nominal) const { return nominal * factor; }
    /// Raises RuntimeFault if the result is not finite.
    double toNominal(double shown) const;

    /// Picture of an entry in tolerance units, held for nominal units; and the way back.
    std::string heldPicture(const NumberEntry& entry) const;
    std::string shownPicture(std::string_view heldPicture) const;

    /// Number and units of a value in nominal units.
    std::string text(double nominal, std::string_view heldPicture, const Regional& regional) const;
};

ToleranceUnits subjectUnits(const Analysis& record);
ToleranceUnits measuringUnits(const Analysis& record);

/// "NUMBER UNITS"; without units, or without a number, no blank.
std::string withUnits(std::string number, std::string_view units);

} // namespace metrisk
