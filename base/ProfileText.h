// Private profile text: "[Section]" lines with "key=value" lines below them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace metrisk {

/// Section and key, both in lower case.
using ProfileKey = std::pair<std::string, std::string>;

ProfileKey profileKey(std::string_view section, std::string_view key);

/// All values of the text, blanks and then double quotes around them dropped; the first of several equal keys
/// counts. Lines that are neither a section nor a key are passed over, whatever bytes they hold.
std::map<ProfileKey, std::string> readProfile(std::string_view text);

/// The text with one value changed or added; every other byte stays. A new key follows the last
/// filled line of its section, a new section the end of the text. Line ends in the value become blanks.
std::string withProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

} // namespace metrisk
