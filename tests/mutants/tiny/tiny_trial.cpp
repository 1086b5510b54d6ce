#include "tests/mutants/tiny/tiny.h"

#include <gtest/gtest.h>

namespace tiny {

TEST(Counter, Adds) {
    Counter counter;
    EXPECT_EQ(counter.Add(0), 0);
    EXPECT_EQ(counter.Add(3), 3);
    EXPECT_EQ(counter.Add(4), 7);
    EXPECT_EQ(counter.Add(-1), -1);
}

TEST(Moods, AreAngryAtThree) {
    EXPECT_EQ(MoodOf(3), Mood::Angry);
    EXPECT_EQ(MoodOf(4), Mood::Calm);
}

TEST(Steps, AreCounted) {
    EXPECT_EQ(Steps(3), 3);
    EXPECT_EQ(Fixed(), 11);
}

TEST(Halves, AreOfEvenNumbers) {
    EXPECT_TRUE(HasHalf(4));
    EXPECT_FALSE(HasHalf(5));
}

} // namespace tiny
