// What the rules need of whoever sits before the program: talk, screens and devices.
#pragma once

#include "desk/kit/Devices.h"
#include "desk/kit/Screens.h"
#include "desk/kit/Talk.h"

namespace metrisk {

class Interaction : public Talk, public Screens, public Devices {};

} // namespace metrisk
