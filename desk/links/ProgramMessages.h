// What is told of other programs by several routines.
#pragma once

#include "desk/kit/Message.h"

namespace metrisk {

inline constexpr Message notExecutable{"The application is not executable.", "Improper Application",
                                       BoxIcon::Critical};

} // namespace metrisk
