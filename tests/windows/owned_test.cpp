#include "platform/files.h"
#include "platform/modules.h"
#include "platform/registry.h"
#include "platform/security.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/observed_call.h"

#include <gtest/gtest.h>

#include <vector>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

struct CountedTraits {
    using Value = int;
    static constexpr Value kNone = -1;
    static inline std::vector<int> released;
    static void Release(Value value) noexcept { released.push_back(value); }
};
using Counted = Owned<CountedTraits>;

class OwnedTest : public testing::Test {
  protected:
    void SetUp() override { CountedTraits::released.clear(); }
};

TEST_F(OwnedTest, releasesOnceAtTheEndOfItsScope) {
    {
        Counted first(7);
        const Counted second(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_EQ(second.Get(), 7);
    }
    EXPECT_EQ(CountedTraits::released, std::vector<int>({7}));
}

TEST_F(OwnedTest, releasesTheOldValueBeforeItReceivesAnother) {
    Counted owned(1);
    *owned.Receive() = 2;
    EXPECT_EQ(CountedTraits::released, std::vector<int>({1}));
    owned = Counted(3);
    EXPECT_EQ(CountedTraits::released, std::vector<int>({1, 2}));
    EXPECT_EQ(owned.Detach(), 3);
    owned.Reset();
    EXPECT_EQ(CountedTraits::released, std::vector<int>({1, 2}));
}

TEST(LastErrorKept, putsTheLastErrorBack) {
    ::SetLastError(1300);
    {
        const LastErrorKept kept;
        ::SetLastError(6);
    }
    EXPECT_EQ(::GetLastError(), 1300U);
}

/// Each of these is given a value that isn't its own, so that the release itself fails.
TEST(LastErrorKept, holdsOverEveryRelease) {
    const auto bad = reinterpret_cast<void*>(0x12345670);
    const auto keeps = [](auto release) {
        ::SetLastError(1300);
        release();
        return ::GetLastError() == 1300U;
    };
    EXPECT_TRUE(keeps([&] { TokenTraits::Release(bad); }));
    EXPECT_TRUE(keeps([&] { ProcessTraits::Release(bad); }));
    EXPECT_TRUE(keeps([&] { AppendFileTraits::Release(0x12345670); }));
    EXPECT_TRUE(keeps([&] { RegistryKeyTraits::Release(0x12345670); }));
    EXPECT_TRUE(keeps([&] { FreeLibrary(0x12345670); }));
}

TEST(ObservedCall, clearsTheLastErrorAheadAndReadsItAtTheReturn) {
    ::SetLastError(5);
    EXPECT_EQ(Observed([] { return 1; }).last_error, 0U);
    const auto failed = Observed([] {
        ::SetLastError(1300);
        return true;
    });
    EXPECT_TRUE(failed.value);
    EXPECT_EQ(failed.last_error, 1300U);
}

} // namespace
} // namespace kestrelmoor::platform
