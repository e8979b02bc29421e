#include "rows/CsvRecord.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* quoteInside = "a quote inside a cell without quotes";
constexpr const char* textBehind = "text behind a closing quote";
constexpr const char* openQuote = "a quote that is not closed";
constexpr const char* zeroByte = "a zero byte";
constexpr const char* tooLong = "longer than 1 MiB";
constexpr const char* tooMany = "more than 4,096 cells";

std::string_view withoutLineEnd(std::string_view record) {
    if (!record.empty() && record.back() == '\n') record.remove_suffix(1);
    if (!record.empty() && record.back() == '\r') record.remove_suffix(1);
    return record;
}

/// Whether a line end of those in quotes is the end of the record, or where it goes on.
enum class At { CellStart, Bare, Quoted, QuoteSeen, Flawed };

} // namespace

std::size_t recordSize(std::string_view data, const CsvForm& form, bool atEnd) {
    const std::size_t line = data.find('\n');
    const bool whole = line != data.npos;
    const std::size_t first = whole ? line + 1 : data.size();
    if (!whole && !atEnd && data.size() <= longestRow) return 0;
    if (form.lines || data.substr(0, first).find('"') == data.npos) return first;
    At at = At::CellStart;
    const std::size_t reach = std::min(data.size(), longestRow + 1);
    for (std::size_t i = 0; i < reach; ++i) {
        const char c = data[i];
        if (at == At::Quoted) {
            if (c == '"') at = At::QuoteSeen;
        } else if (c == '\n') {
            return i + 1;
        } else if (at == At::Flawed) {
            continue;
        } else if (c == form.delimiter) {
            at = At::CellStart;
        } else if (c == '"') {
            at = at == At::CellStart || at == At::QuoteSeen ? At::Quoted : At::Flawed;
        } else if (at == At::CellStart) {
            at = At::Bare;
        } else if (at == At::QuoteSeen && c != '\r') {
            at = At::Flawed;
        }
    }
    if (data.size() <= longestRow && !atEnd) return 0;
    return at == At::Quoted ? first : std::min(reach, data.size());
}

void readRecord(std::string_view record, const CsvForm& form, CsvRecord& into) {
    into.cells.clear();
    into.flaw = nullptr;
    const std::string_view raw = into.raw = withoutLineEnd(record);
    if (raw.size() > longestRow) {
        into.flaw = tooLong;
        return;
    }
    if (raw.find('\0') != raw.npos) into.flaw = zeroByte;
    into.unquoted.clear();
    into.unquoted.reserve(raw.size());
    for (std::size_t from = 0;;) {
        if (into.cells.size() == mostCells) {
            into.flaw = tooMany;
            return;
        }
        std::size_t end;
        std::string_view text;
        if (from < raw.size() && raw[from] == '"') {
            const std::size_t start = into.unquoted.size();
            for (end = from + 1;; ++end) {
                const std::size_t quote = raw.find('"', end);
                if (quote == raw.npos) {
                    into.flaw = openQuote;
                    return;
                }
                into.unquoted += raw.substr(end, quote - end);
                end = quote + 1;
                if (end == raw.size() || raw[end] != '"') break;
                into.unquoted += '"';
            }
            text = std::string_view(into.unquoted).substr(start);
            if (end < raw.size() && raw[end] != form.delimiter) {
                into.flaw = textBehind;
                return;
            }
        } else {
            end = std::min(raw.find(form.delimiter, from), raw.size());
            text = raw.substr(from, end - from);
            if (text.find('"') != text.npos) {
                into.flaw = quoteInside;
                return;
            }
        }
        const std::string_view cell = raw.substr(from, end - from);
        if (into.flaw && cell.find('\0') != cell.npos) return;
        into.cells.push_back({cell, text});
        if (end == raw.size()) return;
        from = end + 1;
    }
}

char delimiterOf(std::string_view header) {
    bool quoted = false, semicolon = false;
    for (const char c : header) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == '\t') return '\t';
        semicolon |= c == ';';
    }
    return semicolon ? ';' : ',';
}

void appendCell(std::string& out, std::string_view text, char delimiter) {
    const char special[] = {delimiter, '"', '\n', '\r', '\0'};
    if (text.find_first_of(special) == text.npos) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

} // namespace metrisk
