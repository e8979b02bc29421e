// Settings that outlive a session, read key by key at need and written at once.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// Longest text kept of a value; paths are read whole.
inline constexpr int wholeValue = 1 << 20;

/// Neither operation reports an error: a missing key or an unreadable file yields the default, a
/// file that cannot be written leaves the new value in force for this object's life.
class Settings {
  public:
    virtual ~Settings() = default;

    /// The value of the key, cut to `length` characters; sections and keys are case-blind.
    virtual std::string ReadSetting(std::string_view section, std::string_view key,
                                    std::string_view defaultText, int length) const = 0;
    virtual void WriteSetting(std::string_view section, std::string_view key, std::string_view value) = 0;
};

} // namespace metrisk
