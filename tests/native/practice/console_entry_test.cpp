#include "platform/form_peer.h"
#include "platform/practice/console/console.h"
#include "platform/practice/console/screen_text.h"
#include "platform/practice/world/world.h"
#include "tests/form_model_shared/entry_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

/// A window with a user control, a list with check marks and a drop-down list, and a console in front of it.
class PracticeConsoleEntry : public testing::Test {
  protected:
    PracticeConsoleEntry() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form = Application::Current().Make<EntryForm>();
        form->SetCaption(u"Entry");
        form->Show();
        form->lstNames.AddItem(u"beta");
        form->lstNames.AddItem(u"alpha");
        form->cbTongue.AddItem(u"Welsh");
        form->cbTongue.AddItem(u"Irish");
    }
    ~PracticeConsoleEntry() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    std::string Run(const std::vector<std::string>& lines) {
        std::size_t next = 0;
        std::string printed;
        practice::Console console(
            world,
            [&]() -> std::optional<std::string> {
                return next < lines.size() ? std::optional(lines[next++]) : std::nullopt;
            },
            [&](const std::string& text) { printed += text; }, true);
        Application::Current().Run();
        return printed;
    }

    practice::ScopedWorld world;
    std::shared_ptr<EntryForm> form;
};

TEST_F(PracticeConsoleEntry, ShowsWhatAUserControlIsMadeOfUnderIt) {
    EXPECT_EQ(Run({"check lstNames 1", "choose cbTongue 0", "click txtEntry", "type ab", "show"}),
              "=== Entry (frmEntry)\n"
              "  txtDays         \"\"\n"
              "  fraNames        Names\n"
              "  lstNames        list of 2\n"
              "                    [ ] 0: alpha\n"
              "                  * [x] 1: beta\n"
              "  ucEntry         \n"
              ">   txtEntry      \"ab\"\n"
              "    cmdPick       [Pick]\n"
              "  cbTongue        drop-down list of 2\n"
              "                  * 0: Irish\n"
              "                    1: Welsh\n"
              "  cmdAdd          [Add]\n"
              "  cmdOK           [OK] (default)\n"
              "  cmdCancel       [Cancel] (cancel)\n");
}

TEST_F(PracticeConsoleEntry, ReachesThePartsOfAUserControlByName) {
    form->Take();
    Run({"click cmdPick", "press Enter"});
    EXPECT_EQ(form->Take(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus", "cmdPick GotFocus",
                                    "cmdPick Click", "cmdPick Click"}));
}

TEST_F(PracticeConsoleEntry, HidesThePartsOfAHiddenUserControl) {
    form->ucEntry.SetVisible(false);
    const std::string shown = Run({"show"});
    EXPECT_EQ(shown.find("ucEntry"), std::string::npos);
    EXPECT_EQ(shown.find("txtEntry"), std::string::npos);
}

TEST_F(PracticeConsoleEntry, TurnsNoMarkOfAListThatIsDisabled) {
    form->lstNames.SetEnabled(false);
    EXPECT_EQ(Run({"check lstNames 0"}), "line 1: the list can't be clicked: it is hidden or disabled\n");
    EXPECT_FALSE(form->lstNames.Selected(0));
}

TEST_F(PracticeConsoleEntry, SaysWhenNoWindowIsOpen) {
    Application::Current().SetActiveForm(nullptr);
    EXPECT_EQ(Run({"show"}), "line 1: no window is open\n");
}

} // namespace

} // namespace kestrelmoor::tests
