#include "platform/automation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

namespace kestrelmoor::platform {
namespace {

SAFEARRAY* Array(VARTYPE type, LONG first, const std::vector<std::int16_t>& numbers) {
    SAFEARRAY* const array = ::SafeArrayCreateVector(type, first, static_cast<ULONG>(numbers.size()));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        LONG index = first + static_cast<LONG>(i);
        std::int16_t number = numbers[i];
        ::SafeArrayPutElement(array, &index, &number);
    }
    return array;
}

TEST(TakeText, keepsEveryCharacterOfACountedText) {
    const char16_t characters[] = {u'a', u'\0', 0xD800, u'b'};
    BSTR text = ::SysAllocStringLen(reinterpret_cast<const wchar_t*>(characters), 4);
    EXPECT_EQ(TakeText(reinterpret_cast<char16_t*>(text)), String(characters, 4));
}

TEST(TakeText, nullAndEmptyAreEmpty) {
    EXPECT_EQ(TakeText(nullptr), u"");
    EXPECT_EQ(TakeText(reinterpret_cast<char16_t*>(::SysAllocString(L""))), u"");
}

TEST(TakeNumbers, keepsTheNumbersAndTheirFirstIndex) {
    const std::vector<std::int16_t> languages = {1033, 2057, -1};
    for (const std::int32_t first : {0, 1, -5})
        EXPECT_EQ(TakeNumbers(Array(VT_I2, first, languages)), kestrelmoor::Array(first, languages));
}

TEST(TakeNumbers, anythingElseHasNoStorage) {
    EXPECT_FALSE(TakeNumbers(nullptr).HasStorage());
    EXPECT_FALSE(TakeNumbers(Array(VT_I2, 0, {})).HasStorage());
    EXPECT_FALSE(TakeNumbers(Array(VT_BOOL, 0, {-1, 0})).HasStorage());
    EXPECT_FALSE(TakeNumbers(::SafeArrayCreateVector(VT_I4, 0, 2)).HasStorage());
    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    EXPECT_FALSE(TakeNumbers(::SafeArrayCreate(VT_I2, 2, bounds)).HasStorage());
}

} // namespace
} // namespace kestrelmoor::platform
