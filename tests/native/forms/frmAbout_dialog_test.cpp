#include "forms/about/frmAbout.h"
#include "forms/about/show_about.h"
#include "platform/practice/windows.h"
#include "tests/native/forms/about_window.h"
#include "tests/native/forms/password_window.h"

#include <algorithm>
#include <functional>

namespace kestrelmoor::tests {

namespace {

Form* LoadedForm(StringView name) {
    for (const auto& form : Application::Current().Forms())
        if (form->Name() == name)
            return form.get();
    return nullptr;
}

/// The about window as the settings open it over the password window, with a person who does something in it.
class AboutDialog : public PasswordWindow {
  protected:
    AboutDialog() {
        // The default library speaks for the program while its languages are asked for, and so refuses to be
        // put away again.
        modules_left = 1;
        Open();
    }

    void InSettings(std::function<void(Form&)> person) {
        bool been_there = false;
        world.actions.Queue([&, person] {
            Form* const settings = LoadedForm(u"frmSettings");
            ASSERT_NE(settings, nullptr);
            been_there = true;
            person(*settings);
            settings->Unload();
        });
        ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
        EXPECT_TRUE(been_there);
    }

    /// Clicks on the settings' About.
    void Visit(Form& settings, std::function<void(frmAbout&)> person) {
        bool been_there = false;
        world.actions.Queue([&, person] {
            auto* const about = dynamic_cast<frmAbout*>(LoadedForm(u"frmAbout"));
            ASSERT_NE(about, nullptr);
            been_there = true;
            person(*about);
        });
        ASSERT_TRUE(user.ClickOn(settings.Find(u"cmdAbout")));
        EXPECT_TRUE(been_there);
        EXPECT_EQ(LoadedForm(u"frmAbout"), nullptr);
    }

    void Close(frmAbout& about) { ASSERT_TRUE(user.ClickOn(about.Find(u"cmdOK"))); }

    static constexpr std::uint32_t kSystemColoursChanged = 21;
};

} // namespace

TEST_F(AboutDialog, StandsModallyOverTheSettings) {
    InSettings([&](Form& settings) {
        Visit(settings, [&](frmAbout& about) {
            EXPECT_TRUE(about.Visible());
            EXPECT_EQ(Application::Current().ActiveForm(), &about);
            EXPECT_FALSE(settings.InputEnabled());
            EXPECT_FALSE(form->InputEnabled());
            EXPECT_FALSE(user.ClickOn(settings.Find(u"cmdCancel")));
            Close(about);
        });
        EXPECT_TRUE(settings.InputEnabled());
        EXPECT_TRUE(settings.IsLoaded());
        EXPECT_FALSE(form->InputEnabled());
        EXPECT_EQ(Application::Current().ActiveForm(), &settings);
    });
    EXPECT_TRUE(form->InputEnabled());
}

TEST_F(AboutDialog, EachOpeningShowsWhatHoldsThen) {
    InSettings([&](Form& settings) {
        Visit(settings, [&](frmAbout& about) {
            EXPECT_FALSE(about.Find(u"lblWeb").Visible());
            EXPECT_FALSE(about.Find(u"cmdHelp").Enabled());
            EXPECT_EQ(about.Find(u"cmdOK").BackColor(), 0x8000000FU);
            Close(about);
        });
        world.registry.Create(kUninstallKey)
            .Set(u"UrlInfoAbout", platform::registry_type::kString, practice::TextData(kAddress));
        gHelpFile = kAboutHelp;
        Visit(settings, [&](frmAbout& about) {
            EXPECT_TRUE(about.Find(u"lblWeb").Visible());
            EXPECT_EQ(about.Find(u"lblWeb").Caption(), kAddress);
            EXPECT_TRUE(about.Find(u"cmdHelp").Enabled());
            Close(about);
        });
        world.registry.Find(kUninstallKey)->Delete(u"UrlInfoAbout");
        Visit(settings, [&](frmAbout& about) {
            EXPECT_FALSE(about.Find(u"lblWeb").Visible());
            EXPECT_EQ(about.Find(u"lblWeb").Caption(), u"");
            Close(about);
        });
    });
}

TEST_F(AboutDialog, EachOpeningLoadsTheIconAndEachClosingFreesIt) {
    InSettings([&](Form& settings) {
        for (int time = 0; time < 3; ++time) {
            world.calls.Clear();
            Visit(settings, [&](frmAbout& about) { Close(about); });
            EXPECT_EQ(CallsOf({"LoadImageW"}), Lines{kLargeIcon});
            EXPECT_EQ(world.calls.Count("DestroyIcon"), 1U);
        }
    });
}

TEST_F(AboutDialog, AChangeOfTheSystemsColoursReachesTheOpenWindow) {
    gThemed = gThemeApiPresent = false;
    InSettings([&](Form& settings) {
        Visit(settings, [&](frmAbout& about) {
            for (const char16_t* const name : {u"Line1(0)", u"Line1(1)", u"lblDisclaimer"})
                about.Find(name).SetForeColor(0);
            for (const char16_t* const name : {u"cmdOK", u"cmdHelp"})
                about.Find(name).SetBackColor(0);
            const std::size_t icons = world.handles.Outstanding(practice::HandleKind::Icon);
            world.calls.Clear();
            practice::DeliverMessage(form->Window(), kSystemColoursChanged);
            EXPECT_EQ(about.Find(u"Line1(0)").ForeColor(), 0x80000014U);
            EXPECT_EQ(about.Find(u"Line1(1)").ForeColor(), 0x80000010U);
            EXPECT_EQ(about.Find(u"lblDisclaimer").ForeColor(), 0x80000011U);
            EXPECT_EQ(about.Find(u"cmdOK").BackColor(), 0x8000000FU);
            EXPECT_EQ(about.Find(u"cmdHelp").BackColor(), 0x8000000FU);
            EXPECT_EQ(std::ranges::count(CallsOf({"LoadImageW"}), kLargeIcon), 1);
            EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Icon), icons)
                << "the former one is freed";
            Close(about);
        });
    });
}

TEST_F(AboutDialog, AKeyShowsItsCuesAndTheMouseHidesThem) {
    InSettings([&](Form& settings) {
        Visit(settings, [&](frmAbout& about) {
            const std::string window = std::to_string(about.Window());
            user.MoveMouse(0, 0);
            user.MoveMouse(1000, 1000);
            world.calls.Clear();
            user.Press(key::kTab);
            EXPECT_EQ(CallsOf({"SendUpdateUiState"}),
                      Lines{"SendUpdateUiState(\"" + window + "\", \"196610\")"});
            user.MoveMouse(1100, 1100);
            EXPECT_EQ(world.calls.Count("SendUpdateUiState"), 2U);
            EXPECT_EQ(about.Find(u"lblTitle").Caption(), u"Kestrelmoor");
            Close(about);
        });
    });
}

TEST_F(AboutDialog, EnterAndEscapeLeadBackToTheSettings) {
    InSettings([&](Form& settings) {
        for (const int way : {key::kReturn, key::kEscape}) {
            Visit(settings, [&](frmAbout&) { user.Press(way); });
            EXPECT_TRUE(settings.IsLoaded());
        }
    });
}

TEST_F(AboutDialog, F1InTheSettingsOpensNothing) {
    gHelpFile = kAboutHelp;
    InSettings([&](Form&) {
        user.Press(key::kF1);
        EXPECT_EQ(world.calls.Count("ShellExecuteW"), 0U);
    });
}

} // namespace kestrelmoor::tests
