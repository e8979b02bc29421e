#include "unattended/Json.h"

#include "unattended/Steering.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <nlohmann/json.hpp>

namespace metrisk {

namespace {

/// Printable ASCII, which no rule of terminals or of JSON concerns but for two characters.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

void appendText(std::string& line, const std::string& text) {
    if (isPlain(text) && text.find_first_of("\"\\") == text.npos)
        line.append(1, '"').append(text).append(1, '"');
    else
        line += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// The fewest digits that tell it, by the library's own printer.
void appendNumber(std::string& line, double number) {
    if (!std::isfinite(number)) {
        line += "null";
        return;
    }
    std::array<char, 64> digits;
    line.append(digits.data(),
                nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), number));
}

void append(std::string& text, const Json& json) {
    const char* separator = "";
    if (const auto* items = std::get_if<Json::Array>(&json.value())) {
        text += '[';
        for (const Json& item : *items) {
            text += std::exchange(separator, ",");
            append(text, item);
        }
        text += ']';
    } else if (const auto* members = std::get_if<Json::Object>(&json.value())) {
        text += '{';
        for (const auto& [key, value] : *members) {
            text += std::exchange(separator, ",");
            appendText(text, key);
            text += ':';
            append(text, value);
        }
        text += '}';
    } else if (const auto* word = std::get_if<std::string>(&json.value())) {
        appendText(text, *word);
    } else if (const auto* number = std::get_if<double>(&json.value())) {
        appendNumber(text, *number);
    } else if (const auto* whole = std::get_if<std::int64_t>(&json.value())) {
        text += std::to_string(*whole);
    } else if (const auto* flag = std::get_if<bool>(&json.value())) {
        text += *flag ? "true" : "false";
    } else {
        text += "null";
    }
}

} // namespace

Json::Json() = default;
Json::Json(double number) : value_(number) {}
Json::Json(const char* text) : value_(std::string(text)) {}
Json::Json(std::string_view text) : value_(std::string(text)) {}
Json::Json(std::string text) : value_(std::move(text)) {}
Json::Json(std::initializer_list<Member> members) : value_(Object(members)) {}

Json Json::array() {
    return array(Array());
}

Json Json::array(Array items) {
    Json json;
    json.value_ = std::move(items);
    return json;
}

Json Json::object(Object members) {
    Json json;
    json.value_ = std::move(members);
    return json;
}

void Json::push_back(Json item) {
    std::get<Array>(value_).push_back(std::move(item));
}

Json& Json::operator[](std::string_view key) {
    if (std::holds_alternative<std::monostate>(value_)) value_ = Object();
    Object& members = std::get<Object>(value_);
    const auto found = std::ranges::find(members, key, &Member::key);
    if (found != members.end()) return found->value;
    members.push_back({std::string(key), Json()});
    return members.back().value;
}

Json joined(Json object, Json members) {
    Json::Object& all = std::get<Json::Object>(object.value());
    if (auto* more = std::get_if<Json::Object>(&members.value()))
        std::ranges::move(*more, std::back_inserter(all));
    return object;
}

Json messagesJson(const std::vector<Told>& messages) {
    Json items = Json::array();
    for (const Told& message : messages)
        items.push_back({{"title", message.title}, {"text", message.text}, {"answer", message.answer}});
    return items;
}

Json resultJson(const std::string& file, const char* status, const std::vector<Told>& messages) {
    Json result;
    if (!file.empty()) result["file"] = file;
    result["status"] = status;
    result["messages"] = messagesJson(messages);
    return result;
}

std::string jsonLine(const Json& object) {
    std::string text;
    text.reserve(4096); // of most results
    append(text, object);
    if (isPlain(text)) return text += '\n';
    // What JSON lets through and terminals obey.
    return withoutSteering(text, unicodeEscape) + "\n";
}

} // namespace metrisk
