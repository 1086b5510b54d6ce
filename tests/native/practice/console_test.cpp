#include "platform/form_peer.h"
#include "platform/practice/console/arguments.h"
#include "platform/practice/console/console.h"
#include "platform/practice/console/key_names.h"
#include "platform/practice/shell_memory.h"
#include "platform/practice/world/world.h"
#include "platform/shell_namespace.h"
#include "runtime/forms/application.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kestrelmoor {
namespace {

using practice::Console;

constexpr std::array<ControlDesign, 5> kControls = {{
    {.name = u"lblWord", .kind = ControlKind::Label, .tab_index = 0, .text = u"&Word:"},
    {.name = u"txtWord", .kind = ControlKind::TextBox, .tab_index = 1, .password_char = u"*"},
    {.name = u"lstRows", .kind = ControlKind::ListBox, .tab_index = 2},
    {.name = u"cmdOK",
     .kind = ControlKind::CommandButton,
     .tab_index = 3,
     .text = u"&OK",
     .is_default = true},
    {.name = u"cmdOff", .kind = ControlKind::CommandButton, .tab_index = 4, .enabled = false, .text = u"Off"},
}};

constexpr FormDesign kDesign = {u"frmProbe", u"", 3000, 3000, false, true, false, kControls};

class Probe : public Form {
  public:
    Probe() : Form(kDesign) {
        Get<ListBox>(u"lstRows").AddItem(u"one");
        Get<ListBox>(u"lstRows").AddItem(u"two");
        Get<CommandButton>(u"cmdOK").Click = [this] { ++clicks; };
    }
    int clicks = 0;
};

/// A window, and a console with a script in front of it.
class PracticeConsole : public testing::Test {
  protected:
    PracticeConsole() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form = Application::Current().Make<Probe>();
        form->SetCaption(u"Probe");
        form->Show();
    }
    ~PracticeConsole() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    /// What is printed while the program runs on the script.
    std::string Run(std::vector<std::string> lines, bool stops_at_error = true) {
        std::size_t next = 0;
        std::string printed;
        Console console(
            world,
            [&]() -> std::optional<std::string> {
                return next < lines.size() ? std::optional(lines[next++]) : std::nullopt;
            },
            [&](const std::string& text) { printed += text; }, stops_at_error);
        Application::Current().Run();
        failed = console.Failed();
        return printed;
    }

    practice::ScopedWorld world;
    std::shared_ptr<Probe> form;
    bool failed = false;
};

TEST_F(PracticeConsole, ShowsTheWindowWithFocusMaskListAndMarks) {
    EXPECT_EQ(Run({"type abc", "choose lstRows 1", "show"}), "=== Probe (frmProbe)\n"
                                                             "  lblWord         Word:\n"
                                                             "  txtWord         \"***\"\n"
                                                             "> lstRows         list of 2\n"
                                                             "                    0: one\n"
                                                             "                  * 1: two\n"
                                                             "  cmdOK           [OK] (default)\n"
                                                             "  cmdOff          [Off] (disabled)\n");
    EXPECT_FALSE(failed);
}

TEST_F(PracticeConsole, TypesBlanksAsTheyStand) {
    Run({"type  a b "});
    EXPECT_EQ(form->Get<TextBox>(u"txtWord").Text(), u" a b ");
}

TEST_F(PracticeConsole, PressesAndClicksReachTheForm) {
    Run({"# a remark", "", "press Enter", "click cmdOK"});
    EXPECT_EQ(form->clicks, 2);
}

