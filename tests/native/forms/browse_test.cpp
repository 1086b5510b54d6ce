#include "tests/native/forms/browse_network.h"

namespace kestrelmoor::tests {

namespace {

using practice::BrowseDialog;

constexpr char16_t kPrompt[] = u"Choose one:";

class Browse : public BrowseNetwork {
  protected:
    /// What the browse gives when a person does this in its dialog.
    template <class Person>
    std::string Pick(Person person) {
        bool came = false;
        world.browser.Next([&](BrowseDialog& dialog) {
            came = true;
            person(dialog);
        });
        const std::string picked = ToUtf8(BrowseForComputer(kBrowseOwner, kPrompt));
        EXPECT_TRUE(came) << "no dialog";
        return picked;
    }
    std::string PickOf(const StringList& names) {
        return Pick([&](BrowseDialog& dialog) {
            EXPECT_TRUE(dialog.Select(names));
            EXPECT_TRUE(dialog.PressOk());
        });
    }
};

} // namespace

TEST_F(Browse, AComputerIsItsNameBehindTwoBackslashes) {
    EXPECT_EQ(PickOf({u"ARCHIVE"}), "\\\\ARCHIVE");
    EXPECT_EQ(PickOf({u"Whole", u"PRACTICE", u"DC1"}), "\\\\DC1");
}

TEST_F(Browse, ADomainOrAWorkgroupIsItsPlainName) {
    EXPECT_EQ(PickOf({u"GROUP"}), "GROUP");
    EXPECT_EQ(PickOf({u"Whole", u"PRACTICE"}), "PRACTICE");
}

TEST_F(Browse, ACancelledDialogGivesNothing) {
    EXPECT_EQ(Pick([](BrowseDialog&) {}), "");
    EXPECT_EQ(Pick([](BrowseDialog& dialog) {
                  dialog.Select(StringList{u"ARCHIVE"});
                  dialog.Cancel();
              }),
              "");
}

TEST_F(Browse, OkIsEnabledForADomainOrAComputerAndForNothingElse) {
    Pick([](BrowseDialog& dialog) {
        EXPECT_FALSE(dialog.OkEnabled()) << "the root";
        const std::pair<StringList, bool> picks[] = {
            {{u"Whole"}, false},          {{u"Whole", u"PRACTICE"}, true},
            {{u"ARCHIVE"}, true},         {{u"ARCHIVE", u"Shelf"}, false},
            {{u"Printer"}, false},        {{u"GROUP"}, true},
            {{u"LONELY"}, false},         {{u"SPARE"}, true},
            {{u"Whole", u"DEEP"}, false}, {{}, false}};
        for (const auto& [names, enabled] : picks) {
            ASSERT_TRUE(dialog.Select(names));
            EXPECT_EQ(dialog.OkEnabled(), enabled) << ToUtf8(Join(names, u'/'));
        }
    });
}

TEST_F(Browse, ThePromptShowsThePickBehindThreeBlanks) {
    Pick([](BrowseDialog& dialog) {
        EXPECT_EQ(dialog.Prompt(), u"Choose one:");
        dialog.Select(StringList{u"ARCHIVE"});
        EXPECT_EQ(dialog.Prompt(), u"Choose one:   \\\\ARCHIVE");
        dialog.Select(StringList{u"GROUP"});
        EXPECT_EQ(dialog.Prompt(), u"Choose one:   GROUP");
    });
}

TEST_F(Browse, WhatCantBePickedLeavesThePromptAsItWas) {
    Pick([](BrowseDialog& dialog) {
        dialog.Select(StringList{u"Whole"});
        EXPECT_EQ(dialog.Prompt(), u"Choose one:");
        dialog.Select(StringList{u"ARCHIVE"});
        dialog.Select(StringList{u"Whole"});
        EXPECT_EQ(dialog.Prompt(), u"Choose one:   \\\\ARCHIVE");
    });
}

TEST_F(Browse, WithoutAControlForThePromptThePickIsNotShownAndAllElseWorks) {
    world.browser.shows_prompt = false;
    EXPECT_EQ(PickOf({u"ARCHIVE"}), "\\\\ARCHIVE");
    EXPECT_EQ(gBrowsePrompt, 0U);
}

TEST_F(Browse, TheDialogIsAskedForOverItsOwnerWithThePromptItsOneFlagAndRoomForAName) {
    Pick([](BrowseDialog&) {});
    EXPECT_EQ(CallsOf({"SHGetSpecialFolderLocation", "SHBrowseForFolderW"}),
              (Lines{R"(SHGetSpecialFolderLocation("77", "18"))",
                     R"(SHBrowseForFolderW("77", "Choose one:", "4096", "0", "260"))"}));
}

TEST_F(Browse, TheAllocatorComesBehindTheRootAndGoesLast) {
    Pick([](BrowseDialog&) {});
    const Lines names = Names();
    ASSERT_GE(names.size(), 4U);
    EXPECT_EQ(names[0], "SHGetSpecialFolderLocation");
    EXPECT_EQ(names[1], "SHGetMalloc");
    EXPECT_EQ(names[names.size() - 2], "IMalloc::Free");
    EXPECT_EQ(names[names.size() - 1], "IMalloc::Release");
    EXPECT_EQ(world.calls.Count("SHGetMalloc"), 1U);
}

TEST_F(Browse, EachListIsFreedOnceAndEveryFolderIsLeft) {
    for (const StringList& names :
         std::vector<StringList>{{u"ARCHIVE"}, {u"GROUP"}, {u"SPARE"}, {u"Whole", u"PRACTICE", u"DC1"}}) {
        PickOf(names);
        EXPECT_EQ(world.OutstandingHandles(), 0U) << ToUtf8(Join(names, u'/'));
        EXPECT_EQ(world.handles.WrongReleases(), 0U) << ToUtf8(Join(names, u'/'));
    }
    EXPECT_FALSE(gShellMalloc);
    EXPECT_FALSE(gNetworkRoot);
}

TEST_F(Browse, AnItemOfItsOwnKindIsEmptyEvenWhenTheDialogAcceptsIt) {
    EXPECT_EQ(Pick([](BrowseDialog& dialog) {
                  dialog.Select(StringList{u"Printer"});
                  dialog.EnableOk(true);
                  EXPECT_TRUE(dialog.PressOk());
              }),
              "");
}

TEST_F(Browse, ANetworkFolderThatCantBeHadRaisesItsCode) {
    world.Fail("SHGetSpecialFolderLocation", kUnspecified);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([] { BrowseForComputer(kBrowseOwner, kPrompt); })),
              kUnspecified);
    EXPECT_EQ(world.calls.Count("SHGetMalloc"), 0U);
}

