#include "tests/native/forms/about_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t kLastNT4 = 0x24FFFFFF;

class AboutAddress : public AboutWindow {
  protected:
    /// The installer's record with data of any type as the address.
    void Record(std::uint32_t type, practice::Bytes data) {
        world.registry.Create(kUninstallKey).Set(u"UrlInfoAbout", type, std::move(data));
    }

    void ExpectKeysClosed(std::size_t count) {
        EXPECT_EQ(world.calls.Count("RegCloseKey"), count);
        EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::RegistryKey), 0U);
    }

    void ExpectNoAddress() {
        EXPECT_FALSE(At(u"lblWeb").Visible());
        EXPECT_EQ(CaptionOf(u"lblWeb"), "");
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    }

    /// How many hands were loaded and made into pictures.
    void ExpectHands(std::size_t count) {
        EXPECT_EQ(world.calls.Count("LoadCursorW"), count);
        EXPECT_EQ(world.calls.Count("OleCreatePictureIndirect"), count);
    }

    /// The link shows the pointer that was stored with it.
    void ExpectStoredPointer(StringView link) {
        SCOPED_TRACE(ToUtf8(link));
        EXPECT_EQ(At(link).MouseIcon(), nullptr);
        EXPECT_EQ(At(link).MousePointer(), mouse_pointer::kCustom);
        EXPECT_NE(At(link).DesignMouseIcon(), 0);
    }

    void ExpectHand(StringView link) {
        SCOPED_TRACE(ToUtf8(link));
        ASSERT_NE(At(link).MouseIcon(), nullptr);
        EXPECT_NE(At(link).MouseIcon()->Handle(), 0U);
        EXPECT_EQ(At(link).MousePointer(), mouse_pointer::kCustom);
    }

    void SayNoTranslator() { Say(205, u""); }
};

const practice::Bytes kTwoTexts = practice::TextsData({u"https://www.example.org/", u"x"});

} // namespace

TEST_F(AboutAddress, TheInstallersRecordIsOpenedForReadingAndNotMade) {
    Load();
    EXPECT_EQ(
        CallsOf({"RegOpenKeyExW", "RegCreateKeyExW"}),
        (Lines{R"(RegOpenKeyExW("HKEY_LOCAL_MACHINE\Software\Microsoft\Windows\CurrentVersion\Uninstall\)"
               R"({5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1", "131097"))"}));
    EXPECT_EQ(world.registry.Find(kUninstallKey), nullptr);
}

TEST_F(AboutAddress, TheAddressIsAskedForByItsName) {
    Install();
    Load();
    EXPECT_EQ(CallsOf({"RegQueryValueExW"}),
              (Lines{R"(RegQueryValueExW("UrlInfoAbout"))", R"(RegQueryValueExW("UrlInfoAbout"))"}));
    ExpectKeysClosed(1);
}

TEST_F(AboutAddress, TheStoredAddressShowsAsTheLink) {
    Install(u"https://www.example.org/a?b=c&d");
    Load();
    EXPECT_TRUE(At(u"lblWeb").Visible());
    EXPECT_EQ(CaptionOf(u"lblWeb"), "https://www.example.org/a?b=c&d");
}

TEST_F(AboutAddress, WithoutAnUninstallRecordThereIsNoLink) {
    Load();
    ExpectNoAddress();
    EXPECT_EQ(world.calls.Count("RegQueryValueExW"), 0U);
    ExpectKeysClosed(0);
}

TEST_F(AboutAddress, ARecordWithoutAnAddressHasNoLink) {
    world.registry.Create(kUninstallKey)
        .Set(u"DisplayName", platform::registry_type::kString, practice::TextData(u"Kestrelmoor"));
    Load();
    ExpectNoAddress();
    ExpectKeysClosed(1);
}

TEST_F(AboutAddress, AnAddressThatIsNoStringIsNoLink) {
    const std::pair<std::uint32_t, practice::Bytes> values[] = {
        {platform::registry_type::kDword, practice::NumberData(7)},
        {platform::registry_type::kBinary, practice::TextData(kAddress)},
        {platform::registry_type::kMultiString, kTwoTexts},
        {platform::registry_type::kNone, practice::TextData(kAddress)},
        {platform::registry_type::kString, {}}};
    for (const auto& [type, data] : values) {
        SCOPED_TRACE(type);
        world.calls.Clear();
        Record(type, data);
        Load();
        ExpectNoAddress();
        ExpectKeysClosed(1);
        ExpectHands(1);
        form->Unload();
    }
}

TEST_F(AboutAddress, AStringWithVariablesIsAnAddressToo) {
    world.machine.environment = {{u"SITE", u"www.example.org"}};
    Record(platform::registry_type::kExpandString, practice::TextData(u"https://%SITE%/"));
    Load();
    EXPECT_TRUE(At(u"lblWeb").Visible());
    EXPECT_EQ(CaptionOf(u"lblWeb"), "https://www.example.org/");
}

TEST_F(AboutAddress, AnEmptyAddressIsALinkThatOpensNothing) {
    Install(u"");
    Open();
    EXPECT_TRUE(At(u"lblWeb").Visible());
    At(u"lblWeb").MousePressed(1, 0, 0, 0);
    EXPECT_EQ(Opened(), Lines{});
}

TEST_F(AboutAddress, ARecordThatCantBeOpenedHasNoLink) {
    Install();
    world.Fail("RegOpenKeyExW", 5);
    Load();
    ExpectNoAddress();
    ExpectKeysClosed(0);
}

TEST_F(AboutAddress, ARecordThatMayNotBeReadHasNoLink) {
    Install();
    world.registry.Find(kUninstallKey)->refuses_reading = true;
    Load();
    ExpectNoAddress();
    ExpectKeysClosed(0);
}

