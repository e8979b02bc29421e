// Texts kept beside the tests, compared whole.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace metrisk::testing {

/// `path` counts from the folder tests. METRISK_GOLDEN=write makes the recordings anew, to be looked at
/// before they are kept.
inline void compareWithRecording(const std::string& path, const std::string& got) {
    const std::string whole = METRISK_SOURCE_DIR "/tests/" + path;
    if (std::getenv("METRISK_GOLDEN")) std::ofstream(whole, std::ios::binary) << got;
    std::ifstream file(whole, std::ios::binary);
    const std::string kept{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(got, kept) << path;
}

} // namespace metrisk::testing
