#include "runtime/allowance.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

int Passed(Allowance& allowance, std::uint32_t now, int attempts) {
    int passed = 0;
    for (int attempt = 0; attempt < attempts; ++attempt)
        passed += allowance.Take(now) ? 1 : 0;
    return passed;
}

TEST(Allowances, LetAsManyPassAtOnceAsTheyHold) {
    Allowance allowance(3, 50);
    EXPECT_EQ(Passed(allowance, 1000, 10), 3);
}

TEST(Allowances, OneIsMadeGoodAfterEachPause) {
    Allowance allowance(3, 50);
    Passed(allowance, 1000, 3);
    EXPECT_EQ(Passed(allowance, 1049, 10), 0);
    EXPECT_EQ(Passed(allowance, 1050, 10), 1);
    EXPECT_EQ(Passed(allowance, 1099, 10), 0);
    EXPECT_EQ(Passed(allowance, 1100, 10), 1);
}

TEST(Allowances, APauseThatHasBegunCountsOn) {
    Allowance allowance(3, 50);
    Passed(allowance, 1000, 3);
    EXPECT_EQ(Passed(allowance, 1075, 10), 1);
    EXPECT_EQ(Passed(allowance, 1100, 10), 1);
}

TEST(Allowances, HoldNoMoreAfterALongTime) {
    Allowance allowance(3, 50);
    Passed(allowance, 1000, 3);
    EXPECT_EQ(Passed(allowance, 100000, 10), 3);
    EXPECT_EQ(Passed(allowance, 100049, 10), 0);
}

TEST(Allowances, GoOnWhereTheClockBeginsAgain) {
    Allowance allowance(1, 50);
    EXPECT_EQ(Passed(allowance, 0xFFFFFFF0, 10), 1);
    EXPECT_EQ(Passed(allowance, 0x00000021, 10), 0);
    EXPECT_EQ(Passed(allowance, 0x00000022, 10), 1);
}

TEST(Allowances, ThePauseBeginsBehindWhatPassesAndIsFourTimesAsLong) {
    Allowance allowance(1, 50);
    EXPECT_EQ(Passed(allowance, 1000, 10), 1);
    allowance.Passed(1000, 1030);
    EXPECT_EQ(Passed(allowance, 1149, 10), 0);
    EXPECT_EQ(Passed(allowance, 1150, 10), 1);
    allowance.Passed(1150, 1151);
    EXPECT_EQ(Passed(allowance, 1200, 10), 0) << "no shorter than the shortest";
    EXPECT_EQ(Passed(allowance, 1201, 10), 1);
}

} // namespace
} // namespace kestrelmoor
