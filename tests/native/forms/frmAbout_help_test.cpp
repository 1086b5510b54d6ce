#include "tests/native/forms/password_window.h"
#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

std::string OpeningFor(const Form& form, const String& file) {
    return "ShellExecuteW(\"" + std::to_string(form.Window()) + "\", \"open\", \"" + ToUtf8(file) +
           "\", \"1\")";
}

class PasswordHelp : public PasswordWindow {
  protected:
    void OpenWithHelp() {
        world.files.CreateFile(kHelp);
        Open();
        ASSERT_EQ(gHelpFile, kHelp);
    }

    static constexpr char16_t kHelp[] = u"C:\\Program Files\\Kestrelmoor\\Help-1033.html";
};

using SettingsHelp = SettingsWindow;

} // namespace

TEST_F(PasswordHelp, F1OpensTheHelpFileForThePasswordWindowAndGoesNoFurther) {
    OpenWithHelp();
    std::vector<int> keys;
    Box(u"txtOldPass").KeyDown = [&keys](int& code, int) { keys.push_back(code); };
    EXPECT_TRUE(form->KeyDown(key::kF1, 0));
    EXPECT_EQ(CallsOf({"ShellExecuteW"}), Lines{OpeningFor(*form, kHelp)});
    EXPECT_EQ(keys, std::vector<int>{});
}

TEST_F(PasswordHelp, F1WithoutAHelpFileOpensNothingAndGoesNoFurther) {
    Open();
    ASSERT_EQ(gHelpFile, u"");
    std::vector<int> keys;
    Box(u"txtOldPass").KeyDown = [&keys](int& code, int) { keys.push_back(code); };
    EXPECT_TRUE(form->KeyDown(key::kF1, 0));
    EXPECT_EQ(world.calls.Count("ShellExecuteW"), 0U);
    EXPECT_EQ(keys, std::vector<int>{});
}

TEST_F(PasswordHelp, AnotherKeyOpensNothing) {
    OpenWithHelp();
    for (const int code : {key::kF1 - 1, key::kF1 + 1})
        user.Press(code);
    EXPECT_EQ(world.calls.Count("ShellExecuteW"), 0U);
}

TEST_F(PasswordHelp, AHelpFileThatCantBeOpenedIsNoMatter) {
    OpenWithHelp();
    world.Fail("ShellExecuteW", 31);
    user.Press(key::kF1);
    EXPECT_EQ(world.calls.Count("ShellExecuteW"), 1U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(SettingsHelp, TheHelpButtonOpensTheHelpFileForTheSettings) {
    Open();
    Click(u"cmdHelp");
    EXPECT_EQ(CallsOf({"ShellExecuteW"}),
              Lines{OpeningFor(*form, u"C:\\Program Files\\Kestrelmoor\\help.html")});
}

TEST_F(SettingsHelp, AHelpFileThatIsGoneByThenIsNotOpened) {
    Open();
    gHelpFile.clear();
    Click(u"cmdHelp");
    EXPECT_EQ(world.calls.Count("ShellExecuteW"), 0U);
}

} // namespace kestrelmoor::tests
