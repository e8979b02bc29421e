// Results as JSON: one object on one line.
#pragma once

#include "base/Flag.h"
#include "unattended/UnattendedInteraction.h"

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace metrisk {

/// A value; the keys of an object keep the order in which they are added.
class Json {
  public:
    struct Member;
    using Array = std::vector<Json>;
    using Object = std::vector<Member>;

    // Defined where a member is whole.
    Json(); // null
    template <std::integral Number>
    Json(Number number);
    Json(double number);
    Json(const char* text);
    Json(std::string_view text);
    Json(std::string text);
    template <class Held>
    Json(const std::optional<Held>& value);
    Json(std::initializer_list<Member> members);

    static Json array();
    static Json array(Array items);
    static Json object(Object members);

    /// Of an array.
    void push_back(Json item);
    /// Of an object; a key that is not there is added behind the others. Null becomes an object.
    Json& operator[](std::string_view key);

    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Object>;
    const Value& value() const { return value_; }
    Value& value() { return value_; }

  private:
    Value value_;
};

struct Json::Member {
    std::string key;
    Json value;
};

template <std::integral Number>
Json::Json(Number number) {
    if constexpr (std::is_same_v<Number, bool>)
        value_ = number;
    else
        value_ = static_cast<std::int64_t>(number);
}

template <class Held>
Json::Json(const std::optional<Held>& value) {
    if (value) *this = Json(*value);
}

/// The members of an object and those of another, which may be null, behind them; no key may stand in both.
Json joined(Json object, Json members);

/// An array of {"title", "text", "answer"}.
Json messagesJson(const std::vector<Told>& messages);

/// What every command tells: {"file", "status", "messages"}; without "file" if that is empty.
Json resultJson(const std::string& file, const char* status, const std::vector<Told>& messages);

/// A field of the record: flags are true or false, arrays nest.
template <class Value>
Json fieldJson(const Value& value) {
    if constexpr (std::is_same_v<Value, Flag>) {
        return static_cast<bool>(value);
    } else if constexpr (std::is_constructible_v<Json, Value>) {
        return value;
    } else {
        Json items = Json::array();
        for (const auto& item : value) items.push_back(fieldJson(item));
        return items;
    }
}

/// A value as it stands in a text; the keys of an object in their order. Raises std::runtime_error with what
/// is wrong, also for a key that stands twice.
Json readJson(std::string_view text);

/// The object and a line end. Numbers bear the digits that tell them exactly; one that is not finite is
/// null, since JSON has no infinities. Bytes that are not UTF-8 are replaced, control characters escaped.
std::string jsonLine(const Json& object);

} // namespace metrisk
