// Guardbands as k-factors: distances from the tolerance limits in standard deviations of the measuring
// process.
//
// With the offset d of a side, the process sigma s and the multiplier m: k = (1 - m) d / s.
#pragma once

#include <string>

namespace metrisk {

struct Analysis;
struct Session;
struct SubjectSide;

/// The multiplier of a k-factor counts as that of a limit on the mode down to here.
inline constexpr double beyondMode = -1e-12;

/// The side's k from its multiplier, with its picture: six decimals or as many as it needs. Near a multiplier
/// of 1 it is 0, with an empty picture below and four decimals above. A process sigma of 0 leaves it, and so
/// does a side that the tolerance does not have. Raises RuntimeFault.
void ShowUpperKFactor(Analysis& record);
void ShowLowerKFactor(Analysis& record);

/// The side's multiplier from its k, with at least four decimals and those of k's picture. An offset of 0 and
/// a side that the tolerance does not have leave it. With symmetric multipliers the upper one goes to the
/// lower side as well. Raises RuntimeFault.
void UpperMultiplierFromKFactor(Analysis& record);
void LowerMultiplierFromKFactor(Analysis& record);

/// True if k moves the side's test limit beyond the mode; `text` is what the message calls it. Only a lower
/// tolerance and a process sigma give a reason to look.
enum class KFactorMessage { Shown, Silent };
bool CheckKFactor(Session& session, double k, const SubjectSide& side, KFactorMessage message,
                  const std::string& text);

/// After uncertainty or tolerances have changed: a typed k gives the multiplier anew, or the largest that is
/// allowed if the user so decides; any other k follows from its multiplier.
void RevalidateKFactors(Session& session);

/// What the side's box shows. The largest k is rounded down, since more would be refused.
std::string kFactorText(const Session& session, const SubjectSide& side);
std::string multiplierText(const Session& session, const SubjectSide& side);

/// Decimals of a multiplier: as many as it needs and at least the given ones, eight at most.
std::string multiplierPicture(double multiplier, int atLeast);

} // namespace metrisk
