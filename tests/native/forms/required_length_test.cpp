#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

/// The stock world asks for 4 characters on the local computer, 6 on \\ARCHIVE and 8 in PRACTICE.
class RequiredLength : public PasswordWindow {
  protected:
    void OpenWith(const StringList& servers, bool local) {
        Configure(servers, local);
        Open();
        TypeInto(u"txtOldPass", kOldPassword);
    }

    /// Types a new password of so many characters twice and clicks on OK.
    void TryNew(std::size_t length) {
        const String password = u"N-1" + String(length - 3, u'x');
        TypeInto(u"txtNewPass", password);
        TypeInto(u"txtConfirm", password);
        ClickOk();
    }

    std::string NewAndConfirm() {
        return ToUtf8(Box(u"txtNewPass").Text()) + "/" + ToUtf8(Box(u"txtConfirm").Text());
    }
};

ShownBox TooShort(const std::string& length) {
    return Exclamation("The new password must be at least " + length +
                       " long. Please type a longer one twice.");
}

} // namespace

TEST_F(RequiredLength, ANewPasswordOneCharacterShortIsToldAndTheRightLengthIsAccepted) {
    OpenWith({u"PRACTICE"}, false);
    TryNew(7);
    EXPECT_EQ(Boxes(), std::vector{TooShort("8 characters")});
    EXPECT_EQ(ChangedServers(), Lines{});
    TryNew(8);
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(ChangedServers(), Lines{"\\\\DC1"});
}

TEST_F(RequiredLength, IsTheGreatestOfAllTargets) {
    OpenWith({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    TryNew(7);
    EXPECT_EQ(Boxes(), std::vector{TooShort("8 characters")});
}

TEST_F(RequiredLength, OfTheLocalComputerIsAskedOfItself) {
    OpenWith({}, true);
    TryNew(3);
    EXPECT_EQ(Boxes(), std::vector{TooShort("4 characters")});
}

TEST_F(RequiredLength, OfOneIsToldInTheSingular) {
    world.network.FindComputer(u"ARCHIVE")->store.policy.min_length = 1;
    OpenWith({u"\\\\ARCHIVE"}, false);
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{TooShort("1 character")});
}

TEST_F(RequiredLength, IsNotAskedForWhereTheConfirmationDiffers) {
    OpenWith({u"PRACTICE"}, false);
    TypeInto(u"txtNewPass", u"a");
    TypeInto(u"txtConfirm", u"b");
    world.calls.Clear();
    ClickOk();
    EXPECT_EQ(Boxes(),
              std::vector{Exclamation(
                  "The new password and its confirmation are not the same. Please type both again.")});
    EXPECT_EQ(world.calls.Count("NetUserModalsGet"), 0U);
}

TEST_F(RequiredLength, ATargetThatCantBeAskedSetsNone) {
    OpenWith({u"\\\\NOWHERE"}, false);
    TryNew(3);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(ChangedServers(), Lines{"\\\\NOWHERE"});
}

TEST_F(RequiredLength, AnEmptyNewPasswordIsToldAndOkStaysEnabledWithoutAChange) {
    OpenWith({u"PRACTICE"}, false);
    int changes = 0;
    Box(u"txtNewPass").Change = [&changes] { ++changes; };
    ClickOk();
    EXPECT_EQ(Boxes(), std::vector{TooShort("8 characters")});
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(At(u"cmdOK").Enabled());
}

TEST_F(RequiredLength, ARefusalEmptiesBothBoxesAndKeepsTheOldPassword) {
    OpenWith({u"PRACTICE"}, false);
    TryNew(7);
    EXPECT_EQ(NewAndConfirm(), "/");
    EXPECT_EQ(Box(u"txtOldPass").Text(), kOldPassword);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    EXPECT_TRUE(At(u"cmdOK").Enabled());
    EXPECT_EQ(form->MousePointer(), 0);
}

TEST_F(RequiredLength, IsAskedForAtEveryClickOfEveryTarget) {
    OpenWith({u"\\\\ARCHIVE", u"PRACTICE"}, true);
    for (int click = 0; click < 2; ++click) {
        world.calls.Clear();
        TryNew(7);
        EXPECT_EQ(world.calls.Count("NetUserModalsGet"), 3U) << click;
    }
}

TEST_F(RequiredLength, AWindowClosedWhileItIsAskedForShowsNoBox) {
    OpenWith({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    world.calls.Before("NetUserModalsGet", [this] { user.CloseWindow(*form); });
    TryNew(3);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_EQ(ChangedServers(), Lines{});
    EXPECT_EQ(form->Caption(), u"Change Password");
}

} // namespace kestrelmoor::tests
