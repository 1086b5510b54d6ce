#include "tests/native/support/probe_form.h"
#include "tests/native/support/raised.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

using Record = RecordingDesktop::Record;

class Life : public testing::Test {
  protected:
    void TearDown() override { Application::Current().UnloadAll(); }

    void NoteLifeOf(ProbeForm& form) {
        form.load = [this] { desktop.Note("Load"); };
        form.unload = [this] { desktop.Note("Unload"); };
        form.terminate = [this] { desktop.Note("Terminate"); };
    }

    RecordingDesktop desktop;
    Application& application = Application::Current();
};

struct Fault {};

TEST_F(Life, InitializeRunsWhenAFormIsMadeAndTerminateWhenNobodyHoldsIt) {
    class Counted : public ProbeForm {
      public:
        explicit Counted(int& living) : mLiving(living) {}

      private:
        void Form_Initialize() override { ++mLiving; }
        void Form_Terminate() override { --mLiving; }
        int& mLiving;
    };
    int living = 0;
    auto form = application.Make<Counted>(living);
    EXPECT_EQ(living, 1);
    form->Load();
    EXPECT_EQ(application.Forms().size(), 1U);
    form->Unload();
    EXPECT_EQ(living, 1);
    form.reset();
    EXPECT_EQ(living, 0);
}

TEST_F(Life, ALoadedFormIsHeldByTheApplication) {
    auto form = MakeProbe();
    const std::weak_ptr<ProbeForm> watched = form;
    form->Load();
    form.reset();
    ASSERT_FALSE(watched.expired());
    watched.lock()->Unload();
    EXPECT_TRUE(watched.expired());
}

TEST_F(Life, AFormUnloadedInItsHandlerEndsWhenTheOutermostHandlerHasReturned) {
    auto form = MakeProbe();
    const std::weak_ptr<ProbeForm> watched = form;
    form->Show();
    form->txtText.Change = [&] {
        watched.lock()->Unload();
        desktop.Note(watched.expired() ? "gone" : "there");
    };
    form->cmdOK.Click = [&] {
        watched.lock()->txtText.SetText(u"x");
        desktop.Note(watched.expired() ? "gone" : "there");
    };
    NoteLifeOf(*form);
    CommandButton& button = form->cmdOK;
    form.reset();
    desktop.Take();
    button.Pressed();
    EXPECT_TRUE(watched.expired());
    Record seen;
    for (const std::string& entry : desktop.Take())
        if (entry.find(' ') == std::string::npos)
            seen.push_back(entry);
    EXPECT_EQ(seen, (Record{"Unload", "there", "there", "Terminate"}));
}

TEST_F(Life, AFormUnloadedByAKeyPreviewEndsBehindTheKey) {
    class Closing : public Form {
      public:
        Closing()
            : Form({.name = u"frmClosing",
                    .tag = u"",
                    .client_width = 900,
                    .client_height = 900,
                    .key_preview = true,
                    .shown_in_task_bar = true,
                    .centred_on_owner = false,
                    .controls = {}}) {}

      private:
        void Form_KeyDown(int& /*KeyCode*/, int /*Shift*/) override { Unload(); }
    };
    const std::weak_ptr<Closing> watched = application.Make<Closing>();
    EXPECT_TRUE(watched.expired());
    application.Make<Closing>()->Show();
    Form& shown = *application.Forms().front();
    EXPECT_TRUE(shown.KeyDown(u'A', 0));
    EXPECT_TRUE(application.Forms().empty());
}

TEST_F(Life, AKeyThatThePreviewSwallowsReachesNoControl) {
    static constexpr ControlDesign kControls[] = {
        {.name = u"txtBox", .kind = ControlKind::TextBox, .tab_index = 0}};
    class Swallowing : public Form {
      public:
        Swallowing() : Form({u"frmSwallowing", u"", 900, 900, true, true, false, kControls}) {}

      private:
        void Form_KeyDown(int& KeyCode, int /*Shift*/) override { KeyCode = 0; }
    };
    const auto form = application.Make<Swallowing>();
    int keys = 0;
    form->Find(u"txtBox").KeyDown = [&keys](int&, int) { ++keys; };
    form->Show();
    EXPECT_TRUE(form->KeyDown(u'A', 0));
    EXPECT_EQ(keys, 0);
}

TEST_F(Life, AFormUnloadedAsTheFocusLeavesEndsBehindTheMove) {
    auto form = MakeProbe();
    const std::weak_ptr<ProbeForm> watched = form;
    form->Show();
    form->txtText.LostFocus = [&watched] { watched.lock()->Unload(); };
    CommandButton& button = form->cmdOK;
    form.reset();
    button.SetFocus();
    EXPECT_TRUE(watched.expired());
}

