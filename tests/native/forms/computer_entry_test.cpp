#include "forms/settings/ctlAddComputer.h"
#include "platform/form_peer.h"
#include "platform/practice/user.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/test_language.h"

namespace kestrelmoor::tests {

namespace {

using practice::BrowseDialog;

constexpr ControlDesign kControls[] = {
    {.name = u"ucEntry",
     .kind = ControlKind::UserControl,
     .tab_index = 0,
     .place = {100, 200, 4800, 1110},
     .make = &MakeControl<ctlAddComputer>,
     .back_colour = system_colour::kWindow},
    {.name = u"cmdOther", .kind = ControlKind::CommandButton, .tab_index = 1, .place = {0, 2000, 900, 300}},
};

constexpr FormDesign kDesign = {.name = u"frmEntry",
                                .tag = u"",
                                .client_width = 6000,
                                .client_height = 3000,
                                .key_preview = false,
                                .shown_in_task_bar = true,
                                .centred_on_owner = false,
                                .controls = kControls};

/// An entry on a form of its own. Each Changed is counted.
class ComputerEntry : public ProgramTest {
  protected:
    ComputerEntry() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        TestTexts texts = StandardTexts();
        texts[420] = u"text 420";
        SpeakTestLanguage(texts);
        entry.Changed = [this] { ++changes; };
    }
    ~ComputerEntry() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    static void ExpectPlace(const Control& control, Twips left, Twips top, Twips width, Twips height) {
        EXPECT_EQ(control.Left(), left);
        EXPECT_EQ(control.Top(), top);
        EXPECT_EQ(control.Width(), width);
        EXPECT_EQ(control.Height(), height);
    }

    /// Both inner controls after the entry has got this size.
    void ExpectLayout(Twips width, Twips height, Twips box_width, Twips button_left) {
        SCOPED_TRACE(width);
        entry.Move(entry.Left(), entry.Top(), width, height);
        ExpectPlace(box, 0, 0, box_width, height);
        ExpectPlace(button, button_left, 0, 375, height);
    }

    void Type(StringView text) {
        ASSERT_TRUE(user.ClickOn(box));
        ASSERT_TRUE(user.Type(text));
    }

    /// A click on the button, with a person who does this in the dialog.
    template <class Person>
    void Browse(Person person) {
        bool came = false;
        world.browser.Next([&](BrowseDialog& dialog) {
            came = true;
            person(dialog);
        });
        ASSERT_TRUE(user.ClickOn(button));
        EXPECT_TRUE(came) << "no dialog";
    }

    practice::User user;
    std::shared_ptr<Form> form = Application::Current().Make<Form>(kDesign);
    ctlAddComputer& entry = form->Get<ctlAddComputer>(u"ucEntry");
    TextBox& box = entry.Get<TextBox>(u"txtComputer");
    CommandButton& button = entry.Get<CommandButton>(u"cmdBrowse");
    int changes = 0;
};

void PickArchive(BrowseDialog& dialog) {
    EXPECT_TRUE(dialog.Select(StringList{u"ARCHIVE"}));
    EXPECT_TRUE(dialog.PressOk());
}

} // namespace

TEST_F(ComputerEntry, IsABorderlessBoxWithAButtonOfThreeDots) {
    ASSERT_EQ(entry.Constituents().size(), 2U);
    EXPECT_EQ(entry.Constituents()[0].get(), &box);
    EXPECT_EQ(entry.Constituents()[1].get(), &button);
    ExpectPlace(box, 0, 0, 4335, 1095);
    ExpectPlace(button, 4320, 0, 375, 1095);
    EXPECT_EQ(box.TabIndex(), 0);
    EXPECT_EQ(button.TabIndex(), 1);
    EXPECT_EQ(box.BorderStyle(), 0);
    EXPECT_EQ(box.Text(), u"");
    EXPECT_EQ(button.Caption(), u"...");
    EXPECT_EQ(entry.BackColor(), 0x80000005U);
}

TEST_F(ComputerEntry, IsOneControlToItsForm) {
    EXPECT_EQ(form->Controls().size(), 2U);
    form->Show();
    EXPECT_EQ(form->ActiveControl(), &entry);
    EXPECT_EQ(entry.ActiveConstituent(), &box);
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &entry);
    EXPECT_EQ(entry.ActiveConstituent(), &button);
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &form->Find(u"cmdOther"));
}

