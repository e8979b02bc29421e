#include "risk/RatioSearch.h"
#include "risk/BaselineTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>
#include <vector>

namespace metrisk::testing {
namespace {

struct Shares {
    double subject, measuring;
};
constexpr Shares shares[] = {{0.72, 0.85}, {0.95, 0.95}, {0.999999, 0.999999}, {1e-6, 0.5}, {0.6, 1e-6}};

TEST(BaselineTable, AnswersAsTheModelDoesWithinItsDoubt) {
    for (const Shares& share : shares) {
        SCOPED_TRACE(share.subject);
        BaselineTable table(BaselineModel(share.subject, share.measuring));
        int answers = 0;
        for (int round = 0; round < 3; ++round)
            for (double ratio = 1.0 / 128; ratio < 16384; ratio *= 1.0123) {
                const auto joint = table.joint(ratio);
                if (!joint) continue;
                ++answers;
                EXPECT_NEAR(*joint, table.model().joint(ratio), BaselineTable::doubt / 20) << ratio;
            }
        EXPECT_GT(answers, 1000);
        for (int i = 0; i < 20; ++i)
            for (const double ratio : {-4.0, 0.0, 1.0 / 129, 16384.0, 1e300, HUGE_VAL})
                EXPECT_FALSE(table.joint(ratio)) << ratio;
    }
}

struct End {
    RatioEnd end;
    double ratio;
    int passes; // as counted by the search
    int asked;  // as told
};

End found(const RatioQuestion& question) {
    End found{};
    found.end = searchRatio(question, found.ratio, [&](const SearchPass& pass) {
        found.passes = pass.iteration;
        ++found.asked;
        return true;
    });
    return found;
}

std::vector<RatioQuestion> questions() {
    std::vector<RatioQuestion> all;
    for (const Shares& share : shares)
        for (const double target : {0.2, 0.01, 0.002, 4e-7, 1e-12, 1e-16})
            for (const double start : {1.1, 4.0, 30.0})
                for (const int kind : {0, 1, 2})
                    all.push_back({.baseline = BaselineModel(share.subject, share.measuring),
                                   .start = start,
                                   .target = target,
                                   .onFalseAccept = kind < 2,
                                   .falseAcceptOption = kind});
    return all;
}

TEST(RatioSearch, FindsTheSameToTheBitHoweverMuchHasBeenAsked) {
    int searched = 0;
    for (const RatioQuestion& question : questions()) {
        End first{};
        std::thread([&] { first = found(question); }).join(); // a thread that knows nothing yet
        for (int again = 0; again < 3; ++again) {
            const End now = found(question);
            EXPECT_EQ(now.ratio, first.ratio) << question.target;
            EXPECT_EQ(now.end, first.end);
            EXPECT_EQ(now.passes, first.passes);
        }
        searched += ratioAttained(first.ratio);
    }
    EXPECT_GT(searched, 100);
}

TEST(RatioSearch, LeavesOutPassesThatOnlyRepeat) {
    RatioQuestion question{.baseline = BaselineModel(0.72, 0.85),
                           .start = 4,
                           .target = 0.9999,
                           .onFalseAccept = true,
                           .falseAcceptOption = 0};
    const End none = found(question);
    EXPECT_EQ(none.end, RatioEnd::Found); // by the count of passes
    EXPECT_EQ(none.passes, 10000);
    EXPECT_LT(none.asked, 50);
    EXPECT_EQ(none.ratio, std::exp(-30 * question.baseline.inTolerance()));
}

} // namespace
} // namespace metrisk::testing