TEST_F(Life, AFormUnloadedByItsHandlersUsesTheInputUp) {
    auto form = MakeProbe();
    form->txtText.KeyDown = [&form](int&, int) { form->Unload(); };
    form->Show();
    EXPECT_TRUE(form->KeyDown(u'A', 0));
    form = MakeProbe();
    form->txtText.Validate = [&form](bool&) { form->Unload(); };
    form->Show();
    EXPECT_FALSE(form->MayMoveFocus(&form->cmdOK));
    form = MakeProbe();
    form->txtText.KeyPress = [&form](int&) { form->Unload(); };
    form->Show();
    char16_t character = u'a';
    EXPECT_TRUE(form->KeyPress(character));
}

TEST_F(Life, ClosingAFormFromItsOwnUnloadChangesNothing) {
    const auto form = MakeProbe();
    int unloads = 0;
    form->unload = [&] {
        ++unloads;
        form->Unload();
        form->CloseRequested();
    };
    form->Show();
    form->Unload();
    EXPECT_EQ(unloads, 1);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(Life, AFormClosedWhileItLoadsIsNotShown) {
    const auto form = MakeProbe();
    form->load = [&] { form->Unload(); };
    form->Show();
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(application.ActiveForm(), nullptr);
}

TEST_F(Life, AFormThatShowsItselfWhileItLoadsIsShownOnce) {
    const auto form = MakeProbe();
    form->load = [&] {
        form->Show();
        form->cmdOK.SetFocus();
    };
    form->Show();
    int shown = 0;
    for (const std::string& entry : desktop.Take())
        shown += entry == "frmProbe shown" ? 1 : 0;
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
}

TEST_F(Life, AFormWhoseLoadRaisesIsTakenAway) {
    const auto form = MakeProbe();
    form->load = [] { throw Fault(); };
    EXPECT_THROW(form->Show(), Fault);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(form->Peer(), nullptr);
    EXPECT_TRUE(application.Forms().empty());
}

TEST_F(Life, AFormWhoseUnloadRaisesStaysAndCanBeUnloadedAgain) {
    const auto form = MakeProbe();
    form->Show();
    form->unload = [] { throw Fault(); };
    EXPECT_THROW(form->Unload(), Fault);
    EXPECT_TRUE(form->IsLoaded());
    form->unload = nullptr;
    form->Unload();
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(Life, AnErrorInALostFocusLeavesTheFocusWhereItWasGoing) {
    const auto form = MakeProbe();
    form->Show();
    form->txtText.LostFocus = [] { throw Fault(); };
    EXPECT_THROW(form->cmdOK.SetFocus(), Fault);
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
    int got = 0;
    form->txtText.GotFocus = [&got] { ++got; };
    form->txtText.SetFocus();
    EXPECT_EQ(got, 1);
    EXPECT_EQ(form->ActiveControl(), &form->txtText);
}

TEST_F(Life, AnErrorInAHandlerLeavesTheValueSet) {
    const auto form = MakeProbe();
    form->Show();
    form->txtText.Change = [] { throw Fault(); };
    form->lstRows.Click = [] { throw Fault(); };
    form->lstRows.AddItem(u"a");
    EXPECT_THROW(form->txtText.SetText(u"x"), Fault);
    EXPECT_THROW(form->lstRows.RowChosen(0), Fault);
    EXPECT_THROW(form->txtText.Edited(u"xy"), Fault);
    EXPECT_EQ(form->txtText.Text(), u"xy");
    EXPECT_EQ(form->lstRows.ListIndex(), 0);
}

TEST_F(Life, AHandlerMayReplaceItself) {
    const auto form = MakeProbe();
    int second = 0;
    form->cmdOK.Click = [&] { form->cmdOK.Click = [&] { ++second; }; };
    form->cmdOK.Pressed();
    form->cmdOK.Pressed();
    EXPECT_EQ(second, 1);
}

TEST_F(Life, UnloadAllGoesFromTheLastToTheFirst) {
    const auto first = MakeProbe(u"frmFirst");
    const auto second = MakeProbe(u"frmSecond");
    first->unload = [this] { desktop.Note("first"); };
    second->unload = [this] { desktop.Note("second"); };
    first->Load();
    second->Load();
    desktop.Take();
    application.UnloadAll();
    Record seen = desktop.Take();
    EXPECT_EQ(seen.front(), "second");
    EXPECT_EQ(std::count(seen.begin(), seen.end(), "first"), 1);
    EXPECT_TRUE(application.Forms().empty());
}

TEST_F(Life, TheLoopEndsWithTheLastForm) {
    const auto form = MakeProbe();
    form->Show();
    bool late = false;
    desktop.Add([&form] { form->CloseRequested(); });
    desktop.Add([&late] { late = true; });
    application.Run();
    EXPECT_FALSE(late);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(Life, TheLoopEndsWhenNoEventWillEverCome) {
    const auto form = MakeProbe();
    form->Show();
    application.Run();
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(Life, AModalFormHoldsOffEveryOtherForm) {
    const auto first = MakeProbe(u"frmFirst");
    const auto second = MakeProbe(u"frmSecond");
    const auto modal = MakeProbe(u"frmModal");
    first->Show();
    second->Show();
    desktop.Add([&] {
        EXPECT_FALSE(first->InputEnabled());
        EXPECT_FALSE(second->InputEnabled());
        EXPECT_TRUE(modal->InputEnabled());
        EXPECT_EQ(modal->Owner(), first.get());
        char16_t character = u'a';
        EXPECT_TRUE(first->KeyDown(u'A', 0));
        EXPECT_TRUE(first->KeyPress(character));
        EXPECT_TRUE(first->Accelerator(u'A'));
        EXPECT_FALSE(first->MayMoveFocus(&first->cmdOK));
        first->CloseRequested();
        EXPECT_TRUE(first->IsLoaded());
        modal->Unload();
    });
    modal->Show(true, first.get());
    EXPECT_TRUE(first->InputEnabled());
    EXPECT_TRUE(second->InputEnabled());
    EXPECT_EQ(application.ActiveForm(), first.get());
}

TEST_F(Life, AModalFormHandlesEventsUntilItGoesAndNoneBehindThat) {
    const auto modal = MakeProbe(u"frmModal");
    bool late = false;
    desktop.Add([] {});
    desktop.Add([&modal] { modal->Unload(); });
    desktop.Add([&late] { late = true; });
    modal->Show(true);
    EXPECT_TRUE(modal->IsUnloaded());
    EXPECT_FALSE(late);
}

TEST_F(Life, OnlyAModalFormBelongsToTheOneInFrontWithoutBeingTold) {
    const auto first = MakeProbe(u"frmFirst");
    const auto second = MakeProbe(u"frmSecond");
    const auto modal = MakeProbe(u"frmModal");
    first->Show();
    second->Show();
    EXPECT_EQ(second->Owner(), nullptr);
    desktop.Add([&] {
        EXPECT_EQ(modal->Owner(), second.get());
        modal->Unload();
    });
    modal->Show(true);
}

TEST_F(Life, TheLastVisibleFormFollowsTheOneInFrontThatGoes) {
    const auto first = MakeProbe(u"frmFirst");
    const auto second = MakeProbe(u"frmSecond");
    const auto hidden = MakeProbe(u"frmHidden");
    const auto last = MakeProbe(u"frmLast");
    first->Show();
    second->Show();
    hidden->Load();
    last->Show();
    last->Unload();
    EXPECT_EQ(application.ActiveForm(), second.get());
}

TEST_F(Life, ModalFormsMayStandOnEachOther) {
    const auto first = MakeProbe(u"frmFirst");
    const auto outer = MakeProbe(u"frmOuter");
    const auto inner = MakeProbe(u"frmInner");
    first->Show();
    desktop.Add([&] {
        inner->Show(true, outer.get());
        EXPECT_TRUE(outer->InputEnabled());
        EXPECT_FALSE(first->InputEnabled());
        outer->Unload();
    });
    desktop.Add([&] {
        EXPECT_FALSE(outer->InputEnabled());
        inner->Unload();
    });
    outer->Show(true, first.get());
    EXPECT_TRUE(first->InputEnabled());
}

TEST_F(Life, AnOuterModalFormMayGoFirst) {
    const auto first = MakeProbe(u"frmFirst");
    const auto outer = MakeProbe(u"frmOuter");
    const auto inner = MakeProbe(u"frmInner");
    first->Show();
    desktop.Add([&] { inner->Show(true, outer.get()); });
    desktop.Add([&] {
        outer->Unload();
        EXPECT_FALSE(first->InputEnabled());
        inner->Unload();
    });
    outer->Show(true, first.get());
    EXPECT_TRUE(first->InputEnabled());
}

TEST_F(Life, AnErrorWithinAModalFormLeavesItInFront) {
    const auto first = MakeProbe(u"frmFirst");
    const auto modal = MakeProbe(u"frmModal");
    first->Show();
    desktop.Add([] { throw Fault(); });
    EXPECT_THROW(modal->Show(true, first.get()), Fault);
    EXPECT_FALSE(first->InputEnabled());
    modal->Unload();
    EXPECT_TRUE(first->InputEnabled());
}

TEST_F(Life, TheOwnerIsForgottenWhenItEnds) {
    auto owner = MakeProbe(u"frmOwner");
    const auto form = MakeProbe();
    form->Show(false, owner.get());
    EXPECT_EQ(form->Owner(), owner.get());
    owner.reset();
    EXPECT_EQ(form->Owner(), nullptr);
}

} // namespace

} // namespace kestrelmoor::tests
