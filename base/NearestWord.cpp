#include "base/NearestWord.h"

#include <algorithm>

namespace metrisk {

namespace {

std::size_t slipsBetween(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> slips(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i)
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                slips[i][j] = i + j;
                continue;
            }
            const bool same = a[i - 1] == b[j - 1];
            slips[i][j] =
                std::min({slips[i - 1][j] + 1, slips[i][j - 1] + 1, slips[i - 1][j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                slips[i][j] = std::min(slips[i][j], slips[i - 2][j - 2] + 1);
        }
    return slips[a.size()][b.size()];
}

} // namespace

std::string nearestWord(std::string_view typed, const std::vector<std::string>& words) {
    constexpr std::size_t longest = 64; // the cost is a product of lengths
    if (typed.size() > longest) return {};
    std::string nearest;
    std::size_t fewest = typed.size() / 3 + 1;
    for (const std::string& word : words)
        if (const std::size_t slips = slipsBetween(typed, word); slips < fewest) {
            fewest = slips;
            nearest = word;
        }
    return nearest;
}

} // namespace metrisk
