// The help pages as a whole: every link and picture is there, and every page can be reached.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>

namespace metrisk::testing {
namespace {

namespace fs = std::filesystem;

const fs::path folder = METRISK_SOURCE_DIR "/help";

std::string contentOf(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What stands in quotes behind each `mark`.
std::set<std::string> quoted(const std::string& html, const std::string& mark) {
    std::set<std::string> found;
    for (std::size_t at = html.find(mark); at != html.npos; at = html.find(mark, at + 1)) {
        const std::size_t begin = at + mark.size();
        found.insert(html.substr(begin, html.find('"', begin) - begin));
    }
    return found;
}

TEST(HelpPages, LinksLeadToPagesAndEveryPageIsReached) {
    std::set<std::string> pages, reached{"contents.html"};
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".html") pages.insert(entry.path().filename().string());
    for (const std::string& page : pages) {
        const std::string html = contentOf(folder / page);
        EXPECT_NE(html.find("<title>"), std::string::npos) << page;
        for (const std::string& picture : quoted(html, "src=\""))
            EXPECT_TRUE(fs::exists(folder / picture)) << page << " shows " << picture;
        for (const std::string& link : quoted(html, "href=\"")) {
            const std::string target = link.substr(0, link.find('#'));
            EXPECT_TRUE(pages.contains(target)) << page << " links to " << link;
            if (page == "contents.html") reached.insert(target);
        }
    }
    EXPECT_EQ(reached, pages) << "the contents name every page";
}

} // namespace
} // namespace metrisk::testing
