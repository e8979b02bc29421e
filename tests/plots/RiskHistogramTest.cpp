// Bars of risks, and which part of them is beyond the limit.
#include "plots/RiskHistogram.h"
#include "drawing/Drawing.h"

#include <gtest/gtest.h>
#include <set>

namespace metrisk {
namespace {

TEST(RiskHistogram, ColoursRowsByTheirRisksNotByTheirBars) {
    struct Row {
        const char* name;
        std::vector<double> risks;
        double limit;
        std::size_t boxes, colours;
        const char* greatest;
    };
    const Row rows[] = {
        {"just below the limit", {0.001, 0.0199999960}, 0.02, 2, 1, "greatest bar: 1 row"},
        {"at the limit", {0.001, 0.02, 0.02}, 0.02, 2, 1, "greatest bar: 2 rows"},
        {"on both sides of it in a bar", {0.01999999, 0.02000001}, 0.02, 2, 2, "greatest bar: 2 rows"},
        {"far beyond a small one", {0.0001, 0.3}, 0.0002, 2, 2, "greatest bar: 1 row"},
        {"without a limit", {0.0001, 0.3}, 0, 2, 1, "greatest bar: 1 row"},
    };
    for (const Row& row : rows) {
        Drawing drawing;
        drawRiskHistogram(drawing, {row.risks, row.limit}, {});
        std::set<std::uint8_t> colours; // by their red
        std::size_t boxes = 0;
        std::string texts;
        for (const DrawingOp& operation : drawing.operations()) {
            if (const auto* box = std::get_if<BoxOp>(&operation)) {
                ++boxes;
                colours.insert(box->colour.red);
            } else if (const auto* text = std::get_if<TextOp>(&operation)) {
                texts += text->text + "\n";
            }
        }
        EXPECT_EQ(boxes, row.boxes) << row.name;
        EXPECT_EQ(colours.size(), row.colours) << row.name;
        EXPECT_NE(texts.find(std::string(row.greatest) + "\n"), std::string::npos) << texts;
    }
}

} // namespace
} // namespace metrisk
