// One JSON object on one line, keys in the order in which they are added.
#pragma once

#include "cli/ConsoleInteraction.h"
#include "model/Flag.h"

#include <string>
#include <string_view>
#include <vector>

namespace metrisk::cli {

/// Numbers bear 17 significant digits; one that is not finite is null, since JSON has no infinities.
/// Bytes that are not UTF-8 are replaced.
class JsonLine {
  public:
    void add(std::string_view key, std::string_view text);
    void add(std::string_view key, const std::string& text) { add(key, std::string_view(text)); }
    void add(std::string_view key, const char* text) { add(key, std::string_view(text)); }
    void add(std::string_view key, double number);
    void add(std::string_view key, int number);
    void add(std::string_view key, Flag flag);
    void add(std::string_view key, bool flag);
    void add(std::string_view key, const std::vector<Message>& messages);
    void addNull(std::string_view key);
    /// Nested arrays as given: any range of the above.
    template <class Range>
    requires requires(const Range& r) { r.begin(), r.end(); }
    void add(std::string_view key, const Range& range) { addRaw(key, arrayOf(range)); }

    /// The object with a line end.
    std::string text() const { return "{" + body_ + "}\n"; }

  private:
    static std::string valueOf(std::string_view text);
    static std::string valueOf(const std::string& text) { return valueOf(std::string_view(text)); }
    static std::string valueOf(double number);
    static std::string valueOf(int number);
    template <class Range>
    requires requires(const Range& r) { r.begin(), r.end(); }
    static std::string arrayOf(const Range& range) {
        std::string items;
        for (const auto& item : range) {
            if (!items.empty()) items += ",";
            if constexpr (requires { valueOf(item); })
                items += valueOf(item);
            else
                items += arrayOf(item);
        }
        return "[" + items + "]";
    }
    void addRaw(std::string_view key, const std::string& value);

    std::string body_;
};

} // namespace metrisk::cli
