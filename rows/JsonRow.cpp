#include "rows/JsonRow.h"

#include "base/Text.h"

#include <charconv>
#include <cstdint>

namespace metrisk {

namespace {

constexpr int deepest = 64;

void appendUtf8(std::string& out, std::uint32_t code) {
    const auto byte = [&](std::uint32_t value) { out += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xc0 | code >> 6), byte(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        byte(0xe0 | code >> 12), byte(0x80 | (code >> 6 & 0x3f)), byte(0x80 | (code & 0x3f));
    } else {
        byte(0xf0 | code >> 18), byte(0x80 | (code >> 12 & 0x3f)), byte(0x80 | (code >> 6 & 0x3f)),
            byte(0x80 | (code & 0x3f));
    }
}

/// Raised where the text is no JSON.
struct NoJson {
    const char* why;
};

class Scanner {
  public:
    Scanner(std::string_view line, JsonRow& row) : line_(line), row_(row) {}

    void object() {
        row_.members.clear();
        row_.unescaped.clear();
        row_.unescaped.reserve(line_.size());
        blanks();
        take('{', "is no object");
        blanks();
        if (!next('}')) {
            do {
                blanks();
                JsonMember member{};
                member.key = text();
                blanks();
                take(':', "lacks a colon");
                blanks();
                value(member);
                row_.members.push_back(member);
                blanks();
            } while (next(','));
            take('}', "lacks a comma or a brace");
        }
        row_.upToBrace = line_.substr(0, at_ - 1);
        blanks();
        if (at_ != line_.size()) throw NoJson{"has text behind the object"};
    }

  private:
    bool end() const { return at_ == line_.size(); }
    void blanks() {
        while (!end() &&
               (line_[at_] == ' ' || line_[at_] == '\t' || line_[at_] == '\r' || line_[at_] == '\n'))
            ++at_;
    }
    bool next(char c) { return !end() && line_[at_] == c ? (++at_, true) : false; }
    void take(char c, const char* why) {
        if (!next(c)) throw NoJson{why};
    }

    void value(JsonMember& member) {
        if (end()) throw NoJson{"lacks a value"};
        const std::size_t from = at_;
        switch (line_[at_]) {
        case '"':
            member.kind = JsonMember::Kind::Text;
            member.value = text();
            return;
        case '{':
        case '[':
            member.kind = JsonMember::Kind::Nested;
            nested(0);
            break;
        case 't':
            member.kind = JsonMember::Kind::Flag;
            word("true");
            break;
        case 'f':
            member.kind = JsonMember::Kind::Flag;
            word("false");
            break;
        case 'n':
            member.kind = JsonMember::Kind::Null;
            word("null");
            break;
        default: member.kind = JsonMember::Kind::Number; number();
        }
        member.value = line_.substr(from, at_ - from);
    }

    void word(std::string_view all) {
        if (line_.substr(at_, all.size()) != all) throw NoJson{"has a value that is none"};
        at_ += all.size();
    }

    void digits() {
        const std::size_t from = at_;
        while (!end() && line_[at_] >= '0' && line_[at_] <= '9') ++at_;
        if (at_ == from) throw NoJson{"has a value that is none"};
    }
    void number() {
        next('-');
        if (next('0')) {
            if (!end() && line_[at_] >= '0' && line_[at_] <= '9')
                throw NoJson{"has a number that begins with 0"};
        } else {
            digits();
        }
        if (next('.')) digits();
        if (next('e') || next('E')) {
            if (!next('+')) next('-');
            digits();
        }
    }

    std::string_view text() {
        take('"', "has a key without quotes");
        const std::size_t from = at_;
        const std::size_t plain = line_.find_first_of("\"\\", from);
        if (plain == line_.npos) throw NoJson{"has a quote that is not closed"};
        if (line_[plain] == '"') {
            at_ = plain + 1;
            checkRaw(from);
            return line_.substr(from, plain - from);
        }
        const std::size_t start = row_.unescaped.size();
        while (!next('"')) {
            if (end()) throw NoJson{"has a quote that is not closed"};
            const char c = line_[at_++];
            if (c != '\\')
                row_.unescaped += c;
            else
                escape();
        }
        checkRaw(from);
        return checkedText(std::string_view(row_.unescaped).substr(start));
    }

    /// What is copied as it stands would be no JSON.
    void checkRaw(std::size_t from) const {
        for (std::size_t i = from; i < at_; ++i)
            if (static_cast<unsigned char>(line_[i]) < 0x20)
                throw NoJson{"has a text with a control character"};
    }

    static std::string_view checkedText(std::string_view text) {
        for (const char c : text)
            if (c == '\0') throw NoJson{"has a text with a zero byte"};
        return text;
    }

    void escape() {
        if (end()) throw NoJson{"has a quote that is not closed"};
        const char c = line_[at_++];
        switch (c) {
        case '"':
        case '\\':
        case '/': row_.unescaped += c; return;
        case 'b': row_.unescaped += '\b'; return;
        case 'f': row_.unescaped += '\f'; return;
        case 'n': row_.unescaped += '\n'; return;
        case 'r': row_.unescaped += '\r'; return;
        case 't': row_.unescaped += '\t'; return;
        case 'u': break;
        default: throw NoJson{"has an escape that is none"};
        }
        std::uint32_t code = hex();
        if (code >= 0xd800 && code < 0xdc00 && line_.substr(at_, 2) == "\\u") {
            at_ += 2;
            const std::uint32_t low = hex();
            if (low < 0xdc00 || low > 0xdfff) throw NoJson{"has an escape that is none"};
            code = 0x10000 + ((code - 0xd800) << 10) + (low - 0xdc00);
        }
        if (code >= 0xd800 && code < 0xe000) throw NoJson{"has an escape that is none"};
        appendUtf8(row_.unescaped, code);
    }

    std::uint32_t hex() {
        std::uint32_t code = 0;
        const char* from = line_.data() + at_;
        if (line_.size() - at_ < 4 || std::from_chars(from, from + 4, code, 16).ptr != from + 4)
            throw NoJson{"has an escape that is none"};
        at_ += 4;
        return code;
    }

    /// An object or an array, which is passed over.
    void nested(int depth) {
        if (depth == deepest) throw NoJson{"nests too deeply"};
        const bool isObject = line_[at_++] == '{';
        const char close = isObject ? '}' : ']';
        blanks();
        if (next(close)) return;
        do {
            blanks();
            if (isObject) {
                text();
                blanks();
                take(':', "lacks a colon");
                blanks();
            }
            JsonMember ignored{};
            if (!end() && (line_[at_] == '{' || line_[at_] == '['))
                nested(depth + 1);
            else
                value(ignored);
            blanks();
        } while (next(','));
        take(close, isObject ? "lacks a comma or a brace" : "lacks a comma or a bracket");
    }

    std::string_view line_;
    JsonRow& row_;
    std::size_t at_ = 0;
};

} // namespace

const char* readJsonRow(std::string_view line, JsonRow& into) {
    try {
        Scanner(line, into).object();
        return nullptr;
    } catch (const NoJson& fault) {
        into.members.clear();
        return fault.why;
    }
}

void appendJsonText(std::string& out, std::string_view text) {
    constexpr const char* digits = "0123456789abcdef";
    if (!isValidUtf8(text)) return appendJsonText(out, toUtf8(std::string(text)));
    out += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\', out += c;
        } else if (byte < 0x20) {
            out += "\\u00", out += digits[byte >> 4], out += digits[byte & 15];
        } else {
            out += c;
        }
    }
    out += '"';
}

} // namespace metrisk
