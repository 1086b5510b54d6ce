#include "platform/practice/world/world.h"
#include "platform/registry.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using platform::kCurrentUser;
using platform::kKeyRead;
using platform::kKeyWrite;
using platform::OwnedKey;
using practice::Bytes;

constexpr char16_t kPath[] = u"Software\\Orvane\\Kestrelmoor";
constexpr char16_t kFullPath[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";

TEST(PracticeRegistry, KeysAndValuesAreFoundInAnyCase) {
    practice::ScopedWorld world;
    OwnedKey key;
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, u"SOFTWARE\\orvane\\KESTRELMOOR", kKeyRead, key), 0U);
    std::uint32_t type = 0;
    std::uint32_t length = 0;
    EXPECT_EQ(platform::RegQueryValueType(key, u"active", type, length), 0U);
    EXPECT_EQ(type, 3U);
    EXPECT_EQ(length, 1U);
}

TEST(PracticeRegistry, MissingKeyAndValueAreNotThere) {
    practice::ScopedWorld world;
    OwnedKey key;
    EXPECT_EQ(platform::RegOpenKeyExW(kCurrentUser, u"Software\\Nothing", kKeyRead, key), 2U);
    EXPECT_FALSE(key);
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyRead, key), 0U);
    std::uint32_t type = 7;
    std::uint32_t length = 7;
    EXPECT_EQ(platform::RegQueryValueType(key, u"Nothing", type, length), 2U);
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(length, 0U);
}

TEST(PracticeRegistry, CreatingMakesTheParentsTooAndTellsNewFromOld) {
    practice::ScopedWorld world;
    OwnedKey key;
    std::uint32_t disposition = 0;
    EXPECT_EQ(platform::RegCreateKeyExW(kCurrentUser, u"A\\B", kKeyWrite, key, disposition), 0U);
    EXPECT_EQ(disposition, 1U);
    EXPECT_EQ(platform::RegCreateKeyExW(kCurrentUser, u"A", kKeyWrite, key, disposition), 0U);
    EXPECT_EQ(disposition, 2U);
}

TEST(PracticeRegistry, MultiStringHasTheBytesOfTheRealOne) {
    practice::ScopedWorld world;
    const practice::RegistryValue* const value = world.registry.FindValue(kFullPath, u"Servers");
    ASSERT_NE(value, nullptr);
    // \\ARCHIVE, PRACTICE: 9 and 8 characters, a NUL behind each and one more.
    EXPECT_EQ(value->data.size(), 2U * (9 + 1 + 8 + 1 + 1));
    EXPECT_EQ(value->data[0], '\\');
    EXPECT_EQ(Bytes(value->data.end() - 4, value->data.end()), (Bytes{0, 0, 0, 0}));
}

TEST(PracticeRegistry, KeyOpenedForReadingTakesNoValue) {
    practice::ScopedWorld world;
    OwnedKey key;
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyRead, key), 0U);
    EXPECT_EQ(platform::RegSetValueExW(key, u"LangID", 4, {1, 0, 0, 0}), 5U);
    EXPECT_EQ(world.registry.FindValue(kFullPath, u"LangID"), nullptr);
}

TEST(PracticeRegistry, KeyThatRefusesWritingCanBeRead) {
    practice::ScopedWorld world;
    world.registry.Find(kFullPath)->refuses_writing = true;
    OwnedKey key;
    std::uint32_t disposition = 0;
    EXPECT_EQ(platform::RegCreateKeyExW(kCurrentUser, kPath, kKeyWrite, key, disposition), 5U);
    EXPECT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyRead, key), 0U);
}

TEST(PracticeRegistry, DataThatIsLongerThanTheBufferIsRefusedAndShorterShrinksIt) {
    practice::ScopedWorld world;
    OwnedKey key;
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyRead, key), 0U);
    std::vector<std::uint8_t> none;
    EXPECT_EQ(platform::RegQueryValueData(key, u"Active", none), 234U);
    std::vector<std::uint8_t> data(10);
    EXPECT_EQ(platform::RegQueryValueData(key, u"Active", data), 0U);
    EXPECT_EQ(data, (Bytes{3}));
}

TEST(PracticeRegistry, ValuesAreNumberedInTheirOrderAndEnd) {
    practice::ScopedWorld world;
    OwnedKey key;
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyRead, key), 0U);
    String name;
    std::uint32_t type = 0;
    EXPECT_EQ(platform::RegEnumValueW(key, 1, name, type), 0U);
    EXPECT_EQ(name, u"Active");
    EXPECT_EQ(platform::RegEnumValueW(key, 2, name, type), 259U);
}

TEST(PracticeRegistry, DeletingAMissingValueSaysSo) {
    practice::ScopedWorld world;
    OwnedKey key;
    ASSERT_EQ(platform::RegOpenKeyExW(kCurrentUser, kPath, kKeyWrite, key), 0U);
    EXPECT_EQ(platform::RegDeleteValueW(key, u"Active"), 0U);
    EXPECT_EQ(platform::RegDeleteValueW(key, u"Active"), 2U);
}

TEST(PracticeRegistry, EnvironmentIsExpandedIntoABufferOfItsSize) {
    practice::ScopedWorld world;
    const String expanded = platform::ExpandEnvironmentStringsW(u"%systemroot%\\a%nothing%%USERNAME%", 40);
    EXPECT_EQ(expanded, String(u"C:\\Windows\\a%nothing%user").append(40 - 25, 0));
    EXPECT_EQ(platform::ExpandEnvironmentStringsW(u"%SystemRoot%", 5), u"C:\\Wi");
}

} // namespace
} // namespace kestrelmoor
