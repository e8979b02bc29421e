// Small text helpers: case-blind comparison, blanks, and UTF-8 counted in characters.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// Equal but for the case of the letters A to Z.
bool equalCaseBlind(std::string_view a, std::string_view b);

/// Without blanks and tabs at either end.
std::string_view withoutOuterBlanks(std::string_view text);

/// The first `count` characters of a UTF-8 text; bytes that are no UTF-8 count one each.
std::string_view firstCharacters(std::string_view text, std::size_t count);
std::size_t countCharacters(std::string_view text);

/// Without the mark that some programs put before UTF-8.
std::string_view withoutByteOrderMark(std::string_view text);
/// With a double prime (U+2033) in place of each double quote, which no text of an analysis file can hold.
std::string withoutQuotes(std::string text);

bool isValidUtf8(std::string_view text);

/// As UTF-8 that any library takes: Unicode's noncharacters (U+FFFE and their like) become U+FFFD.
std::string drawableText(std::string_view text);

/// The text as UTF-8: unchanged if it is that already, else taken as Windows-1252.
std::string toUtf8(std::string text);

} // namespace metrisk
