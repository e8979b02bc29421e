#include "persistence/SummaryText.h"

namespace metrisk {

namespace {

constexpr const char* lineEnd = "\r\n";

} // namespace

/// Without tabs and line ends, which would part it; quoted where a comma would.
std::string SummaryText::cell(std::string_view content) const {
    std::string plain;
    bool quoted = false;
    for (const char c : content) {
        plain += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
        if (separator_ != ',') continue;
        quoted |= c == ',' || c == '"' || c == '\r' || c == '\n';
        if (c == '"') plain += c;
    }
    return quoted ? '"' + plain + '"' : plain;
}

void SummaryText::heading(std::string_view text) {
    text_ += lineEnd;
    row({text});
}

void SummaryText::row(std::initializer_list<std::string_view> cells) {
    bool first = true;
    for (const std::string_view content : cells) {
        if (!first) text_ += separator_;
        first = false;
        text_ += cell(content);
    }
    text_ += lineEnd;
}

} // namespace metrisk
