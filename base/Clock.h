// What time it is, for whoever writes dates.
#pragma once

#include <string>

namespace metrisk {

/// Local time.
struct Moment {
    int year = 2000;
    int month = 1; // 1 to 12
    int day = 1;
    double time = 0; // part of the day, from 0 to below 1
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual Moment now() const = 0;
};

/// The clock of the computer, in its time zone.
class SystemClock final : public Clock {
  public:
    Moment now() const override;
};

/// "November 21, 2026", the day in two digits: month names are English like every other text of the program.
std::string longDate(const Moment& moment);

} // namespace metrisk