TEST_F(ComputerEntry, LosesTheFocusAsAWholeAndNotBetweenItsParts) {
    form->Show();
    int losses = 0;
    entry.LostFocus = [&] { ++losses; };
    user.Press(key::kTab);
    EXPECT_EQ(losses, 0);
    user.Press(key::kTab);
    EXPECT_EQ(losses, 1);
}

TEST_F(ComputerEntry, HandsOutAndTakesItsText) {
    entry.SetComputer(u"\\\\ARCHIVE");
    EXPECT_EQ(box.Text(), u"\\\\ARCHIVE");
    box.SetText(u"PRACTICE");
    EXPECT_EQ(entry.Computer(), u"PRACTICE");
}

TEST_F(ComputerEntry, TheButtonKeepsItsWidthAndTheBoxHasTheRest) {
    ExpectLayout(2730, 195, 2355, 2355);
    ExpectLayout(4800, 1110, 4425, 4425);
    ExpectLayout(376, 240, 1, 1);
}

TEST_F(ComputerEntry, NarrowerThanItsButtonTheBoxHasNoWidthAndTheButtonStandsAtTheLeft) {
    ExpectLayout(375, 195, 0, 0);
    ExpectLayout(374, 195, 0, 0);
    ExpectLayout(0, 0, 0, 0);
    ExpectLayout(2730, 195, 2355, 2355);
}

TEST_F(ComputerEntry, HasItsPartsLaidOutWhenItsFormIsLoaded) {
    form->Load();
    ExpectPlace(box, 0, 0, 4425, 1110);
    ExpectPlace(button, 4425, 0, 375, 1110);
}

TEST_F(ComputerEntry, AChangeOfTheFontItHandsOutReachesBothParts) {
    entry.Font().SetName(u"Other Sans");
    entry.Font().SetCharset(204);
    for (const auto& part : entry.Constituents()) {
        EXPECT_EQ(part->Font().Name(), u"Other Sans");
        EXPECT_EQ(part->Font().Charset(), 204);
    }
    entry.Font().SetSize(12);
    entry.Font().SetBold(true);
    EXPECT_EQ(box.Font().Size(), 12);
    EXPECT_TRUE(button.Font().Bold());
}

TEST_F(ComputerEntry, AnotherFontReachesBothPartsToo) {
    Font font;
    font.SetName(u"Third Sans");
    font.SetCharset(161);
    entry.SetFont(font);
    EXPECT_EQ(entry.Font().Name(), u"Third Sans");
    for (const auto& part : entry.Constituents()) {
        EXPECT_EQ(part->Font().Name(), u"Third Sans");
        EXPECT_EQ(part->Font().Charset(), 161);
    }
}

TEST_F(ComputerEntry, TypingSeveralCharactersIsOneChange) {
    form->Show();
    Type(u"\\\\ARCHIVE");
    EXPECT_EQ(entry.Computer(), u"\\\\ARCHIVE");
    EXPECT_EQ(changes, 1);
    user.Press(key::kBack);
    EXPECT_EQ(changes, 1);
}

TEST_F(ComputerEntry, HiddenAndShownItChangesOnceMore) {
    form->Show();
    Type(u"A");
    entry.SetVisible(false);
    entry.SetVisible(true);
    Type(u"BC");
    EXPECT_EQ(changes, 2);
}

TEST_F(ComputerEntry, ATextThatIsSetWhileItIsHiddenIsNoChange) {
    form->Show();
    entry.SetVisible(false);
    entry.SetComputer(u"A");
    entry.SetComputer(u"");
    EXPECT_EQ(changes, 0);
    entry.SetVisible(true);
    EXPECT_EQ(changes, 0);
    entry.SetComputer(u"B");
    EXPECT_EQ(changes, 1);
}

TEST_F(ComputerEntry, ShowingItDoesNotForgetTheChangeButHidingDoes) {
    form->Show();
    entry.SetComputer(u"A");
    entry.SetVisible(true);
    entry.SetComputer(u"B");
    EXPECT_EQ(changes, 1);
    entry.SetVisible(false);
    entry.SetComputer(u"C");
    entry.SetVisible(true);
    entry.SetComputer(u"D");
    EXPECT_EQ(changes, 2);
}

