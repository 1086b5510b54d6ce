#include "platform/registry.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

const String kKey = u"Software\\Orvane\\KestrelmoorTests";

class RegistryTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(RegCreateKeyExW(kCurrentUser, kKey, kKeyWrite, mKey, mDisposition), 0U);
    }
    void TearDown() override {
        mKey.Reset();
        ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Orvane\\KestrelmoorTests");
    }
    void Write(const String& sName, std::uint32_t nType, const std::vector<std::uint8_t>& data) {
        ASSERT_EQ(RegSetValueExW(mKey, sName, nType, data), 0U);
    }
    OwnedKey ForReading() {
        OwnedKey key;
        EXPECT_EQ(RegOpenKeyExW(kCurrentUser, kKey, kKeyRead, key), 0U);
        return key;
    }

    OwnedKey mKey;
    std::uint32_t mDisposition = 0;
};

TEST_F(RegistryTest, tellsACreatedKeyFromAnOpenedOne) {
    EXPECT_EQ(mDisposition, 1U);
    OwnedKey again;
    EXPECT_EQ(RegCreateKeyExW(kCurrentUser, kKey, kKeyWrite, again, mDisposition), 0U);
    EXPECT_EQ(mDisposition, 2U);
}

TEST_F(RegistryTest, aKeyThatIsNotThereAnswers2AndNothingIsOwned) {
    OwnedKey key;
    EXPECT_EQ(RegOpenKeyExW(kCurrentUser, kKey + u"\\Missing", kKeyRead, key), 2U);
    EXPECT_FALSE(key);
}

TEST_F(RegistryTest, givesBackTypeLengthAndBytes) {
    const std::vector<std::uint8_t> bytes = {0x4B, 0x00, 0xFF, 0xD8, 0x00};
    Write(u"Active", registry_type::kBinary, bytes);
    const OwnedKey key = ForReading();
    std::uint32_t type = 0;
    std::uint32_t length = 0;
    EXPECT_EQ(RegQueryValueType(key, u"Active", type, length), 0U);
    EXPECT_EQ(type, registry_type::kBinary);
    EXPECT_EQ(length, 5U);
    std::vector<std::uint8_t> read(length);
    EXPECT_EQ(RegQueryValueData(key, u"Active", read), 0U);
    EXPECT_EQ(read, bytes);
}

TEST_F(RegistryTest, aBufferThatIsTooLongShrinks) {
    Write(u"ReminderTime", registry_type::kDword, {1, 2, 3, 4});
    std::vector<std::uint8_t> read(16, 0xEE);
    EXPECT_EQ(RegQueryValueData(ForReading(), u"ReminderTime", read), 0U);
    EXPECT_EQ(read, std::vector<std::uint8_t>({1, 2, 3, 4}));
}

TEST_F(RegistryTest, aMissingValueHasNeitherTypeNorLength) {
    std::uint32_t type = 9;
    std::uint32_t length = 9;
    EXPECT_EQ(RegQueryValueType(ForReading(), u"Missing", type, length), 2U);
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(length, 0U);
}

TEST_F(RegistryTest, deletesAValueOnce) {
    Write(u"Options", registry_type::kDword, {0, 0, 0, 0});
    EXPECT_EQ(RegDeleteValueW(mKey, u"Options"), 0U);
    EXPECT_EQ(RegDeleteValueW(mKey, u"Options"), 2U);
}

TEST_F(RegistryTest, refusesToWriteThroughAKeyOpenedForReading) {
    EXPECT_EQ(RegSetValueExW(ForReading(), u"Options", registry_type::kDword, {0, 0, 0, 0}), 5U);
}

TEST_F(RegistryTest, listsNamesAndTypesUpToTheEnd) {
    const String longest(255, u'n');
    Write(u"1031", registry_type::kString, {0, 0});
    Write(longest, registry_type::kDword, {0, 0, 0, 0});
    const OwnedKey key = ForReading();
    String name;
    std::uint32_t type = 0;
    EXPECT_EQ(RegEnumValueW(key, 0, name, type), 0U);
    EXPECT_EQ(name, u"1031");
    EXPECT_EQ(type, registry_type::kString);
    EXPECT_EQ(RegEnumValueW(key, 1, name, type), 0U);
    EXPECT_EQ(name, longest);
    EXPECT_EQ(type, registry_type::kDword);
    EXPECT_EQ(RegEnumValueW(key, 2, name, type), 259U);
}

TEST(ExpandEnvironmentStringsW, padsWithNulAndCutsAtTheBuffer) {
    ::SetEnvironmentVariableW(L"KESTRELMOOR_TEST", L"expanded");
    String expected(260, u'\0');
    expected.replace(0, 10, u"<expanded>");
    EXPECT_EQ(ExpandEnvironmentStringsW(u"<%KESTRELMOOR_TEST%>", 260), expected);
    EXPECT_EQ(ExpandEnvironmentStringsW(u"<%KESTRELMOOR_TEST%>", 4), u"<exp");
    EXPECT_EQ(ExpandEnvironmentStringsW(u"", 2), String(2, u'\0'));
}

} // namespace
} // namespace kestrelmoor::platform
