#include "tests/fuzz/sessions/session.h"

#include "platform/form_peer.h"
#include "platform/practice/user.h"
#include "platform/practice/windows.h"
#include "runtime/conversions.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"
#include "tests/native/support/fresh_start.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace kestrelmoor::fuzz {

namespace {

using tests::ActionKind;
using tests::UserAction;

constexpr std::size_t kLongest = 60; ///< inputs of a session
constexpr int kOverflow = 6;
constexpr int kPermissionDenied = 70;

/// The box that the keys go to shows a mask in place of what is typed.
bool FocusIsMasked() {
    const Form* const form = Application::Current().ActiveForm();
    const auto* const box = form ? dynamic_cast<const TextBox*>(form->FocusHolder()) : nullptr;
    return box != nullptr && !box->PasswordChar().empty();
}

Form* FormNamed(StringView name) {
    for (const auto& form : Application::Current().Forms())
        if (form->Name() == name)
            return form.get();
    return nullptr;
}

/// Days that no 32-bit number holds end the program, as told; behind a stored minus they are too few.
bool ShowsDaysBeyondANumber() {
    const Form* const settings = FormNamed(u"frmSettings");
    if (settings == nullptr)
        return false;
    const double days = LeadingNumber(dynamic_cast<const TextBox&>(settings->Find(u"txtRemind")).Text());
    return days > std::numeric_limits<std::int32_t>::max() || days < std::numeric_limits<std::int32_t>::min();
}

bool RunIsOpen() {
    const Form* const window = FormNamed(u"frmPass");
    return window != nullptr && window->Find(u"txtStatus").Visible();
}

} // namespace

Session::Session(practice::World& world, SessionBytes bytes) : mWorld(world), mBytes(bytes) {
    tests::ResetProgramState();
    tests::ForgetCuePoint();
    mStarted = MakeWorld(mWorld, mBytes);
    mDone.push_back("start " + ToUtf8(mWorld.machine.command_line));
    mWorld.actions.Source = [this] { return Step(); };
    mWorld.calls.Entered = [this](const practice::Call& call) { LookAtPasswordCall(call.name); };
}

void Session::Run() {
    Application::Current().SetDesktop(&platform::TheDesktop());
    try {
        Main();
        Application::Current().Run();
    } catch (const RuntimeError& error) {
        AcceptEnd(error);
    }
    Require(SecretsInWorld(mWorld));
    Require(BrokenLogs(mWorld));
    mWorld.actions = {};
    tests::GiveBackAll();
    Require(Leftovers(mWorld, mStarted));
}

void Session::RequireWindow() {
    if (!mSawWindow)
        Require({"no window was opened"});
}

/// False: the person has gone. Behind a modal window each of the loops asks by itself, the outer ones with
/// windows as no program has them.
bool Session::Step() {
    if (mGone)
        return false;
    Look();
    mSawWindow = mSawWindow || !Application::Current().Forms().empty();
    mGone = mBytes.AtEnd() || mDone.size() > kLongest;
    if (!mGone)
        Act();
    return !mGone;
}

void Session::Act() {
    const std::uint8_t choice = mBytes.Next();
    if (choice < 160)
        DoOneOf(choice);
    else if (choice < 216)
        TypeText();
    else if (choice < 224)
        SendMessage();
    else if (choice < 240)
        ChangeWorld();
    else
        QueueForPump();
}

void Session::Do(const UserAction& action) {
    mDone.push_back(TextOf(action));
    CarryOut(action);
}

void Session::DoOneOf(std::size_t number) {
    const auto actions = tests::PossibleActions();
    if (!actions.empty())
        Do(actions[number % actions.size()]);
}

