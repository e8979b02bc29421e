// Restating the default baseline when the false accept convention changes.
#pragma once

namespace metrisk {

struct BaselineDefaults;

/// Brings the default's false accept figure to the given convention (0 Consumer, 1 Producer), which
/// becomes the one it is kept under; nothing happens if it is kept so already or if no figure results.
void ConvertRiskConvention(BaselineDefaults& baseline, int falseAcceptOption);

} // namespace metrisk
