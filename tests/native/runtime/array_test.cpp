#include "runtime/array.h"

#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace kestrelmoor::tests {

namespace {

TEST(ArrayBounds, AnArrayWithoutStorageHasNoBoundsAndNoElements) {
    const Array<int> none;
    EXPECT_FALSE(none.HasStorage());
    EXPECT_EQ(RaisedNumber([&] { none.LowerBound(); }), 9);
    EXPECT_EQ(RaisedNumber([&] { none.UpperBound(); }), 9);
    EXPECT_EQ(RaisedNumber([&] { none[0]; }), 9);
}

TEST(ArrayBounds, TheFirstIndexIsOfItsOwnChoosing) {
    const Array<int> array(1, {10, 20});
    EXPECT_EQ(array.LowerBound(), 1);
    EXPECT_EQ(array.UpperBound(), 2);
    EXPECT_EQ(array[1], 10);
    EXPECT_EQ(array[2], 20);
    EXPECT_EQ(RaisedNumber([&] { array[0]; }), 9);
    EXPECT_EQ(RaisedNumber([&] { array[3]; }), 9);
}

TEST(ArrayBounds, ResizingKeepsTheFrontAndFillsUpWithDefaults) {
    Array<int> array(1, {10, 20});
    array.Redim(1, 3);
    EXPECT_EQ(array.Elements(), (std::vector<int>{10, 20, 0}));
    array.Redim(0, 0);
    EXPECT_EQ(array.Elements(), std::vector<int>{10});
    EXPECT_EQ(array.LowerBound(), 0);
}

TEST(ArrayBounds, AnArrayThatIsGivenUpHandsOutItsElementsWithoutACopy) {
    Array<int> array(1, {10, 20});
    const int* const place = array.Elements().data();
    const std::vector<int> taken = std::move(array).Elements();
    EXPECT_EQ(taken, (std::vector<int>{10, 20}));
    EXPECT_EQ(taken.data(), place);
}

TEST(ArrayBounds, ALastIndexBelowTheFirstAndErasingGiveTheStorageUp) {
    Array<int> array(1, {10});
    array.Redim(1, 0);
    EXPECT_FALSE(array.HasStorage());
    array = Array<int>(1, {10});
    array.Erase();
    EXPECT_FALSE(array.HasStorage());
}

} // namespace

} // namespace kestrelmoor::tests
