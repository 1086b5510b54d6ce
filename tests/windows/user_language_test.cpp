#include "platform/user_language.h"

#include "runtime/text.h"

#include <gtest/gtest.h>

namespace kestrelmoor::platform {
namespace {

TEST(GetLocaleInfoW, givesTheNameOfALanguageWithItsNul) {
    const int length = GetLocaleInfoW(1033, kLanguageName, {});
    ASSERT_GT(length, 1);
    String name(static_cast<std::size_t>(length), u'?');
    EXPECT_EQ(GetLocaleInfoW(1033, kLanguageName, name), length);
    EXPECT_EQ(name.back(), u'\0');
    EXPECT_TRUE(name.starts_with(u"English")) << ToUtf8(name);
}

TEST(GetLocaleInfoW, hasNoNameForANumberThatIsNoLanguage) {
    EXPECT_EQ(GetLocaleInfoW(0xFFFF8000, kLanguageName, {}), 0);
}

TEST(GetLocaleInfoW, refusesABufferThatIsTooShort) {
    String name(2, u'?');
    EXPECT_EQ(GetLocaleInfoW(1033, kLanguageName, name), 0);
}

} // namespace
} // namespace kestrelmoor::platform
