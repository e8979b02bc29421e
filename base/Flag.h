// A two-state flag stored the way analysis files store it: -1 for true, 0 for false.
#pragma once

#include <cstdint>

namespace metrisk {

/// Converts from and to bool; no other value than -1 and 0 can be held.
class Flag {
  public:
    constexpr Flag(bool on = false) : value_(on ? -1 : 0) {}

    constexpr operator bool() const { return value_ != 0; }

    /// -1 or 0, as written to files.
    constexpr std::int16_t stored() const { return value_; }

    /// Any non-zero number read from a file counts as true.
    static constexpr Flag fromStored(long value) { return Flag(value != 0); }

    friend constexpr bool operator==(Flag a, Flag b) { return a.value_ == b.value_; }
    friend constexpr bool operator==(Flag a, bool b) { return static_cast<bool>(a) == b; }

  private:
    std::int16_t value_;
};

} // namespace metrisk
