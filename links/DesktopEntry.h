// The desktop entry of a program: what starts it, and with which arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace metrisk {

/// A key file: groups in brackets, with "key=value" lines. Comments and lines of another form are left out.
class KeyFile {
  public:
    explicit KeyFile(std::string_view text);

    /// The value as it is written; none if there is no such key. The first of several counts.
    std::optional<std::string_view> find(std::string_view group, std::string_view key) const;

  private:
    struct Entry {
        std::string group, key, value;
    };
    std::vector<Entry> entries_;
};

/// Desktop Entry Specification 1.5, as far as starting a program goes.
struct DesktopEntry {
    std::string Name{};
    std::string Icon{};
    std::string Exec{};
    std::string TryExec{};
    std::string Path{}; // the folder in which it wants to run
    bool Terminal = false;
    bool Hidden = false;
};

/// None if the text is no entry of an application.
std::optional<DesktopEntry> readDesktopEntry(std::string_view text);

/// The words of an Exec line without their quotes. A field code stays as "%f", any other percent sign is
/// "%%". None if a quote is not closed, a percent sign stands alone, or there is no word.
std::optional<std::vector<std::string>> execWords(std::string_view exec);

/// The command line of the entry, the program first. The document, if there is one, stands where its field
/// code is, else behind the last argument. None if Exec is malformed or has an unknown code.
std::optional<std::vector<std::string>> expandExec(const DesktopEntry& entry, const std::string& entryPath,
                                                   const std::string& document);

/// Nothing but the program and field codes.
bool isPlainExec(const DesktopEntry& entry);

/// The path as a file: address.
std::string fileAddress(std::string_view path);

} // namespace metrisk