TEST_F(PracticeConsole, CloseEndsTheWindow) {
    Run({"close"});
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(PracticeConsole, EndOfInputEndsTheProgramsLoopInOrder) {
    EXPECT_EQ(Run({}), "");
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(PracticeConsole, BadInputIsToldWithItsLineAndStopsAScript) {
    EXPECT_EQ(Run({"show me", "show"}), "line 1: write \"show\"\n");
    EXPECT_TRUE(failed);
    EXPECT_EQ(Run({"", "dance"}), "line 2: \"dance\" is no command; help lists them\n");
    EXPECT_EQ(Run({"click cmdNo"}),
              "line 1: the open window has no control named \"cmdNo\"; show lists them\n");
    EXPECT_EQ(Run({"click cmdOff"}), "line 1: \"cmdOff\" can't be clicked: it is hidden or disabled\n");
    EXPECT_EQ(Run({"choose lstRows 2"}), "line 1: \"lstRows\" has 2 rows, counted from 0\n");
    EXPECT_EQ(Run({"choose lstRows"}),
              "line 1: a control's name and the number of a row are needed; show lists both\n");
    EXPECT_EQ(Run({"choose cmdOK 0"}), "line 1: \"cmdOK\" is no list\n");
    EXPECT_EQ(Run({"check lstRows 0"}), "line 1: this list has no check marks\n");
    EXPECT_EQ(Run({"press Hyper"}),
              "line 1: \"Hyper\" is no key; write Enter, Escape, Tab, Shift+Tab, Alt+x, F1, Up, a, 1 ...\n");
    EXPECT_EQ(Run({"wait soon"}), "line 1: \"soon\" is no number of milliseconds\n");
    EXPECT_EQ(Run({"box maybe"}), "line 1: \"maybe\" is no button; write ok, yes or no\n");
    EXPECT_EQ(Run({"close", "show"}), "");
    EXPECT_EQ(form->clicks, 0);
}

TEST_F(PracticeConsole, WhatCannotBeDoneJustNowIsToldInWords) {
    form->Get<ListBox>(u"lstRows").SetEnabled(false);
    EXPECT_EQ(Run({"choose lstRows 0"}), "line 1: the list can't be clicked: it is hidden or disabled\n");
    form->Get<CommandButton>(u"cmdOK").SetDefault(false);
    EXPECT_EQ(Run({"press Alt+y"}), "line 1: nothing in the open window takes Alt+y\n");
    form->Get<TextBox>(u"txtWord").KeyDown = [this](int&, int) { form->Unload(); };
    EXPECT_EQ(Run({"type ab"}), "line 1: the window closed, or could not take input, before all was typed\n");
}

TEST_F(PracticeConsole, HelpListsEveryCommandWithItsUse) {
    const std::string help = Run({"help"});
    EXPECT_FALSE(failed);
    EXPECT_TRUE(help.starts_with("show                prints what can be seen of the open window\n"
                                 "type TEXT           types the rest of the line, "));
    EXPECT_TRUE(help.ends_with("help                prints this list\n"));
    EXPECT_EQ(std::ranges::count(help, '\n'), 14);
}

TEST_F(PracticeConsole, AtATerminalBadInputIsNotTheEnd) {
    Run({"dance", "press Enter"}, false);
    EXPECT_EQ(form->clicks, 1);
    EXPECT_TRUE(failed);
}

TEST_F(PracticeConsole, PrintsEachBoxAndAnswersAsTold) {
    int answer = 0;
    form->Get<CommandButton>(u"cmdOK").Click = [&] {
        answer = practice::TheWorld().boxes.Show(u"Sure?", 4, u"Title");
    };
    EXPECT_EQ(Run({"box no", "click cmdOK"}), "--- Title\nSure?\n--- answered with No\n");
    EXPECT_EQ(answer, 7);
    EXPECT_EQ(Run({"box ok", "click cmdOK"}), "--- Title\nSure?\n--- answered with OK\n");
    EXPECT_EQ(answer, 1);
}

TEST_F(PracticeConsole, ClockIsMovedOnOrSet) {
    const practice::Moment before = world.clock.Now();
    const practice::Moment pumps = world.pump_milliseconds;
    const auto after = [&](const char* command) {
        world.clock.Set(before);
        world.pump_milliseconds = 0;
        Run({command});
        world.pump_milliseconds = pumps;
        return world.clock.Now() - before;
    };
    EXPECT_EQ(after("clock +6d"), 518400000);
    EXPECT_EQ(after("clock +12h"), 43200000);
    EXPECT_EQ(after("clock +30m"), 1800000);
    EXPECT_EQ(after("clock +45s"), 45000);
    EXPECT_EQ(after("clock 2026-03-02T09:00:01"), 1000);
}

TEST_F(PracticeConsole, ClockRefusesWhatIsNoTime) {
    for (const char* const text : {"+d", "+6", "6d", "+6y", "+-6d", "tomorrow"})
        EXPECT_EQ(Run({std::string("clock ") + text}),
                  std::string("line 1: \"") + text +
                      "\" is no time; write +6d, +12h, +30m, +45s or 2026-03-08T09:00:00\n");
}

TEST_F(PracticeConsole, ThePersonPicksFromTheDialogToChooseAComputer) {
    StringList picks;
    form->Get<CommandButton>(u"cmdOK").Click = [&] {
        const practice::ItemBytes root = world.shell.ListOf({});
        platform::BrowseInfo info;
        info.pidlRoot = root.data();
        info.lpszTitle = u"Where?";
        std::uint8_t* const list = platform::SHBrowseForFolderW(info);
        picks.push_back(list ? world.shell.Find(*world.shell.PathOf(list))->name : u"none");
        practice::FreeShellMemory(list);
    };
    EXPECT_EQ(Run({"pick 0", "click cmdOK", "type x", "pick 1", "pick 11", "pick 10"}, false),
              "line 1: no dialog to choose from is open\n"
              "--- Where?\n"
              "0: Network\n"
              "1:   Entire Network\n"
              "2:     PRACTICE\n"
              "3:       DC1\n"
              "4:     WORKGROUP\n"
              "5:       ARCHIVE\n"
              "6:         Shelf\n"
              "7:       WORKBENCH\n"
              "8:   ARCHIVE\n"
              "9:     Shelf\n"
              "10:   WORKBENCH\n"
              "--- pick one of them or cancel\n"
              "line 3: a dialog stands in front of the window; pick from it or cancel it\n"
              "line 4: OK is disabled for this row: it is no computer and no domain\n"
              "line 5: there are 11 rows, counted from 0\n");
    EXPECT_EQ(picks, StringList{u"WORKBENCH"});
    Run({"click cmdOK", "cancel", "click cmdOK"});
    EXPECT_EQ(picks, (StringList{u"WORKBENCH", u"none", u"none"}));
}

TEST_F(PracticeConsole, PrintsTheRecordOfCalls) {
    world.calls.Clear();
    world.calls.Enter("ExitWindowsEx", {4, 0});
    EXPECT_EQ(Run({"calls"}), "ExitWindowsEx(\"4\", \"0\")\n");
}

TEST(PracticeKeyNames, NamesAreKeysWithTheirShifts) {
    const auto same = [](const char* name, int key, int shift) {
        const auto stroke = practice::KeyOfName(name);
        return stroke && stroke->key == key && stroke->shift == shift;
    };
    EXPECT_TRUE(same("Enter", 13, 0));
    EXPECT_TRUE(same("shift+TAB", 9, 1));
    EXPECT_TRUE(same("Alt+x", 'X', 4));
    EXPECT_TRUE(same("Ctrl+Shift+7", '7', 3));
    EXPECT_TRUE(same("F1", 112, 0));
    EXPECT_TRUE(same("f12", 123, 0));
    for (const char* const name : {"", "F0", "F13", "Meta+x", "Alt+", "xy", "F1x"})
        EXPECT_FALSE(practice::KeyOfName(name)) << name;
}

TEST(PracticeArguments, OwnOnesStandAheadAndTheProgramsBehindTwoHyphens) {
    const auto read = practice::ReadArguments({"--world", "w.json", "--", "/d", "C:\\My Logs\\a.log", "/f"});
    EXPECT_EQ(read.world_file, "w.json");
    EXPECT_EQ(read.program_arguments, u"/d \"C:\\My Logs\\a.log\" /f");
    EXPECT_EQ(read.save_file, std::nullopt);
}

TEST(PracticeArguments, CommandsAheadOfTheStartStandInTheirOrder) {
    const auto read = practice::ReadArguments({"--first", "clock +6d", "--first", "box no"});
    EXPECT_EQ(read.first, (std::vector<std::string>{"clock +6d", "box no"}));
}

TEST(PracticeArguments, AScriptAFileToSaveAndTheWishForHelpAreRead) {
    const auto read = practice::ReadArguments({"--script", "s.txt", "--save", "after.json"});
    EXPECT_EQ(read.script_file, "s.txt");
    EXPECT_EQ(read.save_file, "after.json");
    EXPECT_FALSE(read.help);
    EXPECT_TRUE(practice::ReadArguments({"--help"}).help);
}

TEST(PracticeArguments, UnknownOnesAndMissingNamesAreRefused) {
    EXPECT_THROW(practice::ReadArguments({"/f"}), std::invalid_argument);
    EXPECT_THROW(practice::ReadArguments({"--save"}), std::invalid_argument);
}

} // namespace
} // namespace kestrelmoor
