#include "cli/JsonLine.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

namespace metrisk::cli {

std::string JsonLine::valueOf(std::string_view text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonLine::valueOf(double number) {
    if (!std::isfinite(number)) return "null";
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 17);
    return {digits, end.ptr};
}

std::string JsonLine::valueOf(int number) {
    return std::to_string(number);
}

void JsonLine::addRaw(std::string_view key, const std::string& value) {
    if (!body_.empty()) body_ += ",";
    body_ += valueOf(key) + ":" + value;
}

void JsonLine::add(std::string_view key, std::string_view text) {
    addRaw(key, valueOf(text));
}
void JsonLine::add(std::string_view key, double number) {
    addRaw(key, valueOf(number));
}
void JsonLine::add(std::string_view key, int number) {
    addRaw(key, valueOf(number));
}
void JsonLine::add(std::string_view key, Flag flag) {
    add(key, static_cast<bool>(flag));
}
void JsonLine::add(std::string_view key, bool flag) {
    addRaw(key, flag ? "true" : "false");
}
void JsonLine::addNull(std::string_view key) {
    addRaw(key, "null");
}

void JsonLine::add(std::string_view key, const std::vector<Message>& messages) {
    std::string items;
    for (const Message& message : messages) {
        JsonLine item;
        item.add("title", message.title);
        item.add("text", message.text);
        item.add("answer", message.answer);
        if (!items.empty()) items += ",";
        items += "{" + item.body_ + "}";
    }
    addRaw(key, "[" + items + "]");
}

} // namespace metrisk::cli