TEST_F(AboutAddress, AnAddressThatCantBeReadIsNoLinkAndTheKeyIsClosed) {
    Install();
    world.Fail("RegQueryValueExW", 6);
    Load();
    ExpectNoAddress();
    ExpectKeysClosed(1);
}

TEST_F(AboutAddress, TheKeyIsClosedEvenWhereTheValueIsBeyondReading) {
    Record(platform::registry_type::kMultiString, {0, 0}); // a list without room for its own terminator
    Make();
    EXPECT_EQ(RaisedNumber([this] { Load(); }), 5);
    ExpectKeysClosed(1);
}

TEST_F(AboutAddress, TheLinkIsHiddenBeforeTheRecordIsOpened) {
    Install();
    int looks = 0;
    Make();
    world.calls.Before("RegOpenKeyExW", [&] {
        ++looks;
        EXPECT_FALSE(At(u"lblWeb").Visible());
    });
    Load();
    EXPECT_EQ(looks, 1);
}

TEST_F(AboutAddress, TheHandIsLoadedAndMadeAPictureThatOwnsItWhileTheKeyIsOpen) {
    Install();
    SayNoTranslator();
    Load();
    const Lines calls = CallsOf(
        {"RegOpenKeyExW", "RegQueryValueExW", "LoadCursorW", "OleCreatePictureIndirect", "RegCloseKey"});
    ASSERT_EQ(calls.size(), 6U);
    EXPECT_EQ(calls[3], R"(LoadCursorW("32649"))");
    EXPECT_EQ(calls[4], "OleCreatePictureIndirect(\"20\", \"3\", \"" +
                            std::to_string(At(u"lblWeb").MouseIcon()->Handle()) + "\", \"1\")");
    EXPECT_EQ(calls[5], "RegCloseKey()");
    ExpectHand(u"lblWeb");
}

TEST_F(AboutAddress, OneHandServesBothLinks) {
    Install();
    Load();
    ExpectHand(u"lblWeb");
    EXPECT_EQ(At(u"lblLocWeb").MouseIcon(), At(u"lblWeb").MouseIcon());
    ExpectHands(1);
}

TEST_F(AboutAddress, WithoutAnAddressTheTranslatorsLinkGetsAHandOfItsOwn) {
    Load();
    ExpectHand(u"lblLocWeb");
    ExpectHands(1);
    EXPECT_EQ(CallsOf({"LoadCursorW", "OleCreatePictureIndirect"}),
              (Lines{R"(LoadCursorW("32649"))", "OleCreatePictureIndirect(\"20\", \"3\", \"" +
                                                    std::to_string(At(u"lblLocWeb").MouseIcon()->Handle()) +
                                                    "\", \"1\")"}));
    ExpectStoredPointer(u"lblWeb");
}

TEST_F(AboutAddress, WithNeitherLinkNoHandIsLoaded) {
    SayNoTranslator();
    Load();
    EXPECT_FALSE(At(u"lblLocWeb").Visible());
    ExpectHands(0);
    ExpectStoredPointer(u"lblWeb");
    ExpectStoredPointer(u"lblLocWeb");
}

TEST_F(AboutAddress, AHiddenTranslatorsLinkKeepsTheStoredPointer) {
    Install();
    SayNoTranslator();
    Load();
    ExpectStoredPointer(u"lblLocWeb");
    ExpectHands(1);
}

TEST_F(AboutAddress, BeforeWindows2000BothLinksKeepTheStoredPointer) {
    for (const bool installed : {false, true}) {
        if (installed)
            Install();
        gWinVersion = kLastNT4;
        Load();
        EXPECT_EQ(At(u"lblWeb").Visible(), installed);
        EXPECT_TRUE(At(u"lblLocWeb").Visible());
        ExpectHands(0);
        ExpectStoredPointer(u"lblWeb");
        ExpectStoredPointer(u"lblLocWeb");
        form->Unload();
    }
}

TEST_F(AboutAddress, FromWindows2000OnBothLinksHaveTheHand) {
    Install();
    gWinVersion = 0x25000000;
    Load();
    ExpectHand(u"lblWeb");
    ExpectHand(u"lblLocWeb");
}

TEST_F(AboutAddress, AHandThatCantBeLoadedLeavesTheStoredPointer) {
    Install();
    world.Fail("LoadCursorW", 1814, 0);
    Load();
    EXPECT_TRUE(At(u"lblWeb").Visible());
    EXPECT_EQ(world.calls.Count("OleCreatePictureIndirect"), 0U);
    ExpectStoredPointer(u"lblWeb");
    ExpectStoredPointer(u"lblLocWeb");
    ExpectKeysClosed(1);
}

TEST_F(AboutAddress, AHandThatCantBeMadeAPictureLeavesTheStoredPointer) {
    Install();
    world.Fail("OleCreatePictureIndirect", 0x80004005, 0);
    Load();
    EXPECT_TRUE(At(u"lblWeb").Visible());
    EXPECT_TRUE(At(u"lblLocWeb").Visible());
    ExpectStoredPointer(u"lblWeb");
    ExpectStoredPointer(u"lblLocWeb");
    ExpectKeysClosed(1);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutAddress, TheHandGoesWithTheLastLinkThatShowsIt) {
    Install();
    Load();
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), 1U);
    At(u"lblWeb").SetMouseIcon(nullptr);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), 1U);
    At(u"lblLocWeb").SetMouseIcon(nullptr);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), 0U);
}

TEST_F(AboutAddress, NothingIsLeftOfAWindowThatIsGone) {
    Install();
    Open();
    form->UpdateUI();
    CloseAndDrop();
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

} // namespace kestrelmoor::tests
