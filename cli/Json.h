// What the commands print as JSON: one object on one line.
#pragma once

#include "cli/ConsoleInteraction.h"
#include "model/Flag.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace metrisk::cli {

/// Keys keep the order in which they are added.
using Json = nlohmann::ordered_json;

/// An array of {"title", "text", "answer"}.
Json messagesJson(const std::vector<Told>& messages);

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

/// The object and a line end. Numbers bear the digits that tell them exactly; one that is not finite is
/// null, since JSON has no infinities. Bytes that are not UTF-8 are replaced, control characters escaped.
std::string jsonLine(const Json& object);

} // namespace metrisk::cli
