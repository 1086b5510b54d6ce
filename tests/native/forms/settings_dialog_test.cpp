#include "forms/about/open_help.h"
#include "forms/about/show_about.h"
#include "forms/settings/frmSettings.h"
#include "tests/native/forms/password_window.h"

#include <functional>

namespace kestrelmoor::tests {

namespace {

Form* SettingsForm() {
    for (const auto& form : Application::Current().Forms())
        if (form->Name() == u"frmSettings")
            return form.get();
    return nullptr;
}

/// The settings as the password window opens them, with a person who does something in them.
class SettingsDialog : public PasswordWindow {
  protected:
    SettingsDialog() {
        ConfigureAll();
        gReminderTime = 1209600;
        // The default library speaks for the program while its languages are asked for, and so refuses to be
        // put away again.
        modules_left = 1;
        Open();
    }

    void Visit(std::function<void(Form&)> person) {
        bool visited = false;
        world.actions.Queue([&, person] {
            visited = true;
            Form* const settings = SettingsForm();
            ASSERT_NE(settings, nullptr);
            person(*settings);
        });
        ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
        EXPECT_TRUE(visited);
    }

    void Click(Form& settings, StringView name) { ASSERT_TRUE(user.ClickOn(settings.Find(name))); }
};

int help_window_calls = 0;
WindowHandle help_window = 0;
int about_calls = 0;

} // namespace

TEST_F(SettingsDialog, StandsModallyOverThePasswordWindow) {
    Visit([&](Form& settings) {
        EXPECT_EQ(settings.Owner(), form.get());
        EXPECT_TRUE(settings.Visible());
        EXPECT_FALSE(form->InputEnabled());
        EXPECT_FALSE(user.ClickOn(At(u"cmdCancel")));
        Click(settings, u"cmdCancel");
    });
    EXPECT_EQ(SettingsForm(), nullptr);
    EXPECT_TRUE(form->InputEnabled());
    EXPECT_EQ(Application::Current().ActiveForm(), form.get());
}

TEST_F(SettingsDialog, NewTargetsAreInThePasswordWindowsListAfterOk) {
    Visit([&](Form& settings) {
        user.ChooseRow(settings.Get<ListBox>(u"lstServers"), 1);
        Click(settings, u"cmdRemServer");
        Click(settings, u"cmdAddServer");
        user.Type(u"\\\\SPARE");
        Click(settings, u"cmdOK");
    });
    EXPECT_EQ(Rows(), (Lines{" This computer", "\\\\ARCHIVE", "\\\\SPARE"}));
}

TEST_F(SettingsDialog, CancelLeavesThePasswordWindowsList) {
    Visit([&](Form& settings) {
        Click(settings, u"chkLocalPass");
        user.Press(key::kEscape);
    });
    EXPECT_EQ(Rows(), (Lines{" This computer", "\\\\ARCHIVE", "PRACTICE"}));
}

TEST_F(SettingsDialog, AnotherLanguageChangesThePasswordWindow) {
    world.libraries.Put(ScriptedLanguage(1031));
    world.files.current_directory = u"C:\\Program Files\\Kestrelmoor";
    Visit([&](Form& settings) {
        auto& languages = settings.Get<ComboBox>(u"cbLang");
        ASSERT_EQ(languages.ListCount(), 3);
        ASSERT_EQ(languages.ItemData(2), 1031);
        user.ChooseRow(languages, 2);
        EXPECT_EQ(form->Caption(), u"Change Password") << "not before the window has closed";
        Click(settings, u"cmdOK");
    });
    EXPECT_EQ(gLangID, 1031);
    EXPECT_EQ(form->Caption(), u"text 303");
}

TEST_F(SettingsDialog, EachOpeningShowsWhatHolds) {
    const auto visit = [&](const char16_t* shown, const char16_t* typed, const char16_t* button) {
        Visit([&](Form& settings) {
            EXPECT_EQ(settings.Get<TextBox>(u"txtRemind").Text(), shown);
            EXPECT_FALSE(settings.Find(u"cmdOK").Enabled());
            settings.Get<TextBox>(u"txtRemind").SetText(typed);
            Click(settings, button);
        });
    };
    visit(u"14", u"3", u"cmdOK");
    visit(u"3", u"5", u"cmdCancel");
    visit(u"3", u"4", u"cmdOK");
    EXPECT_EQ(gReminderTime, 345600);
    modules_left = 3; // the language library is asked for its languages each time, and does not agree to go
}

TEST_F(SettingsDialog, KeysShowItsCuesAndTheMouseHidesThem) {
    Visit([&](Form& settings) {
        user.MoveMouse(0, 0);
        user.MoveMouse(1000, 1000);
        EXPECT_EQ(settings.Find(u"lblLang").Caption(), u"Language:");
        user.Press(key::kTab);
        EXPECT_EQ(settings.Find(u"lblLang").Caption(), u"&Language:");
        user.MoveMouse(1100, 1100);
        EXPECT_EQ(settings.Find(u"lblLang").Caption(), u"Language:");
        settings.Unload();
    });
}

TEST_F(SettingsDialog, AcceleratorsLeadToWhatTheyMark) {
    Visit([&](Form& settings) {
        user.Press('L', key::kAltMask);
        EXPECT_EQ(settings.ActiveControl(), &settings.Find(u"cbLang"));
        user.Press('S', key::kAltMask);
        EXPECT_EQ(settings.ActiveControl(), &settings.Find(u"lstServers"));
        user.Press('M', key::kAltMask);
        EXPECT_EQ(settings.ActiveControl(), &settings.Find(u"chkRemind"));
        user.Press('A', key::kAltMask);
        EXPECT_EQ(settings.ActiveControl(), &settings.Find(u"ucAddComp"));
        settings.Unload();
    });
}

TEST_F(SettingsDialog, HelpIsAskedForFromItsWindow) {
    const auto open_help = OpenHelp;
    OpenHelp = [](WindowHandle window) {
        ++help_window_calls;
        help_window = window;
    };
    help_window_calls = 0;
    gHelpFile = u"C:\\help.html";
    Visit([&](Form& settings) {
        Click(settings, u"cmdHelp");
        EXPECT_EQ(help_window, settings.Window());
        EXPECT_TRUE(settings.IsLoaded());
        EXPECT_FALSE(settings.Find(u"cmdOK").Enabled());
        settings.Unload();
    });
    OpenHelp = open_help;
    EXPECT_EQ(help_window_calls, 1);
}

TEST_F(SettingsDialog, AboutIsShownAndIsNoChange) {
    const auto show_about = ShowAbout;
    ShowAbout = [] { ++about_calls; };
    about_calls = 0;
    Visit([&](Form& settings) {
        Click(settings, u"cmdAbout");
        EXPECT_TRUE(settings.IsLoaded());
        EXPECT_FALSE(settings.Find(u"cmdOK").Enabled());
        settings.Unload();
    });
    ShowAbout = show_about;
    EXPECT_EQ(about_calls, 1);
}

TEST_F(SettingsDialog, EveryEnglishTextHasRoomInItsControl) {
    Visit([&](Form& settings) {
        // Six pixels of 15 twips a character, and a mark ahead of a check box.
        for (const auto& control : settings.Controls()) {
            if (!control->HasCaption() || control->Kind() == ControlKind::Frame)
                continue;
            const Twips mark = control->Kind() == ControlKind::CheckBox ? 255 : 0;
            EXPECT_LE(static_cast<Twips>(control->Caption().size()) * 90 + mark, control->Width())
                << ToUtf8(control->Name());
        }
        settings.Unload();
    });
}

} // namespace kestrelmoor::tests
