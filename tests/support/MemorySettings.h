// Settings that live in memory, for tests; the same contract as those on the disk.
#pragma once

#include "base/ProfileText.h"
#include "base/Settings.h"
#include "base/Text.h"

#include <map>

namespace metrisk::testing {

class MemorySettings final : public Settings {
  public:
    int writes = 0;

    std::string ReadSetting(std::string_view section, std::string_view key, std::string_view defaultText,
                            int length) const override {
        const auto found = values_.find(profileKey(section, key));
        const std::string_view text = found == values_.end() ? defaultText : found->second;
        return std::string(firstCharacters(text, static_cast<std::size_t>(length)));
    }
    using Settings::write;
    void write(std::span<const SettingValue> values) override {
        ++writes;
        for (const SettingValue& v : values) values_[profileKey(v.section, v.key)] = v.text;
    }

    bool empty() const { return values_.empty(); }

  private:
    std::map<ProfileKey, std::string> values_;
};

} // namespace metrisk::testing
