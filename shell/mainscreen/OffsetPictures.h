// How the pictures of offsets follow what is entered.
#pragma once

namespace metrisk {

struct Analysis;
struct Session;

/// Picture of a percent box after a commit.
inline constexpr const char* pctEntryPicture = "#0.0000";

/// After the mode has changed from `before`: tolerances that are parts of the reading, nominal units. Limits are
/// not formed. Raises RuntimeFault.
void followModeInTolerances(Analysis& record, double before);

/// After that: the factors of relative units and both decimal shifts.
void followModeInUnits(Session& session);

/// Each offset picture changes by so many decimals, but none below what its value needs.
void moveOffsetPictures(Analysis& record, int decimals);

} // namespace metrisk
