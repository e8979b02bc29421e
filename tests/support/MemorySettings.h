// Settings that live in memory, for tests.
#pragma once

#include "model/Settings.h"

#include <map>
#include <utility>

namespace metrisk::testing {

class MemorySettings final : public Settings {
  public:
    std::map<std::pair<std::string, std::string>, std::string> values;

    std::string ReadSetting(std::string_view section, std::string_view key, std::string_view defaultText,
                            int length) const override {
        const auto found = values.find({std::string(section), std::string(key)});
        std::string text = found == values.end() ? std::string(defaultText) : found->second;
        return text.substr(0, static_cast<std::size_t>(length));
    }
    void WriteSetting(std::string_view section, std::string_view key, std::string_view value) override {
        values[{std::string(section), std::string(key)}] = std::string(value);
    }
};

} // namespace metrisk::testing
