#include "runtime/owned.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace kestrelmoor::tests {

namespace {

std::vector<int>& Released() {
    static std::vector<int> released;
    return released;
}

struct NumberTraits {
    using Value = int;
    static constexpr Value kNone = -1;
    static void Release(Value value) noexcept { Released().push_back(value); }
};
using Number = Owned<NumberTraits>;
using Values = std::vector<int>;

static_assert(!std::is_copy_constructible_v<Number> && !std::is_copy_assignable_v<Number>);
static_assert(std::is_nothrow_move_constructible_v<Number>);

class Ownership : public testing::Test {
  protected:
    Ownership() { Released().clear(); }
};

TEST_F(Ownership, TheEndOfItsLifeReleasesWhatIsOwned) {
    { const Number number(7); }
    EXPECT_EQ(Released(), Values{7});
}

TEST_F(Ownership, NothingIsNeverReleased) {
    {
        Number number;
        EXPECT_FALSE(number);
        number.Reset();
    }
    EXPECT_EQ(Released(), Values{});
}

TEST_F(Ownership, MovingPassesItOnAndReleasesIntoTheNewOwnerOnce) {
    {
        Number first(1);
        Number second(std::move(first));
        EXPECT_EQ(second.Get(), 1);
        Number third(3);
        third = std::move(second);
        EXPECT_EQ(Released(), Values{3});
    }
    EXPECT_EQ(Released(), (Values{3, 1}));
}

TEST_F(Ownership, MovingIntoItselfKeepsIt) {
    Number number(1);
    Number& same = number;
    number = std::move(same);
    EXPECT_EQ(number.Get(), 1);
    EXPECT_EQ(Released(), Values{});
}

TEST_F(Ownership, ResettingReleasesTheOldAndTakesTheNew) {
    Number number(1);
    number.Reset(2);
    EXPECT_EQ(Released(), Values{1});
    EXPECT_EQ(number.Get(), 2);
}

TEST_F(Ownership, DetachingGivesItAway) {
    {
        Number number(1);
        EXPECT_EQ(number.Detach(), 1);
        EXPECT_FALSE(number);
    }
    EXPECT_EQ(Released(), Values{});
}

TEST_F(Ownership, ReceivingByAddressReleasesTheOldFirst) {
    {
        Number number(1);
        int* const place = number.Receive();
        EXPECT_EQ(Released(), Values{1});
        *place = 2;
        EXPECT_TRUE(number);
    }
    EXPECT_EQ(Released(), (Values{1, 2}));
}

} // namespace

} // namespace kestrelmoor::tests