/// A password goes into a masked box alone.
void Session::TypeText() {
    constexpr const char16_t* kSecrets[] = {kOldPassword, u"New-XYZZY-2", u"Third-XYZZY-3", u"XYZZY"};
    constexpr const char16_t* kTexts[] = {u"\\\\ARCHIVE", u"archive",         u"NEW", u"99", u"100",
                                          u"9999999",     u"\xE9\xD83D\xDE00"};
    const bool masked = FocusIsMasked();
    const StringView text = masked ? mBytes.Of(kSecrets) : mBytes.Of(kTexts);
    // A letter can lead from a list into a box.
    for (const char16_t character : text)
        if (FocusIsMasked() == masked)
            Do({ActionKind::Type, {}, character});
}

/// As the system tells every window of the program.
void Session::SendMessage() {
    constexpr std::uint32_t kMessages[] = {21, 26, 794};
    Form* const window = FormNamed(u"frmPass");
    if (window == nullptr)
        return;
    const std::uint32_t message = mBytes.Of(kMessages);
    mDone.push_back("message " + std::to_string(message));
    practice::DeliverMessage(window->Window(), message);
}

void Session::ChangeWorld() {
    practice::Appearance& appearance = mWorld.machine.appearance;
    const std::size_t what = mBytes.Below(6);
    mDone.push_back("world " + std::to_string(what));
    switch (what) {
    case 0:
        appearance.app_themed = appearance.theme_active = !appearance.theme_active;
        return;
    case 1:
        mWorld.clock.Advance(mBytes.Next() * practice::kSecond);
        return;
    case 2:
        for (practice::Computer& computer : mWorld.network.computers)
            computer.reachable = !computer.reachable;
        return;
    case 3:
        mWorld.network.directory.present = !mWorld.network.directory.present;
        mStarted.has_directory = true;
        return;
    case 4:
        mWorld.clock.Advance(100 * practice::kDay);
        return;
    default:
        practice::User().MoveMouse(mBytes.Next() * 4, mBytes.Next() * 4);
        return;
    }
}

/// The person acts while a handler of the program is running: at a pump of events, or while the directory
/// keeps a call waiting.
void Session::QueueForPump() {
    const std::uint8_t when = mBytes.Next();
    const std::uint8_t what = mBytes.Next();
    mDone.push_back("later " + std::to_string(when) + " " + std::to_string(what));
    const auto act = [this, what] {
        mDone.push_back("now " + std::to_string(what));
        ++mPumpDepth;
        if (what < 64)
            Do({ActionKind::CloseWindow});
        else
            DoOneOf(what);
        --mPumpDepth;
    };
    if (when >= 192)
        mWorld.calls.Before("IADsUser.ChangePassword", act, when % 3 + 1);
    else
        mWorld.actions.Queue(act, when % 5 + 1);
}

/// What the person does during the call comes behind this.
void Session::LookAtPasswordCall(const std::string& name) {
    if ((name == "NetUserChangePassword" || name == "IADsUser.ChangePassword") && !RunIsOpen())
        Require({"a password call without a window: " + name});
}

void Session::AcceptEnd(const RuntimeError& error) {
    const bool overflow = error.number() == kOverflow && (ShowsDaysBeyondANumber() || mStarted.has_directory);
    // What the directory can't tell of an account is not trapped, as told; nor are some failures of the shell
    // and of a library's entries. All of them bear the number of the failed call, never one of the logic's
    // own.
    const bool unknown = (mStarted.has_directory || mStarted.has_faults) &&
                         (error.number() < 0 || error.number() == kPermissionDenied);
    if (!overflow && !unknown)
        Require({"run-time error " + std::to_string(error.number()) + ": " + ToUtf8(error.description())});
}

/// While a handler runs its window may be in between.
void Session::Look() {
    Require(SecretsOnForms());
    if (mPumpDepth == 0)
        Require(mRules.Look());
}

void Session::Require(const std::vector<std::string>& broken) {
    if (broken.empty())
        return;
    for (const std::string& text : broken)
        std::fprintf(stderr, "BROKEN: %s\n", text.c_str());
    for (const std::string& done : mDone)
        std::fprintf(stderr, "  %s\n", done.c_str());
    std::fflush(stderr);
    std::abort();
}

} // namespace kestrelmoor::fuzz
