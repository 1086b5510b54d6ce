#include "shell/settings.h"
#include "tests/native/forms/settings_window.h"

#include <cstdio>

namespace kestrelmoor::tests {

namespace {

/// Names that go the whole way: into the entry, into the list, into the registry and back.
class SettingsNames : public SettingsWindow {
  protected:
    SettingsNames() {
        gForceWindow = true; // so that OK saves
        Open();
    }

    void TypeName(StringView name) {
        AddName(name);
        Leave();
        EXPECT_EQ(List().List(List().ListIndex()), name);
    }

    /// A name that comes in by the clipboard, with characters that no key gives.
    void PasteName(const String& name) {
        Click(u"cmdAddServer");
        EntryBox().Edited(name);
        Leave();
    }

    /// OK, and everything read back from the registry.
    void SaveAndLoad() {
        Click(u"cmdOK");
        ASSERT_TRUE(form->IsUnloaded());
        gServers = {};
        gServerCount = 0;
        gActiveBits = {};
        LoadSettings();
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    }

    void ExpectKept(const String& name) {
        SaveAndLoad();
        ASSERT_EQ(gServerCount, 1);
        EXPECT_EQ(gServers[1], name);
        EXPECT_TRUE(GetBit(0));
        Open();
        ASSERT_EQ(List().ListCount(), 1);
        EXPECT_EQ(List().List(0), name);
        EXPECT_TRUE(List().Selected(0));
    }
};

const String kPlainNames[] = {
    u"a",
    u"\\",
    u"\\\\",
    u"\\\\ARCHIVE",
    u" ",
    u" leading",
    u"trailing ",
    u"two  blanks",
    u"&ampersand && two",
    u"%1 %% %9",
    u"-",
    u"'",
    u"...more",
    u"..",
    u"0",
    u"\u05E9\u05E8\u05EA",              // right to left
    u"\u0645\u0644\u0642\u0645 server", // both ways
    u"\U0001F511\U0001F5A7",            // outside the first plane
    u"e\u0301",                         // a letter and an accent
    u"\u4E2D\u6587",
    String(1, u'\xD800'), // half a pair
};

} // namespace

TEST_F(SettingsNames, EveryTypedNameComesBackFromTheRegistryAsItWas) {
    for (const String& name : kPlainNames) {
        SCOPED_TRACE(ToUtf8(name));
        TypeName(name);
        ExpectKept(name);
        user.ChooseRow(List(), 0);
        Click(u"cmdRemServer");
    }
}

TEST_F(SettingsNames, NamesWithTabsAndLineEndsComeBackToo) {
    for (const String& name : {String(u"\t"), String(u"a\tb"), String(u"a\r\nb"), String(u"\x01")}) {
        SCOPED_TRACE(ToUtf8(name));
        PasteName(name);
        ExpectKept(name);
        user.ChooseRow(List(), 0);
        Click(u"cmdRemServer");
    }
}

TEST_F(SettingsNames, NamesOfEveryLengthUpTo1000ComeBack) {
    const std::size_t lengths[] = {2, 15, 16, 63, 64, 254, 255, 256, 259, 260, 261, 511, 512, 999, 1000};
    for (const std::size_t length : lengths)
        TypeName(String(length, u'n'));
    SaveAndLoad();
    ASSERT_EQ(gServerCount, 15);
    for (std::int32_t i = 1; i <= gServerCount; ++i) {
        EXPECT_EQ(gServers[i], String(lengths[i - 1], u'n'));
        EXPECT_TRUE(GetBit(i - 1));
    }
}

TEST_F(SettingsNames, PastedNamesFrom1To1000CharactersAreKept) {
    for (std::size_t length = 1; length <= 1000; length += 37)
        PasteName(String(length, u'p'));
    SaveAndLoad();
    ASSERT_EQ(gServerCount, 28);
    for (std::int32_t i = 1; i <= gServerCount; ++i)
        EXPECT_EQ(gServers[i].size(), static_cast<std::size_t>(37 * (i - 1) + 1));
}

TEST_F(SettingsNames, TenThousandServersComeBackWithTheirChecks) {
    form->Unload();
    StringList servers;
    for (int i = 0; i < 10'000; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "\\\\S%05d", i);
        servers.push_back(FromUtf8(name));
    }
    Configure(servers, std::vector<bool>(10'000, true));
    SetBit(9'998, false);
    Open();
    ASSERT_EQ(List().ListCount(), 10'000);
    user.ToggleRow(List(), 3);
    TypeName(u"\\\\S10000");
    SaveAndLoad();
    servers.push_back(u"\\\\S10000");
    EXPECT_EQ(gServerCount, 10'001);
    EXPECT_EQ(gServers, Array<String>(1, servers));
    int active = 0;
    for (std::int32_t i = 0; i < gServerCount; ++i)
        active += GetBit(i) ? 1 : 0;
    EXPECT_EQ(active, 9'999);
    EXPECT_FALSE(GetBit(3));
    EXPECT_FALSE(GetBit(9'998));
    EXPECT_TRUE(GetBit(10'000));
}

TEST_F(SettingsNames, MoreServersThanTheCountCanHoldRaiseAnOverflow) {
    for (int i = 0; i < 32'768; ++i)
        List().AddItem(u"x");
    Click(u"chkRemind");
    EXPECT_EQ(RaisedNumber([&] { user.ClickOn(At(u"cmdOK")); }), 6);
}

} // namespace kestrelmoor::tests
