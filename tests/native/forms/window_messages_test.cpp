#include "platform/practice/windows.h"
#include "runtime/errors.h"
#include "tests/native/forms/password_rows.h"
#include "tests/native/support/probe_form.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

constexpr std::uint32_t kColourChange = 21;
constexpr std::uint32_t kSettingChange = 26;
constexpr std::uint32_t kThemeChange = 794;

class WindowMessages : public PasswordRows {
  protected:
    WindowMessages() {
        look.theme_colours = {{5, 0xFFFFFF}, {15, 0xC0C0C0}};
        Open();
        world.calls.Clear();
    }

    std::intptr_t Send(std::uint32_t message) { return practice::DeliverMessage(form->Window(), message); }

    void PutStyleOn() { look.app_themed = look.theme_active = true; }

    practice::Appearance& look = world.machine.appearance;
};

/// A form that colours itself and says how often; it fails where it is told to.
class ColouredForm : public ProbeForm, public IThemed {
  public:
    void UpdateUI() override {
        ++updates;
        if (fails)
            RaiseError(error_number::kInvalidArgument);
    }
    int updates = 0;
    bool fails = false;
};

} // namespace

TEST_F(WindowMessages, AColourChangeRefreshesColoursIconsAndMasks) {
    gPasswordChar.assign(1, u'#');
    look.metrics[49] = 24;
    look.metrics[50] = 24;
    Send(kColourChange);
    EXPECT_EQ(Rows().at(0), " This computer\t########");
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 0), (practice::IconImage{1, 24, 24}));
}

TEST_F(WindowMessages, AColourChangeReachesEveryLoadedForm) {
    auto other = Application::Current().Make<ColouredForm>();
    auto failing = Application::Current().Make<ColouredForm>();
    failing->fails = true;
    failing->Show();
    other->Show();
    Send(kColourChange);
    EXPECT_EQ(failing->updates, 1);
    EXPECT_EQ(other->updates, 1) << "an error of one form is no matter to the next";
}

TEST_F(WindowMessages, AProgramThatWasUnthemedStaysSo) {
    look.app_themed = true;
    ASSERT_TRUE(gThemeApiPresent);
    ASSERT_FALSE(gThemed);
    Send(kColourChange);
    EXPECT_EQ(CallsOf({"SetThemeAppProperties"}), Lines{"SetThemeAppProperties(\"0\")"});
}

TEST_F(WindowMessages, AThemedProgramIsNotUnthemed) {
    PutStyleOn();
    Send(kThemeChange);
    Send(kColourChange);
    EXPECT_EQ(world.calls.Count("SetThemeAppProperties"), 0U);
}

TEST_F(WindowMessages, AProgramThatTheSystemDoesNotThemeIsLeftAlone) {
    Send(kColourChange);
    EXPECT_EQ(world.calls.Count("IsAppThemed"), 1U);
    EXPECT_EQ(world.calls.Count("SetThemeAppProperties"), 0U);
}

TEST_F(WindowMessages, WithoutTheThemeLibraryAColourChangeAsksNothingOfIt) {
    gThemeApiPresent = false;
    look.app_themed = true;
    Send(kColourChange);
    EXPECT_EQ(world.calls.Count("IsAppThemed"), 0U);
    EXPECT_EQ(world.calls.Count("SetThemeAppProperties"), 0U);
}

TEST_F(WindowMessages, ASettingChangeReplacesBothIconsAndNothingElse) {
    look.metrics = {{49, 24}, {50, 24}, {11, 48}, {12, 48}};
    Send(kSettingChange);
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 0), (practice::IconImage{1, 24, 24}));
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 1), (practice::IconImage{1, 48, 48}));
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 2U);
    EXPECT_EQ(world.calls.Count("OpenThemeData"), 0U);
}

TEST_F(WindowMessages, AColourChangeReplacesEachIconOnce) {
    look.metrics = {{49, 24}, {50, 24}, {11, 48}, {12, 48}};
    Send(kColourChange);
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 2U);
}

TEST_F(WindowMessages, ASettingChangeLeavesTheStateOfTheThemeAlone) {
    PutStyleOn();
    Send(kSettingChange);
    EXPECT_FALSE(gThemed);
    EXPECT_EQ(gPasswordChar, u"*");
}

