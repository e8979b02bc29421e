// How the pictures of offsets follow what is entered.
#pragma once

namespace metrisk {

struct Analysis;
struct Session;

/// Picture of a percent box after a commit.
inline constexpr const char* pctEntryPicture = "#0.0000";

/// After the mode has changed: the factors of relative units and both decimal shifts.
void followModeInUnits(Session& session);

/// Each offset picture changes by so many decimals, but none below what its value needs.
void moveOffsetPictures(Analysis& record, int decimals);

} // namespace metrisk
