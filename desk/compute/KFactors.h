// k-factors of guardbands: what they are to multipliers, which are allowed, and how they follow changes.
//
// A k-factor counts the measuring sigmas by which a test limit lies inside its tolerance limit.
#pragma once

#include "base/Regional.h"
#include "record/SubjectSide.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Session;

/// (1 - multiplier) x offset / sigma, and the way back: 1 - k x sigma / offset. Offsets and sigma in the same
/// unit. Each raises RuntimeFault on a division by 0.
double kFromMultiplier(double multiplier, double offset, double sigma);
double multiplierFromK(double k, double offset, double sigma);

/// The test limit stays on its side of the mode, or on the mode. Nothing is refused while the lower offset
/// or the measuring sigma is 0.
bool kFactorAllowed(const Analysis& record, double k, const SubjectSide& side);

/// The same; with a text of the value a refusal is told.
bool CheckKFactor(Session& session, double k, const SubjectSide& side, std::string_view text = {});

/// The k-factor in its picture, empty without one. That of a test limit on the mode is never rounded up: it
/// could not be typed.
std::string kFactorText(const Analysis& record, const SubjectSide& side, const Regional& regional);

/// k-factor and picture from the multiplier. What the side's box shows then; nothing if it stays as it is.
/// Without a measuring sigma the k-factor stays and the box shows 0.
std::optional<std::string> ShowLowerKFactor(Analysis& record, const Regional& regional);
std::optional<std::string> ShowUpperKFactor(Analysis& record, const Regional& regional);

/// Multiplier and picture from the k-factor, for a side that exists and has an offset. With symmetric
/// multipliers the upper one is copied to the lower side.
void LowerMultiplierFromKFactor(Analysis& record, const Regional& regional);
void UpperMultiplierFromKFactor(Analysis& record, const Regional& regional);

/// One multiplier for both sides: the lower one takes the upper one's value and picture, and its k no longer
/// counts as typed.
void copyUpperMultiplier(Analysis& record);
/// Symmetry of the multipliers, which ends that of the k-factors.
void chooseSymmetricMultipliers(Analysis& record, bool on, const Regional& regional);

/// What the two symmetry flags say, whatever was typed last: under symmetric multipliers the lower one is the
/// upper one, under symmetric k-factors the lower k is; the other quantity of the lower side follows from its
/// own offset. A k that the lower side cannot have ends the symmetry and leaves that side as it was. Without
/// two sides there is nothing to settle. Raises RuntimeFault.
void settleSymmetry(Analysis& record, const Regional& regional);

/// To be run after a change of the uncertainty or the tolerances: k-factors that were typed decide over
/// their multipliers, any other follows its multiplier. A typed one that is not allowed any more is
/// replaced, after a question, by the largest that is or by that of the multiplier. Symmetric sides stay so.
void RevalidateKFactors(Session& session);

} // namespace metrisk