TEST_F(WindowMessages, AThemeChangeRefreshesTheStateAndTheColoursFollowWithTheColourChange) {
    PutStyleOn();
    Send(kThemeChange);
    EXPECT_TRUE(gThemed);
    EXPECT_EQ(gPasswordChar, u"\u2022");
    EXPECT_EQ(form->BackColor(), 0x8000000FU);
    EXPECT_EQ(Box(u"txtNewPass").PasswordChar(), u"*");
    Send(kColourChange);
    EXPECT_EQ(form->BackColor(), 0xC0C0C0U);
    EXPECT_EQ(Box(u"txtNewPass").PasswordChar(), u"\u2022");
    EXPECT_EQ(ToUtf8(List().List(2)), "PRACTICE\t\u2022\u2022\u2022\u2022\u2022\u2022\u2022\u2022");
}

TEST_F(WindowMessages, EveryMessageGoesOnToTheFormerProcedureBehindTheOwnHandling) {
    for (const std::uint32_t message : {kColourChange, kSettingChange, kThemeChange}) {
        world.calls.Clear();
        Send(message);
        const Lines names = Names();
        ASSERT_GT(names.size(), 2U);
        EXPECT_EQ(names.front(), "CallWindowProcW") << "the procedure in front";
        EXPECT_EQ(names.back(), "CallWindowProcW") << message;
        EXPECT_EQ(std::count(names.begin(), names.end(), "CallWindowProcW"), 2) << message;
    }
}

TEST_F(WindowMessages, AMessageThatMeansNothingHereIsPassedOnWithItsArguments) {
    practice::DeliverMessage(form->Window(), 1234, 5, 6);
    const auto calls = world.calls.Of("CallWindowProcW");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(Names().size(), 2U);
    const StringList arguments(calls[1].arguments.begin() + 2, calls[1].arguments.end());
    EXPECT_EQ(arguments, (StringList{u"1234", u"5", u"6"}));
    EXPECT_EQ(calls[1].arguments[0], u"1") << "the window's own";
}

TEST_F(WindowMessages, AHandleThatIsNotTheWindowsDoesNothingAndAnswers0) {
    std::intptr_t result = 0;
    form->WndProc(form->Window() + 1, kColourChange, 0, 0, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(WindowMessages, TheFormerProcedureComesBackWhenTheWindowUnloads) {
    EXPECT_EQ(gRedirectTarget, static_cast<IRedirect*>(form.get()));
    const std::string window = std::to_string(form->Window());
    form->Unload();
    EXPECT_EQ(CallsOf({"RestoreWindowProcedure"}),
              Lines{"RestoreWindowProcedure(\"" + window + "\", \"1\")"});
    EXPECT_EQ(gRedirectTarget, nullptr);
}

TEST_F(WindowMessages, AWindowThatNeverGotAProcedurePutsNoneBack) {
    form->Unload();
    world.Fail("SetWindowProcedure", 5);
    Open();
    world.calls.Clear();
    form->Unload();
    EXPECT_EQ(world.calls.Count("RestoreWindowProcedure"), 0U);
    EXPECT_EQ(gRedirectTarget, nullptr);
}

TEST_F(WindowMessages, AColourChangeDuringTheRunDoesNoHarm) {
    TypePasswords(kOldPassword, kNewPassword);
    AtPasswordCall(2, [this] {
        PutStyleOn();
        Send(kThemeChange);
        Send(kColourChange);
        Send(kSettingChange);
    });
    ClickOk();
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    EXPECT_EQ(form->Caption(), u"Password Change Results");
    EXPECT_EQ(form->BackColor(), 0xC0C0C0U);
    EXPECT_EQ(Box(u"txtStatus").BackColor(), 0xFFFFFFU);
}

TEST_F(WindowMessages, TheBoxWithTheFocusIsTintedAndTheOthersAreNot) {
    PutStyleOn();
    Send(kThemeChange);
    Send(kColourChange);
    EXPECT_EQ(Box(u"txtOldPass").BackColor(), 0xBFFFFFU);
    for (const char16_t* next : {u"txtNewPass", u"txtConfirm", u"txtOldPass"}) {
        user.ClickOn(At(next));
        for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"})
            EXPECT_EQ(Box(name).BackColor(), String(name) == next ? 0xBFFFFFU : 0xFFFFFFU)
                << ToUtf8(next) << ToUtf8(name);
    }
}

} // namespace kestrelmoor::tests