TEST_F(Browse, WithoutANetworkFolderTheNetworkIsNotInstalled) {
    world.shell.network_present = false;
    const auto error = Raised([] { BrowseForComputer(kBrowseOwner, kPrompt); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x8004041AU);
    EXPECT_EQ(error->description(), u"Network not installed.");
    EXPECT_EQ(world.calls.Count("SHBrowseForFolderW"), 0U);
}

TEST_F(Browse, AnAllocatorThatCantBeHadRaisesItsCode) {
    world.Fail("SHGetMalloc", kUnspecified);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([] { BrowseForComputer(kBrowseOwner, kPrompt); })),
              kUnspecified);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST_F(Browse, ADesktopFolderThatCantBeHadRaisesItsCodeAndEverythingIsGivenBack) {
    world.Fail("SHGetDesktopFolder", kUnspecified, 0);
    world.browser.Next([](BrowseDialog& dialog) { dialog.Select(StringList{u"ARCHIVE"}); });
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([] { BrowseForComputer(kBrowseOwner, kPrompt); })),
              kUnspecified);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

TEST_F(Browse, AStartPathLosesItsBackslashUnlessItIsShort) {
    Begin();
    const std::pair<const char16_t*, const char16_t*> paths[] = {{u"", u""},
                                                                 {u"C:\\", u"C:\\"},
                                                                 {u"C:\\Lang\\", u"C:\\Lang"},
                                                                 {u"C:\\Lang", u"C:\\Lang"},
                                                                 {u"a:\\\\", u"a:\\"},
                                                                 {u"\\\\A\\", u"\\\\A"},
                                                                 {u"\\", u"\\"},
                                                                 {u"ab\\", u"ab\\"},
                                                                 {u"abc\\", u"abc"}};
    for (const auto& [path, shown] : paths) {
        String seen;
        world.browser.Next([&](BrowseDialog& dialog) { seen = dialog.StartPath(); });
        BrowseForFolder(kBrowseOwner, kPrompt, 4096, path, gNetworkRoot.Get());
        EXPECT_EQ(seen, shown) << ToUtf8(path);
    }
}

TEST_F(Browse, OtherFlagsArePassedOn) {
    Begin();
    world.browser.Next([](BrowseDialog&) {});
    BrowseForFolder(5, u"Other", 65, {}, gNetworkRoot.Get());
    EXPECT_EQ(CallsOf({"SHBrowseForFolderW"}),
              Lines{R"(SHBrowseForFolderW("5", "Other", "65", "0", "260"))"});
}

} // namespace kestrelmoor::tests
