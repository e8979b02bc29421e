// The user's list of other programs, and the file that keeps it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct Application {
    std::string name;
    std::string path;      // of a program or a desktop entry; may be empty
    std::string extension; // of its files, without the point; may be empty

    friend bool operator==(const Application&, const Application&) = default;
};

/// With a blank in place of each tab and line end, which the list cannot hold.
std::string oneLine(std::string text);

using AppsList = std::vector<Application>;

/// UTF-8, a program a line, its three texts parted by tabs. None if the text is no such list: other columns,
/// a program without a name, two of one name.
std::optional<AppsList> readAppsText(std::string_view text);
/// The texts must be of one line.
std::string writeAppsText(const AppsList& list);

/// The file of the list. One that is malformed is deleted; one that cannot be read for another reason stays
/// as it is, and the list then lives for the session only.
class AppsFile {
  public:
    explicit AppsFile(std::filesystem::path path) : path_(std::move(path)) {}

    /// Empty where there is no list.
    AppsList load();
    /// Writes a list that differs from what the file holds. False if it cannot be written.
    bool save(const AppsList& list) const;

  private:
    std::filesystem::path path_;
    std::string held_;
    bool mayWrite_ = true;
};

} // namespace metrisk