TEST_F(ComputerEntry, TheSameTextAgainIsNoChange) {
    form->Show();
    entry.SetComputer(u"");
    EXPECT_EQ(changes, 0);
}

TEST_F(ComputerEntry, TheButtonBrowsesWithTheEntrysWindowAndItsText) {
    form->Show();
    Browse([](BrowseDialog&) {});
    const std::string window = std::to_string(entry.Peer()->Window());
    EXPECT_EQ(CallsOf({"SHBrowseForFolderW"}),
              Lines{"SHBrowseForFolderW(\"" + window + "\", \"text 420\", \"4096\", \"0\", \"260\")"});
}

TEST_F(ComputerEntry, APickedComputerIsTheTextAndAChange) {
    form->Show();
    Browse(PickArchive);
    EXPECT_EQ(entry.Computer(), u"\\\\ARCHIVE");
    EXPECT_EQ(changes, 1);
}

TEST_F(ComputerEntry, APickedDomainStandsWithoutBackslashes) {
    form->Show();
    Browse([](BrowseDialog& dialog) {
        EXPECT_TRUE(dialog.Select(StringList{u"Entire Network", u"PRACTICE"}));
        EXPECT_TRUE(dialog.PressOk());
    });
    EXPECT_EQ(entry.Computer(), u"PRACTICE");
}

TEST_F(ComputerEntry, APickBehindTypedTextIsNoSecondChange) {
    form->Show();
    Type(u"A");
    Browse(PickArchive);
    EXPECT_EQ(entry.Computer(), u"\\\\ARCHIVE");
    EXPECT_EQ(changes, 1);
}

TEST_F(ComputerEntry, ACancelledBrowserLeavesTheText) {
    form->Show();
    Type(u"TYPED");
    changes = 0;
    Browse([](BrowseDialog& dialog) { dialog.Select(StringList{u"ARCHIVE"}); });
    EXPECT_EQ(entry.Computer(), u"TYPED");
    EXPECT_EQ(changes, 0);
}

TEST_F(ComputerEntry, TheButtonIsPressedByTheKeyboardToo) {
    form->Show();
    world.browser.Next(PickArchive);
    user.Press(key::kTab);
    user.Press(key::kSpace);
    EXPECT_EQ(entry.Computer(), u"\\\\ARCHIVE");
    EXPECT_EQ(entry.ActiveConstituent(), &button);
}

TEST_F(ComputerEntry, ANetworkThatIsNotInstalledIsAnErrorThatNobodyTraps) {
    form->Show();
    world.shell.network_present = false;
    const auto error = Raised([&] { user.ClickOn(button); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x8004041AU);
    EXPECT_EQ(error->description(), u"Network not installed.");
    EXPECT_EQ(entry.Computer(), u"");
}

TEST_F(ComputerEntry, IsColouredWithATintedBoxWhetherOrNotItHasTheFocus) {
    button.SetForeColor(0x123456);
    form->Show();
    for (const bool focused : {true, false}) {
        if (!focused) {
            ASSERT_TRUE(user.ClickOn(form->Find(u"cmdOther")));
        }
        entry.SetThemedColors(0x0000F0, 0x00F000, 0xFFFFFF, 0x102030);
        EXPECT_EQ(entry.BackColor(), 0xFFFFFFU);
        EXPECT_EQ(entry.ForeColor(), 0x102030U);
        EXPECT_EQ(box.ForeColor(), 0x102030U);
        EXPECT_EQ(box.BackColor(), 0xBFFFFFU);
        EXPECT_EQ(button.BackColor(), 0x0000F0U);
        EXPECT_EQ(button.ForeColor(), 0x123456U) << "the colour of the button's text is not used";
    }
}

TEST_F(ComputerEntry, TheTintIsMixedWithThePresentColourOfAReference) {
    world.machine.appearance.system_colours[5] = 0x000000;
    entry.SetThemedColors(0x8000000F, 0x80000012, 0x80000005, 0x80000008);
    EXPECT_EQ(entry.BackColor(), 0x80000005U);
    EXPECT_EQ(box.BackColor(), 0x407F7FU);
}

} // namespace kestrelmoor::tests
