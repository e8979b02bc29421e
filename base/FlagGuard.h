// Sets a flag for the life of an object.
#pragma once

#include "base/Flag.h"

namespace metrisk {

/// Cleared at the end, whatever it was before.
class FlagGuard {
  public:
    explicit FlagGuard(Flag& flag) : flag_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

  private:
    Flag& flag_;
};

} // namespace metrisk
