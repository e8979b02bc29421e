// The self-check: nothing parts from what is published, and a broken figure is seen.
#include "base/Digest.h"
#include "drawing/Drawing.h"
#include "selfcheck/CheckPage.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

TEST(SelfCheck, EveryPublishedFigureIsMet) {
    const auto figures = selfCheck(publishedFigures());
    EXPECT_GT(figures.size(), 150u);
    for (const CheckedFigure& each : figures) {
        EXPECT_NE(each.verdict, CheckVerdict::Diff)
            << each.name << " " << each.figure << " printed " << each.printed << " computed "
            << each.computed.value_or(-1);
        EXPECT_FALSE(each.title.empty()) << each.name;
    }
    EXPECT_TRUE(allPassed(figures));
}

TEST(SelfCheck, ABrokenFigureTurnsItRed) {
    const std::string good =
        "risk\tcase\tFR\t0.015\t0.0005\tside=two pct=95.4499736103642 u=0.125 lower=1.0 upper=1.0 "
        "lowerMult=1.0 upperMult=1.0\tsource\tcase in words\n";
    ASSERT_EQ(selfCheck(good).at(0).verdict, CheckVerdict::Pass);
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string changed = good;
        changed.replace(changed.find(from), from.size(), to);
        return selfCheck(changed).at(0).verdict;
    };
    EXPECT_EQ(with("0.015", "0.016"), CheckVerdict::Diff);
    EXPECT_EQ(with("0.015", "0.0151\t"), CheckVerdict::Diff) << "a line of another form";
    EXPECT_EQ(with("0.015", "0.0152"), CheckVerdict::Note);
    EXPECT_EQ(with("u=0.125", "u=0.13"), CheckVerdict::Diff);
    EXPECT_EQ(with("FR", "XX"), CheckVerdict::Diff) << "a figure that the program does not know";
    EXPECT_EQ(with("u=0.125 ", ""), CheckVerdict::Diff);
    EXPECT_EQ(with("pct=95", "pct=195"), CheckVerdict::Diff);
    EXPECT_FALSE(allPassed(selfCheck("")));
}

TEST(SelfCheck, PagesHoldEveryLine) {
    const auto figures = selfCheck(publishedFigures());
    const CheckHeading heading = checkHeading(publishedFigures(), {}, {});
    std::string all;
    const auto pages = checkPages(heading, figures);
    for (const auto& page : pages) {
        Drawing drawing(794, 1123);
        page(drawing);
        all += drawing.text();
    }
    EXPECT_GT(pages.size(), 1u);
    EXPECT_NE(all.find(sha256(publishedFigures())), std::string::npos);
    for (const CheckedFigure& each : figures) EXPECT_NE(all.find(each.name.substr(0, 27)), std::string::npos);
}

} // namespace
} // namespace metrisk::testing
