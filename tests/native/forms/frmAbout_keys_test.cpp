#include "forms/about/open_help.h"
#include "tests/native/forms/about_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr int kF2 = 113;

class AboutKeys : public AboutWindow {
  protected:
    /// Opens the window with a listener on the button that has the focus.
    void OpenListening() {
        Open();
        ASSERT_EQ(form->ActiveControl(), &At(u"cmdOK"));
        At(u"cmdOK").KeyDown = [this](int& code, int) { keys.push_back(code); };
    }

    std::vector<int> keys;
};

} // namespace

TEST_F(AboutKeys, F1OpensTheHelpFileForThisWindowAndGoesNoFurther) {
    OpenListening();
    EXPECT_TRUE(form->KeyDown(key::kF1, 0));
    EXPECT_EQ(Opened(), Lines{Opening(kAboutHelp)});
    EXPECT_EQ(keys, std::vector<int>{});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutKeys, F1WithoutAHelpFileDoesNothingAndGoesNoFurther) {
    gHelpFile.clear();
    OpenListening();
    EXPECT_TRUE(form->KeyDown(key::kF1, 0));
    EXPECT_EQ(Opened(), Lines{});
    EXPECT_EQ(keys, std::vector<int>{});
}

TEST_F(AboutKeys, F1IsHelpWithShiftAndCtrlToo) {
    OpenListening();
    user.Press(key::kF1, key::kShiftMask);
    user.Press(key::kF1, key::kCtrlMask);
    EXPECT_EQ(Opened(), (Lines{Opening(kAboutHelp), Opening(kAboutHelp)}));
    EXPECT_EQ(keys, std::vector<int>{});
}

TEST_F(AboutKeys, AnotherKeyReachesTheButton) {
    OpenListening();
    user.Press(kF2);
    EXPECT_EQ(Opened(), Lines{});
    EXPECT_EQ(keys, std::vector<int>{kF2});
}

TEST_F(AboutKeys, TheHelpButtonOpensTheHelpFileForThisWindow) {
    Open();
    EXPECT_TRUE(user.ClickOn(At(u"cmdHelp")));
    EXPECT_EQ(Opened(), Lines{Opening(kAboutHelp)});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutKeys, HelpCanBeAskedForExactlyWhereThereIsAHelpFile) {
    Load();
    EXPECT_TRUE(At(u"cmdHelp").Enabled());
    CloseAndDrop();
    gHelpFile.clear();
    Load();
    EXPECT_FALSE(At(u"cmdHelp").Enabled());
}

TEST_F(AboutKeys, AHelpFileThatCantBeOpenedIsNoMatter) {
    Open();
    world.Fail("ShellExecuteW", 31, 0);
    user.Press(key::kF1);
    user.ClickOn(At(u"cmdHelp"));
    EXPECT_EQ(Opened().size(), 2U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutKeys, OkEnterEscapeAndTheCloseBoxCloseTheWindow) {
    for (const int way : {0, 1, 2, 3}) {
        SCOPED_TRACE(way);
        Open();
        if (way == 0)
            user.ClickOn(At(u"cmdOK"));
        else if (way == 3)
            user.CloseWindow(*form);
        else
            user.Press(way == 1 ? key::kReturn : key::kEscape);
        EXPECT_TRUE(form->IsUnloaded());
        EXPECT_TRUE(Application::Current().Forms().empty());
    }
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutKeys, EscapeClosesFromTheHelpButtonWhereEnterAsksForHelp) {
    Open();
    user.Press(key::kTab);
    ASSERT_EQ(form->ActiveControl(), &At(u"cmdHelp"));
    user.Press(key::kReturn);
    EXPECT_EQ(Opened(), Lines{Opening(kAboutHelp)});
    EXPECT_TRUE(form->IsLoaded());
    user.Press(key::kEscape);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(AboutKeys, TabStopsAtTheTwoButtonsAlone) {
    Install();
    Open();
    Lines stops;
    for (int stop = 0; stop < 3; ++stop) {
        stops.push_back(ToUtf8(form->ActiveControl()->Name()));
        user.Press(key::kTab);
    }
    EXPECT_EQ(stops, (Lines{"cmdOK", "cmdHelp", "cmdOK"}));
    CloseAndDrop();
    gHelpFile.clear();
    Open();
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &At(u"cmdOK"));
}

TEST_F(AboutKeys, HelpIsOpenedForWhateverWindowAsks) {
    OpenHelp(77);
    EXPECT_EQ(Opened(),
              (Lines{R"(ShellExecuteW("77", "open", "C:\Program Files\Kestrelmoor\help.html", "1"))"}));
}

TEST_F(AboutKeys, WithoutAHelpFileNothingIsOpened) {
    gHelpFile.clear();
    OpenHelp(77);
    EXPECT_EQ(Names(), Lines{});
}

} // namespace kestrelmoor::tests
