// Cells as they are copied and pasted between programs.
#include "base/CellBlock.h"

#include <gtest/gtest.h>

#include <random>

namespace metrisk {
namespace {

TEST(CellBlock, ReadsCellsAsSpreadsheetsWriteThem) {
    const struct {
        const char* text;
        CellBlock cells;
    } cases[] = {
        {"", {}},
        {"1\t2\r\n3\r\n", {{"1", "2"}, {"3"}}},
        {"1\r\r2\t", {{"1"}, {""}, {"2", ""}}},
        {"\"1,5\"\t\"\"\n", {{"1,5", ""}}},
        {"\"two\r\nlines\"\t\"a\tb\"\r\n\"say \"\"so\"\"\"\n", {{"two\r\nlines", "a\tb"}, {"say \"so\""}}},
        {"5\"\t6\"\n", {{"5\"", "6\""}}},
        {"\"a\" b\tc\n\"open\td\ne", {{"\"a\" b", "c"}, {"\"open", "d"}, {"e"}}},
    };
    for (const auto& each : cases) EXPECT_EQ(readCells(each.text), each.cells) << each.text;
}

TEST(CellBlock, ReadsWhatItWrites) {
    std::mt19937 random(3);
    for (int run = 0; run < 2000; ++run) {
        CellBlock cells(1 + random() % 3);
        for (auto& line : cells) {
            line.resize(1 + random() % 3);
            for (std::string& cell : line)
                for (auto left = random() % 5; left > 0; --left) cell += "a\"\t\r\n "[random() % 6];
        }
        EXPECT_EQ(readCells(writeCells(cells)), cells) << writeCells(cells);
    }
}

} // namespace
} // namespace metrisk
