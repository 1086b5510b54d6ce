#include "shell/mRegistry.h"

#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kTestKey[] = u"HKEY_LOCAL_MACHINE\\Software\\Test";
constexpr std::uint32_t kLocalMachine = 0x80000002;

class RegistryKeys : public ProgramTest {
  protected:
    static OwnedRegistryKey Open() { return OpenRegistryKey(kLocalMachine, u"Software\\Test", 0x20019); }

    /// Values of the types 1, 2, 3 ... in the registry's own order.
    void PutValues(std::initializer_list<std::pair<const char16_t*, std::uint32_t>> values) {
        practice::RegistryKey& key = world.registry.Create(kTestKey);
        for (const auto& [name, type] : values)
            key.Set(name, type, practice::TextData(u"x"));
    }
};

TEST_F(RegistryKeys, AKeyIsOpenedWithTheAccessAskedFor) {
    world.registry.Create(kTestKey);
    EXPECT_TRUE(Open());
    EXPECT_EQ(Names(), (Lines{"RegOpenKeyExW", "RegCloseKey"}));
    EXPECT_EQ(CallsOf({"RegOpenKeyExW"}),
              Lines{R"(RegOpenKeyExW("HKEY_LOCAL_MACHINE\Software\Test", "131097"))"});
}

TEST_F(RegistryKeys, AKeyThatIsNotThereOrRefusesIsNoKeyWithoutAWord) {
    EXPECT_FALSE(Open());
    world.registry.Create(kTestKey).refuses_reading = true;
    EXPECT_FALSE(Open());
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(RegistryKeys, CreatingTellsWhetherTheKeyIsNew) {
    std::uint32_t disposition = 0;
    EXPECT_TRUE(OpenRegistryKey(kLocalMachine, u"Software\\Test", 0x20006, true, disposition));
    EXPECT_EQ(disposition, 1U);
    EXPECT_TRUE(OpenRegistryKey(kLocalMachine, u"Software\\Test", 0x20006, true, disposition));
    EXPECT_EQ(disposition, 2U);
    EXPECT_EQ(CallsOf({"RegCreateKeyExW", "RegOpenKeyExW"}),
              (Lines{R"(RegCreateKeyExW("HKEY_LOCAL_MACHINE\Software\Test", "131078"))",
                     R"(RegCreateKeyExW("HKEY_LOCAL_MACHINE\Software\Test", "131078"))"}));
}

TEST_F(RegistryKeys, AKeyThatCannotBeCreatedIsNoKey) {
    std::uint32_t disposition = 0;
    world.Fail("RegCreateKeyExW", 5);
    EXPECT_FALSE(OpenRegistryKey(kLocalMachine, u"Software\\Test", 0x20006, true, disposition));
}

TEST_F(RegistryKeys, ClosingIgnoresAKeyThatIsNotOpen) {
    world.registry.Create(kTestKey);
    OwnedRegistryKey key = Open();
    CloseRegistryKey(key);
    EXPECT_FALSE(key);
    CloseRegistryKey(key);
    EXPECT_EQ(world.calls.Count("RegCloseKey"), 1U);
}

TEST_F(RegistryKeys, TheListingBeginsAtTheSecondValueAndAtIndexOne) {
    PutValues({{u"1031", 1}, {u"1036", 1}, {u"1049", 1}});
    const Array<String> names = EnumRegistryValues(Open());
    EXPECT_EQ(names, Array<String>(1, {u"1036", u"1049"}));
    EXPECT_EQ(CallsOf({"RegEnumValueW"}),
              (Lines{R"(RegEnumValueW("1"))", R"(RegEnumValueW("2"))", R"(RegEnumValueW("3"))"}));
}

TEST_F(RegistryKeys, TheListingOfOneValueOrNoneHasNoStorage) {
    PutValues({});
    EXPECT_FALSE(EnumRegistryValues(Open()).HasStorage());
    PutValues({{u"1031", 1}});
    EXPECT_FALSE(EnumRegistryValues(Open()).HasStorage());
}

TEST_F(RegistryKeys, TheListingTellsTheKindsThatItsValuesWouldReadAs) {
    PutValues({{u"first", 1},
               {u"text", 1},
               {u"path", 2},
               {u"bytes", 3},
               {u"number", 4},
               {u"list", 7},
               {u"big", 5},
               {u"none", 0}});
    Array<RegistryKind> kinds;
    EXPECT_EQ(EnumRegistryValues(Open(), &kinds).UpperBound(), 7);
    EXPECT_EQ(kinds,
              Array<RegistryKind>(1, {RegistryKind::kString, RegistryKind::kString, RegistryKind::kBytes,
                                      RegistryKind::kInteger, RegistryKind::kStringList, RegistryKind::kError,
                                      RegistryKind::kError}));
}

TEST_F(RegistryKeys, TheListingEndsAtTheFirstFailure) {
    PutValues({{u"a", 1}, {u"b", 1}, {u"c", 1}, {u"d", 1}});
    world.Fail("RegEnumValueW", 234, 2);
    EXPECT_EQ(EnumRegistryValues(Open()), Array<String>(1, {u"b"}));
}

} // namespace

} // namespace kestrelmoor::tests
