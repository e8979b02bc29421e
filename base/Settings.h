// Settings that outlive a session, read key by key at need and written at once.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace metrisk {

/// Longest text kept of a value; paths are read whole.
inline constexpr int wholeValue = 1 << 20;

/// A place in the settings: the text where nothing is stored, and how many characters of it count.
struct TextSetting {
    std::string_view section;
    std::string_view key;
    std::string_view otherwise{};
    int length = wholeValue;
};

/// A text on its way into the settings.
struct SettingValue {
    std::string section;
    std::string key;
    std::string text;
};

/// Neither operation reports an error: a missing key or an unreadable file yields the default, a
/// file that cannot be written leaves the new value in force for this object's life.
class Settings {
  public:
    virtual ~Settings() = default;

    /// The value of the key, cut to `length` characters; sections and keys are case-blind.
    virtual std::string ReadSetting(std::string_view section, std::string_view key,
                                    std::string_view defaultText, int length) const = 0;
    /// All at once: a crash leaves either every value or none.
    virtual void write(std::span<const SettingValue> values) = 0;

    std::string read(const TextSetting& setting) const {
        return ReadSetting(setting.section, setting.key, setting.otherwise, setting.length);
    }
    void write(const TextSetting& setting, std::string_view text) {
        WriteSetting(setting.section, setting.key, text);
    }
    void WriteSetting(std::string_view section, std::string_view key, std::string_view text) {
        const SettingValue value{std::string(section), std::string(key), std::string(text)};
        write({&value, 1});
    }
};

} // namespace metrisk
