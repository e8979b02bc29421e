// One line of JSON: an object whose members are read as texts, without another type in between.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct JsonMember {
    enum class Kind { Null, Flag, Number, Text, Nested } kind;
    std::string_view key;
    std::string_view value; // a text without its escapes, all else as it stands
};

/// Kept for the next line, so that nothing is allocated.
struct JsonRow {
    std::vector<JsonMember> members;
    std::string_view upToBrace; // the line up to its closing brace, without it
    std::string unescaped;
};

/// Null, or what is wrong with the line.
const char* readJsonRow(std::string_view line, JsonRow& into);

/// The text in quotes, with escapes where they are needed; what is no UTF-8 is taken as
/// Windows-1252.
void appendJsonText(std::string& out, std::string_view text);

} // namespace metrisk
