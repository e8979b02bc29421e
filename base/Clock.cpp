#include "base/Clock.h"

#include <ctime>

namespace metrisk {

Moment SystemClock::now() const {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    constexpr double secondsADay = 24.0 * 60 * 60;
    const int second = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, second / secondsADay};
}

std::string longDate(const Moment& moment) {
    constexpr const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                      "July",    "August",   "September", "October", "November", "December"};
    return std::string(months[moment.month - 1]) + (moment.day < 10 ? " 0" : " ") +
           std::to_string(moment.day) + ", " + std::to_string(moment.year);
}

} // namespace metrisk
