#include "shell/mRegistry.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

#include <limits>

namespace kestrelmoor::tests {

namespace {

using namespace std::string_literals;
using Data = std::vector<std::uint8_t>;

constexpr char16_t kTestKey[] = u"HKEY_CURRENT_USER\\Software\\Test";

constexpr std::uint32_t kNone = 0;
constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kBigEndianNumber = 5;
constexpr std::uint32_t kLink = 6;
constexpr std::uint32_t kStringList = 7;
constexpr std::uint32_t kUnknown = 11;

const RegistryValue kEmpty;

class RegistryValues : public ProgramTest {
  protected:
    RegistryValues() { world.registry.Create(kTestKey); }

    RegistryValue Read(std::uint32_t nType, Data data) {
        world.registry.Find(kTestKey)->Set(u"Value", nType, std::move(data));
        const OwnedRegistryKey key = OpenRegistryKey(0x80000001, u"Software\\Test", 0x20019);
        return GetRegistryKeyValue(key, u"Value");
    }

    void Write(const RegistryValue& value) {
        const OwnedRegistryKey key = OpenRegistryKey(0x80000001, u"Software\\Test", 0x20006);
        LetRegistryKeyValue(key, u"Value", value);
    }

    /// What the registry holds after a writing.
    practice::RegistryValue Written(const RegistryValue& value) {
        Write(value);
        const practice::RegistryValue* const stored = world.registry.FindValue(kTestKey, u"Value");
        return stored ? *stored : practice::RegistryValue{u"nothing", 0, {}};
    }
};

practice::RegistryValue Stored(std::uint32_t nType, Data data) {
    return {u"Value", nType, std::move(data)};
}

/// The first bytes of "abcdefgh", in a registry's order.
Data Letters(std::size_t length) {
    Data data{'a', 0, 'b', 0, 'c', 0, 'd', 0, 'e', 0, 'f', 0, 'g', 0, 'h', 0};
    data.resize(length);
    return data;
}

TEST_F(RegistryValues, AStringHasHalfItsBytesInCharactersButForTheTerminator) {
    const RegistryValue expected[17] = {kEmpty,    kEmpty,    u""s,       u""s,       u"a"s,      u"a"s,
                                        u"ab"s,    u"ab"s,    u"abc"s,    u"abc"s,    u"abcd"s,   u"abcd"s,
                                        u"abcde"s, u"abcde"s, u"abcdef"s, u"abcdef"s, u"abcdefg"s};
    for (std::size_t length = 0; length <= 16; ++length) {
        EXPECT_EQ(Read(kString, Letters(length)), expected[length]) << length;
        EXPECT_EQ(Read(kExpandString, Letters(length)), expected[length]) << length;
    }
}

TEST_F(RegistryValues, AStringKeepsTheNulsInsideOfIt) {
    EXPECT_EQ(Read(kString, {'a', 0, 0, 0, 'b', 0, 0, 0}), RegistryValue(u"a\0b"s));
}

TEST_F(RegistryValues, AStringListLosesTheTerminatorOfItsLastStringToo) {
    const char16_t* const expected[9] = {nullptr, nullptr, nullptr,  u"a",     u"ab",
                                         u"abc",  u"abcd", u"abcde", u"abcdef"};
    for (std::size_t units = 3; units <= 8; ++units)
        EXPECT_EQ(Read(kStringList, Letters(units * 2)), RegistryValue(Array<String>(0, {expected[units]})))
            << units;
}

TEST_F(RegistryValues, AStringListIsSplitAtItsNuls) {
    EXPECT_EQ(Read(kStringList, {'a', 0, 'b', 0, 0, 0, 'c', 0, 0, 0, 0, 0}),
              RegistryValue(Array<String>(0, {u"ab", u"c"})));
    EXPECT_EQ(Read(kStringList, {'a', 0, 0, 0, 0, 0, 'b', 0, 0, 0, 0, 0}),
              RegistryValue(Array<String>(0, {u"a", u"", u"b"})));
}

TEST_F(RegistryValues, AStringListOfTwoFinalNulsHasNoStorage) {
    const RegistryValue value = Read(kStringList, {0, 0, 0, 0});
    ASSERT_TRUE(std::holds_alternative<Array<String>>(value));
    EXPECT_FALSE(std::get<Array<String>>(value).HasStorage());
}

TEST_F(RegistryValues, AStringListOfTheFinalNulAloneRaisesAnInvalidArgument) {
    EXPECT_EQ(RaisedNumber([&] { Read(kStringList, {0, 0}); }), 5);
}

TEST_F(RegistryValues, AStringListTooShortForANulIsEmpty) {
    EXPECT_EQ(Read(kStringList, {}), kEmpty);
    EXPECT_EQ(Read(kStringList, {'a'}), kEmpty);
}

TEST_F(RegistryValues, BytesHaveExactlyTheStoredLength) {
    EXPECT_EQ(Read(kBinary, {}), kEmpty);
    for (std::size_t length = 1; length <= 16; ++length)
        EXPECT_EQ(Read(kBinary, Letters(length)), RegistryValue(Bytes(0, Letters(length)))) << length;
}

TEST_F(RegistryValues, ANumberHasFourBytesTheLowestFirst) {
    EXPECT_EQ(Read(kNumber, {0x00, 0x75, 0x12, 0x00}), RegistryValue(1209600));
    EXPECT_EQ(Read(kNumber, {0xFF, 0xFF, 0xFF, 0xFF}), RegistryValue(-1));
    EXPECT_EQ(Read(kNumber, {0x00, 0x00, 0x00, 0x80}),
              RegistryValue(std::numeric_limits<std::int32_t>::min()));
}

TEST_F(RegistryValues, ANumberOfFewerBytesHasZerosAbove) {
    EXPECT_EQ(Read(kNumber, {}), kEmpty);
    EXPECT_EQ(Read(kNumber, {0x07}), RegistryValue(7));
    EXPECT_EQ(Read(kNumber, {0x00, 0x01}), RegistryValue(256));
    EXPECT_EQ(Read(kNumber, {0xFF, 0xFF, 0xFF}), RegistryValue(16777215));
}

TEST_F(RegistryValues, ANumberOfMoreBytesThanItHoldsIsEmpty) {
    for (std::size_t length = 5; length <= 16; ++length)
        EXPECT_EQ(Read(kNumber, Letters(length)), kEmpty) << length;
}

TEST_F(RegistryValues, TypesThatTheProgramHasNoKindForAreEmpty) {
    for (const std::uint32_t type : {kNone, kBigEndianNumber, kLink, kUnknown})
        for (std::size_t length = 0; length <= 16; ++length)
            EXPECT_EQ(Read(type, Letters(length)), kEmpty) << type << " " << length;
}

TEST_F(RegistryValues, AValueThatIsNotThereIsEmpty) {
    const OwnedRegistryKey key = OpenRegistryKey(0x80000001, u"Software\\Test", 0x20019);
    EXPECT_EQ(GetRegistryKeyValue(key, u"Missing"), kEmpty);
}

TEST_F(RegistryValues, AValueThatCannotBeReadIsEmptyWithoutAWord) {
    world.Fail("RegQueryValueExW", 5, 1);
    EXPECT_EQ(Read(kNumber, {1, 0, 0, 0}), kEmpty);
    world.Fail("RegQueryValueExW", 5, 2);
    EXPECT_EQ(Read(kNumber, {1, 0, 0, 0}), kEmpty);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(RegistryValues, VariablesInAnExpandableStringAreExpanded) {
    world.machine.environment = {{u"FOLDER", u"C:\\Lang"}};
    EXPECT_EQ(Read(kExpandString, practice::TextData(u"%folder%\\ru.dll")),
              RegistryValue(u"C:\\Lang\\ru.dll"s));
    EXPECT_EQ(Read(kExpandString, practice::TextData(u"%other%\\x")), RegistryValue(u"%other%\\x"s));
    EXPECT_EQ(Read(kString, practice::TextData(u"%folder%\\x")), RegistryValue(u"%folder%\\x"s));
}

TEST_F(RegistryValues, AnExpandedStringIsNotLongerThanItsBuffer) {
    world.machine.environment = {{u"LONG", String(300, u'x')}};
    EXPECT_EQ(Read(kExpandString, practice::TextData(u"%LONG%")), RegistryValue(String(260, u'x')));
    EXPECT_EQ(CallsOf({"ExpandEnvironmentStringsW"}),
              Lines{"ExpandEnvironmentStringsW(\"%LONG%\", \"260\")"});
}

TEST_F(RegistryValues, VariablesThatCannotBeExpandedLeaveAnEmptyString) {
    world.Fail("ExpandEnvironmentStringsW", 5);
    EXPECT_EQ(Read(kExpandString, practice::TextData(u"%LONG%")), RegistryValue(u""s));
}

TEST_F(RegistryValues, ANumberIsWrittenInFourBytes) {
    EXPECT_EQ(Written(1209600), Stored(kNumber, {0x00, 0x75, 0x12, 0x00}));
    EXPECT_EQ(Written(-2), Stored(kNumber, {0xFE, 0xFF, 0xFF, 0xFF}));
}

TEST_F(RegistryValues, AStringIsWrittenWithItsTerminator) {
    EXPECT_EQ(Written(u"ab"s), Stored(kString, {'a', 0, 'b', 0, 0, 0}));
    EXPECT_EQ(Written(u""s), Stored(kString, {0, 0}));
}

TEST_F(RegistryValues, AStringListIsWrittenWithTwoNulsAtItsEnd) {
    EXPECT_EQ(Written(Array<String>(0, {u"ab", u"c"})),
              Stored(kStringList, {'a', 0, 'b', 0, 0, 0, 'c', 0, 0, 0, 0, 0}));
    EXPECT_EQ(Written(Array<String>(1, {u"a"})), Stored(kStringList, {'a', 0, 0, 0, 0, 0}));
    EXPECT_EQ(Written(Array<String>(1, {u"", u"a"})), Stored(kStringList, {0, 0, 'a', 0, 0, 0, 0, 0}));
}

TEST_F(RegistryValues, AnEmptyStringListIsWrittenAsItsTwoNuls) {
    EXPECT_EQ(Written(Array<String>()), Stored(kStringList, {0, 0, 0, 0}));
}

TEST_F(RegistryValues, AStringListThatIsNoValueIsWrittenLikeOne) {
    const Array<String> list(1, {u"a", u"b"});
    const OwnedRegistryKey key = OpenRegistryKey(0x80000001, u"Software\\Test", 0x20006);
    LetRegistryKeyValue(key, u"Value", list);
    const practice::RegistryValue* const stored = world.registry.FindValue(kTestKey, u"Value");
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(*stored, Stored(kStringList, {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}));
}

TEST_F(RegistryValues, BytesAreWrittenFromTheLowerToTheUpperBound) {
    EXPECT_EQ(Written(Bytes(1, {3, 0, 255})), Stored(kBinary, {3, 0, 255}));
}

TEST_F(RegistryValues, NothingToStoreRemovesTheValue) {
    Write(7);
    Write(kEmpty);
    EXPECT_EQ(world.registry.FindValue(kTestKey, u"Value"), nullptr);
}

TEST_F(RegistryValues, AValueThatWasNotThereCountsAsRemoved) {
    EXPECT_EQ(RaisedNumber([&] { Write(kEmpty); }), 0);
    EXPECT_EQ(CallsOf({"RegDeleteValueW"}), Lines{"RegDeleteValueW(\"Value\")"});
}

TEST_F(RegistryValues, ARefusedWritingRaisesMessage102WithTheFailedCall) {
    world.Fail("RegSetValueExW", 5);
    const auto error = Raised([&] { Write(7); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x80040406U);
    EXPECT_EQ(error->source(), u"RegistryKeyValue (Let)");
    EXPECT_EQ(error->description(), u"message 102: message 15: 5, system 5");
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
}

TEST_F(RegistryValues, ARefusedRemovingRaisesMessage102WithTheFailedCall) {
    world.Fail("RegDeleteValueW", 53);
    const auto error = Raised([&] { Write(kEmpty); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x80040406U);
    EXPECT_EQ(error->description(), u"message 102: message 15: 53, system 53");
}

TEST_F(RegistryValues, ARefusedWritingIsLoggedWhileDiagnosing) {
    StartDiagnosing();
    world.Fail("RegSetValueExW", 5);
    const auto error = Raised([&] { Write(7); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), u"message 102: message 12: 5, RegSetValueExW, system 5");
    world.Fail("RegDeleteValueW", 5);
    EXPECT_TRUE(Raised([&] { Write(kEmpty); }));
    EXPECT_EQ(Log(), (Lines{"Error: message 12: 5, RegSetValueExW, system 5",
                            "Error: message 12: 5, RegDeleteValueW, system 5"}));
}

TEST_F(RegistryValues, AKindThatTheRegistryCannotHoldRaisesMessage101) {
    const auto error = Raised([&] { Write(ErrorMark()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x8004040CU);
    EXPECT_EQ(error->source(), u"RegistryKeyValue (Let)");
    EXPECT_EQ(error->description(), u"message 101");
    EXPECT_EQ(CallsOf({"RegSetValueExW", "RegDeleteValueW"}), Lines{});
}

} // namespace

} // namespace kestrelmoor::tests
