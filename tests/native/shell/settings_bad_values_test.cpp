#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "tests/native/support/program_test.h"

#include <optional>

namespace kestrelmoor::tests {

namespace {

using Data = std::vector<std::uint8_t>;

constexpr char16_t kSettingsKey[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr char16_t kRunKey[] = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kStringList = 7;

/// REG_NONE, SZ, EXPAND_SZ, BINARY, DWORD, DWORD_BIG_ENDIAN, LINK, MULTI_SZ, RESOURCE_LIST,
/// FULL_RESOURCE_DESCRIPTOR, RESOURCE_REQUIREMENTS_LIST, QWORD, and one that is nothing yet.
constexpr std::uint32_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0x7FFFFFFF};

constexpr std::size_t kLongest = 64;

/// The first bytes of "abc...", two to a letter: 61 00 62 00 63 00 ...
Data Letters(std::size_t length) {
    Data data;
    for (std::size_t i = 0; i < length; ++i)
        data.push_back(i % 2 == 0 ? static_cast<std::uint8_t>('a' + i / 2) : std::uint8_t{0});
    return data;
}

/// What a number of so many of these bytes is: 61, 61, 620061, 620061 in hexadecimal digits, and none for
/// more bytes than a number has.
std::optional<std::int32_t> NumberOfLetters(std::uint32_t type, std::size_t length) {
    if (type != kNumber || length == 0 || length > 4)
        return std::nullopt;
    return length < 3 ? 97 : 6422625;
}

/// A list without room for its own terminators can't be read at all.
bool RaisesAnError(std::uint32_t type, std::size_t length) {
    return type == kStringList && (length == 2 || length == 3);
}

/// Every type with every length, one value at a time in an otherwise empty key.
class BadValues : public ProgramTest {
  protected:
    template <class Read, class Check>
    void WalkAll(const char16_t* sName, Read read, Check check) {
        for (const std::uint32_t type : kTypes)
            for (std::size_t length = 0; length <= kLongest; ++length) {
                SCOPED_TRACE(ToUtf8(sName) + " type " + std::to_string(type) + " length " +
                             std::to_string(length));
                Put(sName, type, Letters(length));
                const bool raises = RaisesAnError(type, length);
                EXPECT_EQ(RaisedNumber(read), raises ? 5 : 0);
                EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
                if (!raises)
                    check(type, length);
            }
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    }

    /// The key holds nothing but this value, and the state is as at the start.
    void Put(const char16_t* sName, std::uint32_t type, const Data& data) {
        practice::RegistryKey& key = world.registry.Create(kSettingsKey);
        key.values.clear();
        key.Set(sName, type, data);
        gServers = {};
        gServerCount = 0;
        gActiveBits = {};
    }

    void Add(const char16_t* sName, std::uint32_t type, const Data& data) {
        world.registry.Create(kSettingsKey).Set(sName, type, data);
    }
};

TEST_F(BadValues, AReminderTimeCountsAsANumberOfOneToFourBytesAlone) {
    WalkAll(u"ReminderTime", LoadSettings, [](std::uint32_t type, std::size_t length) {
        EXPECT_EQ(gReminderTime, NumberOfLetters(type, length).value_or(1209600));
        EXPECT_TRUE(gSyncLocal);
        EXPECT_EQ(gServerCount, 0);
    });
}

TEST_F(BadValues, OptionsCountAsANumberOfOneToFourBytesAlone) {
    WalkAll(u"Options", LoadSettings, [](std::uint32_t type, std::size_t length) {
        // The bit with value 2 is clear in 97 and in 6422625, and set in the default.
        EXPECT_EQ(gSyncLocal, !NumberOfLetters(type, length).has_value());
        EXPECT_EQ(gReminderTime, 1209600);
    });
}

TEST_F(BadValues, ALanguageNumberCountsWhereItIsANumberOfSixteenBits) {
    WalkAll(u"LangID", LoadLangID, [](std::uint32_t type, std::size_t length) {
        EXPECT_EQ(LoadLangID(), type == kNumber && (length == 1 || length == 2) ? 97 : 0);
    });
}

TEST_F(BadValues, ServersCountAsAListWithRoomForBothTerminators) {
    const String alphabet = u"abcdefghijklmnopqrstuvwxyz{|}~\u007f\u0080";
    WalkAll(u"Servers", LoadSettings, [&](std::uint32_t type, std::size_t length) {
        if (type != kStringList || length < 6) {
            EXPECT_EQ(gServerCount, 0);
            return;
        }
        // All but the last two characters, whatever these are; an odd byte at the end is none.
        ASSERT_EQ(gServerCount, 1);
        EXPECT_EQ(gServers[1], alphabet.substr(0, length / 2 - 2));
        EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, {0}));
    });
}

TEST_F(BadValues, AServerListOfNulsHoldsAnEmptyNameMoreThanItsSeparators) {
    for (std::size_t length = 4; length <= kLongest; ++length) {
        Put(u"Servers", kStringList, Data(length, 0));
        LoadSettings();
        const std::size_t expected = length < 6 ? 0 : length / 2 - 1;
        EXPECT_EQ(static_cast<std::size_t>(gServerCount), expected) << length;
        for (std::int32_t i = 1; i <= gServerCount; ++i)
            EXPECT_EQ(gServers[i], u"") << length << " " << i;
    }
}

TEST_F(BadValues, ActiveBytesCountAsBytesAlone) {
    const auto read = [this] {
        Add(u"Servers", kStringList,
            practice::TextsData({u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"}));
        LoadSettings();
    };
    WalkAll(u"Active", read, [](std::uint32_t type, std::size_t length) {
        ASSERT_EQ(gServerCount, 9);
        Data expected(9, 0);
        for (std::size_t i = 0; type == kBinary && i < length && i < 9; ++i)
            expected[i] = Letters(length)[i];
        EXPECT_EQ(gActiveBits, Array<std::uint8_t>(1, expected));
    });
}

TEST_F(BadValues, TheRunValueCountsAsTextWithRoomForATerminator) {
    practice::RegistryKey& run = world.registry.Create(kRunKey);
    for (const std::uint32_t type : kTypes)
        for (std::size_t length = 0; length <= kLongest; ++length) {
            run.values.clear();
            run.Set(u"Kestrelmoor", type, Letters(length));
            gAutoStart = false;
            EXPECT_EQ(RaisedNumber(LoadSettings), RaisesAnError(type, length) ? 5 : 0)
                << type << " " << length;
            const bool is_text = (type == kString || type == kExpandString) && length >= 2;
            EXPECT_EQ(gAutoStart, is_text) << type << " " << length;
        }
}

TEST_F(BadValues, AllOfThemAtOnceAreNoMoreThanEachAlone) {
    for (const std::uint32_t type : kTypes)
        for (std::size_t length = 0; length <= kLongest; ++length) {
            if (RaisesAnError(type, length))
                continue;
            Put(u"Servers", type, Letters(length));
            for (const char16_t* sName : {u"Active", u"ReminderTime", u"Options", u"LangID"})
                Add(sName, type, Letters(length));
            EXPECT_EQ(RaisedNumber(LoadSettings), 0) << type << " " << length;
            EXPECT_EQ(gServerCount, type == kStringList && length >= 6 ? 1 : 0) << type << " " << length;
            EXPECT_EQ(gReminderTime, NumberOfLetters(type, length).value_or(1209600))
                << type << " " << length;
        }
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

} // namespace

} // namespace kestrelmoor::tests
