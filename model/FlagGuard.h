// A flag that is up for the life of the object.
#pragma once

namespace metrisk {

/// `FlagType` is bool or Flag. Nested guards of one flag leave it up until the outermost ends.
template <class FlagType>
class FlagGuard {
  public:
    explicit FlagGuard(FlagType& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = before_; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

  private:
    FlagType& flag_;
    FlagType before_;
};

} // namespace metrisk
