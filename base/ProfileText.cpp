#include "base/ProfileText.h"

#include "base/Text.h"

#include <algorithm>
#include <optional>

namespace metrisk {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct Line {
    std::size_t start = 0;
    std::size_t end = 0;  // before the line end
    std::size_t next = 0; // behind the line end
};

/// Walks over the lines of a text.
class Lines {
  public:
    explicit Lines(std::string_view text) : text_(text), at_(text.starts_with(byteOrderMark) ? 3 : 0) {}

    std::optional<Line> next() {
        if (at_ >= text_.size()) return std::nullopt;
        Line line;
        line.start = at_;
        const std::size_t feed = text_.find('\n', at_);
        line.next = feed == text_.npos ? text_.size() : feed + 1;
        line.end = feed == text_.npos ? text_.size() : feed;
        if (line.end > line.start && text_[line.end - 1] == '\r') --line.end;
        at_ = line.next;
        return line;
    }

  private:
    std::string_view text_;
    std::size_t at_;
};

std::optional<std::string_view> sectionName(std::string_view line) {
    line = withoutOuterBlanks(line);
    if (!line.starts_with('[')) return std::nullopt;
    const std::size_t close = line.find(']');
    if (close == line.npos) return std::nullopt;
    return withoutOuterBlanks(line.substr(1, close - 1));
}

/// Position of the "=" of a key line.
std::optional<std::size_t> equalsSign(std::string_view line) {
    if (withoutOuterBlanks(line).starts_with(';')) return std::nullopt;
    const std::size_t sign = line.find('=');
    if (sign == line.npos) return std::nullopt;
    return sign;
}

bool isQuoted(std::string_view value) {
    return value.size() > 1 && value.starts_with('"') && value.ends_with('"');
}

/// Quotes around a value are no part of it.
std::string_view withoutMarks(std::string_view value) {
    return isQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::string onOneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return line;
}

std::string_view lineEndOf(std::string_view text) {
    const std::size_t feed = text.find('\n');
    return feed == text.npos || (feed > 0 && text[feed - 1] == '\r') ? "\r\n" : "\n";
}

} // namespace

ProfileKey profileKey(std::string_view section, std::string_view key) {
    return {lowerCase(section), lowerCase(key)};
}

std::map<ProfileKey, std::string> readProfile(std::string_view text) {
    std::map<ProfileKey, std::string> values;
    std::string_view section;
    bool inSection = false;
    Lines lines(text);
    while (const auto line = lines.next()) {
        const std::string_view content = text.substr(line->start, line->end - line->start);
        if (const auto name = sectionName(content)) {
            section = *name;
            inSection = true;
        } else if (const auto sign = equalsSign(content); sign && inSection) {
            const std::string_view key = withoutOuterBlanks(content.substr(0, *sign));
            const std::string_view value = withoutMarks(withoutOuterBlanks(content.substr(*sign + 1)));
            values.try_emplace(profileKey(section, key), value);
        }
    }
    return values;
}

std::string withProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    const std::string_view lineEnd = lineEndOf(text);
    const std::string newValue =
        isQuoted(value) ? onOneLine("\"" + std::string(value) + "\"") : onOneLine(value);

    std::optional<std::size_t> insertAt; // behind the last filled line of the first such section
    bool inside = false, firstSection = false;
    Lines lines(text);
    while (const auto line = lines.next()) {
        const std::string_view content = text.substr(line->start, line->end - line->start);
        if (const auto name = sectionName(content)) {
            inside = equalCaseBlind(*name, section);
            firstSection = inside && !insertAt;
        } else if (const auto sign = equalsSign(content);
                   sign && inside && equalCaseBlind(withoutOuterBlanks(content.substr(0, *sign)), key)) {
            return std::string(text.substr(0, line->start + *sign + 1)) + newValue +
                   std::string(text.substr(line->end));
        }
        if (firstSection && !withoutOuterBlanks(content).empty()) insertAt = line->next;
    }

    const std::string newLine = onOneLine(key) + "=" + newValue + std::string(lineEnd);
    std::string changed(text.substr(0, insertAt.value_or(text.size())));
    const bool lineOpen = !changed.empty() && changed != byteOrderMark && !changed.ends_with('\n');
    if (lineOpen) changed += lineEnd;
    if (!insertAt) changed += "[" + onOneLine(section) + "]" + std::string(lineEnd);
    changed += newLine;
    if (insertAt) changed += text.substr(*insertAt);
    return changed;
}

} // namespace metrisk
