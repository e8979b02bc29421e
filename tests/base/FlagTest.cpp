#include "base/Flag.h"

#include <gtest/gtest.h>

using metrisk::Flag;

TEST(Flag, HoldsOnlyMinusOneAndZero) {
    EXPECT_EQ(Flag(true).stored(), -1);
    EXPECT_EQ(Flag(false).stored(), 0);
    for (long stored : {-32768L, -2L, -1L, 1L, 7L})
        EXPECT_EQ(Flag::fromStored(stored).stored(), -1) << stored;
    EXPECT_EQ(Flag::fromStored(0).stored(), 0);
}
