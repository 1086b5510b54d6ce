#include "tests/native/forms/password_rows.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

class ListModeRun : public PasswordRows {
  protected:
    void FillNew(const String& password) {
        TypeInto(u"txtNewPass", u"x");
        Box(u"txtNewPass").SetText(password);
        Box(u"txtConfirm").SetText(password);
    }

    StringList OldMarks() {
        StringList marks;
        for (const practice::Call& call : world.calls.Of("NetUserChangePassword"))
            marks.push_back(call.arguments.at(1));
        return marks;
    }
};

} // namespace

TEST_F(ListModeRun, EachTargetIsTriedWithItsOwnOldPasswordAndAnEmptyOneWhereNoneWasTyped) {
    OpenRows();
    TypeOld(0, u"local-old");
    TypeOld(2, u"domain-old");
    FillNew(kNewPassword);
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_EQ(OldMarks(), (StringList{world.calls.MarkOf(u"local-old"), world.calls.MarkOf(u""),
                                      world.calls.MarkOf(u"domain-old")}));
}

TEST_F(ListModeRun, AnEditThatIsOpenAtTheClickTakesPart) {
    OpenRows();
    FillNew(kNewPassword);
    TypeOld(1, kOldPassword);
    user.Press(key::kReturn);
    EXPECT_EQ(OldMarks().at(1), world.calls.MarkOf(kOldPassword));
    EXPECT_NE(Status().find("\\\\ARCHIVE: The password has been changed."), std::string::npos);
}

TEST_F(ListModeRun, EqualPasswordsAreToldForTheirTargetAlone) {
    LiftPolicies();
    OpenRows();
    TypeOld(1, u"same");
    FillNew(u"same");
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\DC1"}));
}

TEST_F(ListModeRun, TheOldPasswordOfTheSingleModeIsNotUsed) {
    Open();
    TypeInto(u"txtOldPass", kOldPassword);
    ASSERT_TRUE(user.ClickOn(Same()));
    FillNew(kNewPassword);
    ClickOk();
    const StringList marks = OldMarks();
    EXPECT_EQ(std::count(marks.begin(), marks.end(), world.calls.MarkOf(u"")), 3);
}

TEST_F(ListModeRun, OldPasswordsTypedForTheRowsAreNotUsedInTheSingleMode) {
    OpenRows();
    TypeOld(0, u"row");
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_EQ(Same().Value(), 1);
    TypeInto(u"txtOldPass", kOldPassword);
    FillNew(kNewPassword);
    ClickOk();
    const StringList marks = OldMarks();
    EXPECT_EQ(std::count(marks.begin(), marks.end(), world.calls.MarkOf(kOldPassword)), 3);
}

TEST_F(ListModeRun, ScrollingTheHiddenListDuringTheRunDoesNothing) {
    OpenRows();
    TypeOld(0, kOldPassword);
    FillNew(kNewPassword);
    bool box_visible = true;
    AtPasswordCall(2, [&] {
        List().Scroll();
        box_visible = InPlace().Visible();
    });
    ClickOk();
    EXPECT_FALSE(box_visible);
    EXPECT_EQ(form->Caption(), u"Password Change Results");
}

TEST_F(ListModeRun, AWindowClosedInTheMiddleMakesNoFurtherCall) {
    OpenRows();
    TypeOld(0, kOldPassword);
    FillNew(kNewPassword);
    world.actions.Queue([this] { user.CloseWindow(*form); }, 3);
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(ChangedServers(), Lines{"\\\\WORKBENCH"});
}

TEST_F(ListModeRun, ASecondClickWhilePumpingIsNoSecondRun) {
    OpenRows();
    TypeOld(0, kOldPassword);
    FillNew(kNewPassword);
    for (const int pump : {1, 2, 3, 4})
        world.actions.Queue([this] { EXPECT_FALSE(user.ClickOn(At(u"cmdOK"))); }, pump);
    ClickOk();
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_EQ(ChangedServers().size(), 3U);
}

TEST_F(ListModeRun, PasswordsOf32000CharactersOfEveryKindGoThroughUnchanged) {
    String every;
    for (char16_t unit = 1; unit < 0xFFFF && every.size() < 31990; unit = static_cast<char16_t>(unit + 2))
        every += unit;
    every += u"\U0001F511\U0010FFFF";
    every.resize(32000, u'\u00E9');
    OpenRows();
    Edit(1);
    InPlace().SetText(every);
    const String next = every.substr(1) + u"\t";
    FillNew(next);
    EXPECT_EQ(Rows().at(1).size(),
              std::string("\\\\ARCHIVE\t").size() + 32000 * ToUtf8(gPasswordChar).size());
    ClickOk();
    ASSERT_FALSE(world.calls.MarkOf(every).empty());
    EXPECT_EQ(OldMarks().at(1), world.calls.MarkOf(every));
    EXPECT_EQ(world.calls.Of("NetUserChangePassword").at(1).arguments.at(2), world.calls.MarkOf(next));
}

TEST_F(ListModeRun, ALanguageChangedInTheListModeShowsTheSingleModesLabelUntilTheSwitch) {
    world.libraries.Put(ScriptedLanguage(1031));
    OpenRows();
    Visit([](Form&) { gLangID = 1031; });
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "text 301");
    ASSERT_EQ(Same().Value(), 0);
    user.ClickOn(Same());
    user.ClickOn(Same());
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "text 302");
}

} // namespace kestrelmoor::tests
