#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class PasswordSettings : public PasswordWindow {
  protected:
    PasswordSettings() {
        ConfigureAll();
        world.libraries.Put(ScriptedLanguage(1031));
        Open();
    }

    void Visit(void (*show)(Form& owner)) {
        ShowSettings = show;
        ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
    }

    static void ChooseGerman(Form&) { gLangID = 1031; }
};

Form* seen_owner = nullptr;

} // namespace

TEST_F(PasswordSettings, OpenOverTheWindow) {
    seen_owner = nullptr;
    Visit([](Form& owner) { seen_owner = &owner; });
    EXPECT_EQ(seen_owner, form.get());
}

TEST_F(PasswordSettings, NewTargetsAreListedAfterwards) {
    Visit([](Form&) { Configure({u"\\\\SPARE"}, true); });
    EXPECT_EQ(Rows(), (Lines{" This computer", "\\\\SPARE"}));
}

TEST_F(PasswordSettings, TheListIsLoadedAnewEvenWhenNothingChanged) {
    List().AddItem(u"\\\\STRAY");
    Visit([](Form&) {});
    EXPECT_EQ(Rows(), (Lines{" This computer", "\\\\ARCHIVE", "PRACTICE"}));
}

TEST_F(PasswordSettings, WithOneTargetLeftTheListModeIsNotOffered) {
    Visit([](Form&) { Configure({}, true); });
    EXPECT_FALSE(Same().Enabled());
}

TEST_F(PasswordSettings, WhatWasTypedSurvives) {
    TypePasswords(u"before", u"after");
    Visit([](Form&) { Configure({u"PRACTICE"}, false); });
    EXPECT_EQ(Box(u"txtOldPass").Text(), u"before");
    EXPECT_EQ(Box(u"txtNewPass").Text(), u"after");
    EXPECT_EQ(Box(u"txtConfirm").Text(), u"after");
    EXPECT_TRUE(At(u"cmdOK").Enabled());
}

TEST_F(PasswordSettings, TheSameLanguageLoadsNoLibrary) {
    world.calls.Clear();
    Visit([](Form&) {});
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 0U);
    EXPECT_EQ(form->Caption(), u"Change Password");
}

TEST_F(PasswordSettings, AnotherLanguageChangesEveryTextAtOnce) {
    Visit(ChooseGerman);
    EXPECT_EQ(form->Caption(), u"text 303");
    EXPECT_EQ(CaptionOf(u"lblUser"), "text 304");
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "text 301");
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "text 314");
    EXPECT_EQ(CaptionOf(u"lblConfirm"), "text 315");
    EXPECT_EQ(CaptionOf(u"lblWait"), "");
    EXPECT_EQ(Same().Caption(), u"text 313");
    EXPECT_EQ(CaptionOf(u"cmdSettings"), "text 305");
    EXPECT_EQ(CaptionOf(u"cmdOK"), "text 1001");
    EXPECT_EQ(CaptionOf(u"cmdCancel"), "text 1002");
    EXPECT_EQ(Rows(), (Lines{" text 321", "\\\\ARCHIVE", "PRACTICE"}));
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(PasswordSettings, AnotherLanguageBringsItsFontAndItsHelpFile) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\scripted.html");
    Visit(ChooseGerman);
    EXPECT_EQ(form->Font().Name(), u"Scripted Sans");
    EXPECT_EQ(form->Font().Charset(), 204);
    for (const auto& control : form->Controls())
        EXPECT_EQ(control->Font().Name(), u"Scripted Sans") << ToUtf8(control->Name());
    EXPECT_EQ(gHelpFile, u"C:\\Program Files\\Kestrelmoor\\scripted.html");
}

TEST_F(PasswordSettings, AnotherLanguageKeepsTheCuesAsTheyAre) {
    world.calls.Clear();
    Visit(ChooseGerman);
    ASSERT_EQ(world.calls.Count("SendUpdateUiState"), 1U);
    EXPECT_EQ(world.calls.Of("SendUpdateUiState")[0].arguments.at(1), u"196609");
    form->ICue_Cue();
    world.calls.Clear();
    Visit([](Form&) { gLangID = 0x409; });
    ASSERT_EQ(world.calls.Count("SendUpdateUiState"), 1U);
    EXPECT_EQ(world.calls.Of("SendUpdateUiState")[0].arguments.at(1), u"196610");
    EXPECT_EQ(CaptionOf(u"lblNewPass"), "&New password:");
}

TEST_F(PasswordSettings, AnotherLanguageLeavesTheLayoutAlone) {
    Visit(ChooseGerman);
    EXPECT_EQ(form->ClientHeight(), 2775);
    EXPECT_EQ(At(u"txtNewPass").Top(), 1440);
    EXPECT_EQ(At(u"cmdOK").Top(), 2280);
}

TEST_F(PasswordSettings, InTheListModeTheOldPasswordLabelFallsBackToItsOwnNumber) {
    Same().SetValue(0);
    Visit(ChooseGerman);
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "text 301");
    Same().SetValue(1);
    Same().SetValue(0);
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "text 302");
}

TEST_F(PasswordSettings, ALanguageThatCantBeBroughtUpIsToldAndClosesTheWindow) {
    world.libraries.Remove(u"C:\\Program Files\\Kestrelmoor\\1031.loc");
    world.libraries.Remove(u"C:\\Program Files\\Kestrelmoor\\default.loc");
    List().AddItem(u"\\\\STRAY");
    Visit(ChooseGerman);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(gLocalizer, nullptr);
    EXPECT_TRUE(Application::Current().Forms().empty());
    EXPECT_EQ(Boxes(), std::vector{Exclamation("Localization library not found.")});
    EXPECT_EQ(List().ListCount(), 4) << "the targets are not loaded into a window that is gone";
    Application::Current().Run();
}

TEST_F(PasswordSettings, AWindowThatIsGoneWhenTheyCloseIsLeftAlone) {
    world.calls.Clear();
    Visit([](Form& owner) {
        gLangID = 1031;
        owner.Unload();
    });
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 0U);
    EXPECT_EQ(form->Caption(), u"Change Password");
}

} // namespace kestrelmoor::tests
