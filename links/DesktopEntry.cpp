#include "links/DesktopEntry.h"

#include "base/Text.h"

#include <algorithm>

namespace metrisk {
namespace {

constexpr std::string_view entryGroup = "Desktop Entry";

/// Values hold blanks and line ends as escapes; a backslash before anything else stays.
std::string unescaped(std::string_view value) {
    constexpr std::string_view codes = "sntr\\", characters = " \n\t\r\\";
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        const std::size_t code =
            value[at] == '\\' && at + 1 < value.size() ? codes.find(value[at + 1]) : codes.npos;
        text += code == codes.npos ? value[at] : characters[code];
        if (code != codes.npos) ++at;
    }
    return text;
}

bool isFileCode(char code) {
    return code == 'f' || code == 'F' || code == 'u' || code == 'U';
}

/// Codes of former times, which stand for nothing.
bool isDeadCode(char code) {
    return std::string_view("dDnNvm").find(code) != std::string_view::npos;
}

bool isFieldCode(const std::string& word) {
    return word.size() == 2 && word[0] == '%' && word[1] != '%';
}

} // namespace

KeyFile::KeyFile(std::string_view text) {
    std::string_view group;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = text.substr(at, end - at);
        at = end + 1;
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = withoutOuterBlanks(line);
        if (line.empty() || line[0] == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            group = line.substr(1, line.size() - 2);
        } else if (const std::size_t sign = line.find('='); sign != line.npos) {
            entries_.push_back({std::string(group), std::string(withoutOuterBlanks(line.substr(0, sign))),
                                std::string(withoutOuterBlanks(line.substr(sign + 1)))});
        }
    }
}

std::optional<std::string_view> KeyFile::find(std::string_view group, std::string_view key) const {
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry& entry) { return entry.group == group && entry.key == key; });
    if (found == entries_.end()) return std::nullopt;
    return found->value;
}

std::optional<DesktopEntry> readDesktopEntry(std::string_view text) {
    const KeyFile file(text);
    const auto textOf = [&file](std::string_view key) {
        return unescaped(file.find(entryGroup, key).value_or(""));
    };
    if (textOf("Type") != "Application" || textOf("Exec").empty()) return std::nullopt;
    return DesktopEntry{.Name = textOf("Name"),
                        .Icon = textOf("Icon"),
                        .Exec = textOf("Exec"),
                        .TryExec = textOf("TryExec"),
                        .Path = textOf("Path"),
                        .Terminal = textOf("Terminal") == "true",
                        .Hidden = textOf("Hidden") == "true"};
}

std::optional<std::vector<std::string>> execWords(std::string_view exec) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    char quote = 0;
    const auto endWord = [&] {
        if (inWord) words.push_back(std::move(word));
        word.clear();
        inWord = false;
    };
    for (std::size_t at = 0; at < exec.size(); ++at) {
        char c = exec[at];
        if (!quote && (c == ' ' || c == '\t' || c == '\n')) {
            endWord();
            continue;
        }
        inWord = true;
        if (c == quote) {
            quote = 0;
            continue;
        }
        if (!quote && (c == '"' || c == '\'')) {
            quote = c;
            continue;
        }
        if (!quote && c == '%') {
            if (++at == exec.size()) return std::nullopt;
            word += '%';
            word += exec[at];
            continue;
        }
        // Between double quotes a backslash speaks for a few characters only.
        const bool escapes =
            c == '\\' && quote != '\'' && at + 1 < exec.size() &&
            (!quote || std::string_view("\"`$\\").find(exec[at + 1]) != std::string_view::npos);
        if (escapes) c = exec[++at];
        word += c;
        if (c == '%') word += '%';
    }
    if (quote) return std::nullopt;
    endWord();
    if (words.empty()) return std::nullopt;
    return words;
}

std::optional<std::vector<std::string>> expandExec(const DesktopEntry& entry, const std::string& entryPath,
                                                   const std::string& document) {
    const auto words = execWords(entry.Exec);
    if (!words) return std::nullopt;
    std::vector<std::string> arguments;
    bool taken = document.empty();
    for (const std::string& word : *words) {
        if (word == "%i") {
            if (!entry.Icon.empty()) arguments.insert(arguments.end(), {"--icon", entry.Icon});
            continue;
        }
        std::string argument;
        for (std::size_t at = 0; at < word.size(); ++at) {
            if (word[at] != '%') {
                argument += word[at];
                continue;
            }
            const char code = word[++at];
            if (isFileCode(code)) {
                const bool address = code == 'u' || code == 'U';
                if (!document.empty()) argument += address ? fileAddress(document) : document;
                taken = true;
            } else if (code == '%') {
                argument += '%';
            } else if (code == 'c') {
                argument += entry.Name;
            } else if (code == 'k') {
                argument += entryPath;
            } else if (!isDeadCode(code)) {
                return std::nullopt;
            }
        }
        if (isFieldCode(word) && argument.empty()) continue;
        arguments.push_back(std::move(argument));
    }
    if (arguments.empty()) return std::nullopt;
    if (!taken) arguments.push_back(document);
    return arguments;
}

bool isPlainExec(const DesktopEntry& entry) {
    const auto words = execWords(entry.Exec);
    return words && std::all_of(words->begin() + 1, words->end(), isFieldCode);
}

std::string fileAddress(std::string_view path) {
    constexpr std::string_view unreserved =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr char digits[] = "0123456789ABCDEF";
    std::string address = "file://";
    for (const char c : path) {
        if (unreserved.find(c) != unreserved.npos) {
            address += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        address += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
    return address;
}

} // namespace metrisk
