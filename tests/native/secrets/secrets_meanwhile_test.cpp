#include "platform/practice/windows.h"
#include "platform/process.h"
#include "platform/window_messages.h"
#include "shell/Main.h"
#include "tests/native/secrets/secrets.h"

#include <cstdio>
#include <cstdlib>

namespace kestrelmoor::tests {

namespace {

/// What else happens around a window into which passwords have been typed.
class SecretsMeanwhile : public Secrets {
  protected:
    void OpenWithPasswords() {
        Open();
        TypePasswords(kMarkedOld, kMarkedNew);
    }

    void CloseAtPump(int nth) {
        world.actions.Queue([this] { EXPECT_TRUE(user.CloseWindow(*form)); }, nth);
    }

    /// The click on OK of a run that ends in an error at its second target.
    void RunIntoAnError() {
        AtPasswordCall(1, [this] { world.network.missing_entries.insert("NetUserChangePassword"); });
        ClickOk();
    }
};

} // namespace

TEST_F(SecretsMeanwhile, LeaveNoTraceInAWindowThatIsClosedInMidRun) {
    for (const int pump : {1, 2, 3, 4}) {
        SetPassword(u"\\\\WORKBENCH", kMarkedOld);
        OpenWithPasswords();
        CloseAtPump(pump);
        ClickOk();
        EXPECT_TRUE(form->IsUnloaded());
        ExpectNoTrace();
    }
    OpenWithPasswords();
    AtPasswordCall(1, [this] { user.CloseWindow(*form); });
    ClickOk();
    EXPECT_TRUE(form->IsUnloaded());
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceInAnErrorInMidRun) {
    OpenWithPasswords();
    try {
        RunIntoAnError();
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), error_number::kEntryNotFound);
        search.LookAt("source of an error", error.source());
        search.LookAt("description of an error", error.description());
    }
    EXPECT_EQ(ChangedServers(), Lines{"\\\\WORKBENCH"});
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceInTheBoxOfAnErrorThatEndsTheProgram) {
    OpenWithPasswords();
    constexpr int kFound = 3;
    world.ended_by_error = [this](const practice::Box& box) {
        search.Look();
        search.LookAt("text of the last box", box.text);
        search.LookAt("title of the last box", box.title);
        if (!search.Found().empty())
            std::_Exit(kFound);
        std::fputs("searched\n", stderr);
    };
    const auto end = [this] {
        try {
            RunIntoAnError();
        } catch (const RuntimeError& error) {
            platform::EndByError(error);
        }
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(1), "searched\nRun-time error 453");
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhileTheSettingsAreOpenAndSaved) {
    modules_left = 1; // the language library that is asked for its languages
    OpenWithPasswords();
    AtNextPump(u"frmSettings", [this](Form& settings) {
        user.ClickOn(settings.Find(u"cmdAddServer"));
        user.Type(u"\\\\SPARE");
        settings.Get<CheckBox>(u"chkPermanent").SetValue(1);
        user.ClickOn(settings.Find(u"cmdOK"));
    });
    ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
    EXPECT_GE(world.calls.Count("RegSetValueExW"), 1U);
    EXPECT_EQ(Targets().size(), 4U);
    EXPECT_EQ(Box(u"txtNewPass").Text(), kMarkedNew);
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhileTheListIsLoadedAnewWithPasswordsInIt) {
    OpenRows();
    TypeOldOfEach(kMarkedOld, kMarkedOfArchive, kMarkedOfDomain);
    Visit([](Form&) { Configure({u"\\\\ARCHIVE", u"\\\\SPARE"}, true); });
    EXPECT_EQ(Targets(), (Lines{" This computer", "\\\\ARCHIVE", "\\\\SPARE"}));
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhileTheAboutWindowIsOpen) {
    modules_left = 1;
    OpenWithPasswords();
    AtNextPump(u"frmSettings", [this](Form& settings) {
        AtNextPump(u"frmAbout", [](Form& about) { about.Unload(); });
        user.ClickOn(settings.Find(u"cmdAbout"));
        settings.Unload();
    });
    ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
    EXPECT_GE(world.calls.Count("ReadVersionRecord"), 1U);
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhereHelpIsAskedFor) {
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\Help-1033.html");
    OpenWithPasswords();
    user.Press(key::kF1);
    EXPECT_EQ(world.shell_executions.size(), 1U);
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhereTheLanguageChanges) {
    world.libraries.Put(ScriptedLanguage(1031));
    OpenWithPasswords();
    Visit([](Form&) { gLangID = 1031; });
    EXPECT_EQ(form->Caption(), u"text 303");
    EXPECT_EQ(Box(u"txtOldPass").Text(), kMarkedOld);
    ClickOk();
    EXPECT_EQ(form->Caption(), u"text 324");
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceWhereColoursAndCuesChange) {
    OpenWithPasswords();
    for (const std::uint32_t message :
         {platform::window_message::kSysColorChange, platform::window_message::kSettingChange,
          platform::window_message::kThemeChanged})
        practice::DeliverMessage(form->Window(), message);
    form->ICue_Cue();
    form->ICue_UnCue();
    EXPECT_GE(world.calls.Count("SetWindowIcon"), 1U);
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceFromTheReminderOn) {
    gForceWindow = false;
    gLocalizer.reset();
    world.network.StoreAt(u"\\\\ARCHIVE")->Find(u"user")->password_expired = true;
    world.machine.command_line = u"/d";
    world.boxes.Answer(6);
    Main();
    EXPECT_EQ(Boxes().size(), 1U);
    ASSERT_NE(OnlyForm(), nullptr);
    TakeWindow();
    TypePasswords(kMarkedOld, kMarkedNew);
    ClickOk();
    EXPECT_NE(Status().find("\\\\ARCHIVE: The password has been changed."), std::string::npos) << Status();
    EXPECT_GE(LinesOf(u"C:\\Users\\user\\Documents\\Moorlink.log").size(), 20U);
    ExpectNoTrace();
}

TEST_F(SecretsMeanwhile, LeaveNoTraceOnTheWayBackThroughTheWatch) {
    gForceWindow = false;
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    OpenRows();
    TypeOld(0, kMarkedWrong);
    TypeOld(1, kMarkedOfDomain);
    TypeNew(kMarkedNew);
    ClickOk();
    ClickOk();
    ASSERT_NE(OnlyForm(), nullptr);
    EXPECT_NE(OnlyForm(), form.get());
    ExpectNoTrace();
}

} // namespace kestrelmoor::tests
