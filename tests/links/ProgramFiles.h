// Programs and desktop entries in a folder of a test's own.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <string>

namespace metrisk::testing {

struct ProgramFiles {
    TemporaryFolder folder;

    std::string write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((folder / name).parent_path());
        return folder.write(name, text);
    }
    std::string program(const std::string& name) const {
        const std::string path = write(name, "");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    std::string entry(const std::string& name, const std::string& exec, const std::string& more = "") const {
        return write(name, "[Desktop Entry]\nType=Application\nExec=" + exec + "\n" + more + "\n");
    }
};

/// The search path for the life of the object.
class SearchPath {
  public:
    explicit SearchPath(const std::string& path) : before_(std::getenv("PATH")) {
        ::setenv("PATH", path.c_str(), 1);
    }
    ~SearchPath() { ::setenv("PATH", before_.c_str(), 1); }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;

  private:
    std::string before_;
};

} // namespace metrisk::testing
