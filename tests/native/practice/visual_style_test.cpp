#include "platform/visual_style.h"

#include "platform/practice/world/world.h"
#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

class PracticeStyle : public testing::Test {
  protected:
    practice::ScopedWorld world;
    practice::Appearance& look = world.machine.appearance;
};

TEST_F(PracticeStyle, AnswersWithTheStylesColourAndElseWithTheSystems) {
    look.app_themed = true;
    look.theme_active = true;
    look.theme_colours[5] = 0x102030;
    platform::OwnedTheme theme = platform::OpenThemeData(1, u"WINDOW");
    ASSERT_TRUE(theme);
    EXPECT_EQ(world.OutstandingHandles(), 1U);
    EXPECT_EQ(platform::GetThemeSysColor(theme, 5), 0x102030U);
    EXPECT_EQ(platform::GetThemeSysColor(theme, 15), 0xF0F0F0U);
    EXPECT_EQ(platform::GetSysColor(5), 0xFFFFFFU);
    theme.Reset();
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.calls.Count("CloseThemeData"), 1U);
}

TEST_F(PracticeStyle, HasNoThemeWhereNoneIsActive) {
    look.app_themed = true;
    EXPECT_FALSE(platform::OpenThemeData(1, u"WINDOW"));
    look.theme_active = true;
    EXPECT_TRUE(platform::OpenThemeData(1, u"WINDOW"));
    look.app_themed = false;
    EXPECT_FALSE(platform::OpenThemeData(1, u"WINDOW"));
}

TEST_F(PracticeStyle, RaisesForAMissingLibraryAndForAMissingEntry) {
    look.missing_entries = {"IsThemeActive"};
    EXPECT_FALSE(platform::IsAppThemed());
    EXPECT_EQ(tests::RaisedNumber([] { platform::IsThemeActive(); }), 453);
    look.library_present = false;
    EXPECT_EQ(tests::RaisedNumber([] { platform::IsAppThemed(); }), 53);
    EXPECT_EQ(tests::RaisedNumber([] { platform::SetThemeAppProperties(0); }), 53);
    EXPECT_TRUE(world.calls.Of("SetThemeAppProperties").empty());
}

TEST_F(PracticeStyle, KeepsThePropertiesThatAreSet) {
    EXPECT_EQ(platform::GetThemeAppProperties(), 7U);
    platform::SetThemeAppProperties(0);
    EXPECT_EQ(platform::GetThemeAppProperties(), 0U);
}

TEST_F(PracticeStyle, TellsMeasuresAndFails) {
    look.metrics[49] = 20;
    EXPECT_EQ(platform::GetSystemMetrics(49), 20);
    EXPECT_EQ(platform::GetSystemMetrics(12), 32);
    world.Fail("LoadImageW", 5);
    EXPECT_FALSE(platform::LoadIconImage(1, 16, 16));
    EXPECT_TRUE(platform::LoadIconImage(1, 16, 16));
}

} // namespace
} // namespace kestrelmoor
