// The texts of a guardband beside its tolerance: as a limit and as an offset.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <string>

namespace metrisk {

struct SubjectSide;

struct GuardbandTexts {
    std::string limit;  // the test limit in nominal units
    std::string offset; // its distance from the mode in tolerance units, negative on the lower side
};

/// From the side's multiplier, with the decimals that multiplier and offset bring in, but never fewer than
/// the texts of the tolerance beside them. With `significant` above 0 no more digits than those.
GuardbandTexts ShowLowerGuardband(const Analysis& record, const Regional& regional);
GuardbandTexts ShowUpperGuardband(const Analysis& record, const Regional& regional);
GuardbandTexts guardbandTexts(const Analysis& record, const SubjectSide& side, const Regional& regional,
                              int significant = 0);
/// What a box has room for.
inline constexpr int guardbandBoxDigits = 10;

/// The same forms of the tolerance limit itself.
GuardbandTexts toleranceTexts(const Analysis& record, const SubjectSide& side, const Regional& regional);

} // namespace metrisk
