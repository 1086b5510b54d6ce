#include "tests/native/secrets/trace_search.h"

#include "platform/practice/system_windows.h"
#include "runtime/forms/application.h"

#include <algorithm>
#include <tuple>

namespace kestrelmoor::tests {

namespace {

/// The calls that a password is handed to, and at which place.
constexpr std::tuple<std::string_view, std::size_t> kPasswordPlaces[] = {
    {"NetUserChangePassword", 1},
    {"NetUserChangePassword", 2},
    {"IADsUser.ChangePassword", 0},
    {"IADsUser.ChangePassword", 1},
};

/// The boxes that a password is typed into.
constexpr std::tuple<StringView, StringView> kPasswordBoxes[] = {
    {u"frmPass", u"txtOldPass"},
    {u"frmPass", u"txtNewPass"},
    {u"frmPass", u"txtConfirm"},
};

template <class Pair, std::size_t count>
bool IsAmong(const Pair (&pairs)[count], const Pair& pair) {
    return std::find(std::begin(pairs), std::end(pairs), pair) != std::end(pairs);
}

std::string Small(std::string_view bytes) {
    std::string small(bytes);
    for (char& byte : small)
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
    return small;
}

std::string_view BytesOf(StringView text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

/// How the record of calls shows what it keeps to itself.
bool IsHidden(StringView argument) {
    return argument.starts_with(u"<secret ");
}

} // namespace

TraceSearch::TraceSearch(practice::World& world, const StringList& passwords) : mWorld(world) {
    for (const StringView password : passwords) {
        const std::size_t half = password.size() / 2;
        for (std::size_t at = 0; at + half <= password.size(); ++at) {
            mNeedles.insert(Small(ToUtf8(password.substr(at, half))));
            mNeedles.insert(Small(BytesOf(password.substr(at, half))));
        }
    }
    world.calls.Entered = [this](const practice::Call& call) {
        LookAtCall(call);
        Look();
    };
    world.calls.Passed = [this](std::string_view name, std::string_view bytes) {
        LookAtBytes("passed to", FromUtf8(name), bytes);
    };
    world.boxes.Shown = [this](const practice::Box&) { Look(); };
}

TraceSearch::~TraceSearch() {
    mWorld.calls.Entered = nullptr;
    mWorld.calls.Passed = nullptr;
    mWorld.boxes.Shown = nullptr;
}

void TraceSearch::Look() {
    if (mLooking)
        return;
    mLooking = true;
    ++mLooks;
    LookAtForms();
    LookAtWindowsOfTheSystem();
    LookAtStores();
    LookAtBoxes();
    LookAtTheRest();
    mLooking = false;
}

void TraceSearch::LookAt(std::string_view kind, StringView owner, StringView text) {
    LookAtBytes(kind, owner, BytesOf(text));
}

void TraceSearch::LookAtBytes(std::string_view kind, StringView owner, std::string_view bytes) {
    std::string text(bytes);
    if (mClean.contains(text))
        return;
    const std::string small = Small(bytes);
    if (std::ranges::none_of(
            mNeedles, [&](const std::string& needle) { return small.find(needle) != std::string::npos; }))
        mClean.insert(std::move(text));
    else
        mFound.insert(std::string(kind) + (owner.empty() ? "" : " ") + ToUtf8(owner));
}

void TraceSearch::LookAtCall(const practice::Call& call) {
    LookAtBytes("name of a call", {}, call.name);
    for (std::size_t place = 0; place < call.arguments.size(); ++place) {
        const String& argument = call.arguments[place];
        const std::string name = call.name + ", argument " + std::to_string(place);
        LookAt(name, argument);
        if (IsHidden(argument) && !IsAmong(kPasswordPlaces, {std::string_view(call.name), place}))
            mFound.insert(name);
    }
}

void TraceSearch::LookAtForms() {
    for (const auto& form : Application::Current().Forms()) {
        LookAt("caption of", form->Name(), form->Caption());
        LookAt("tag of", form->Name(), form->Tag());
        LookAt("font of", form->Name(), form->Font().Name());
        for (const Control* const control : form->AllControls())
            LookAtControl(*control);
    }
}

void TraceSearch::LookAtControl(const Control& control) {
    const String name = control.Parent().Name() + u'.' + control.Name();
    LookAt("caption of", name, control.Caption());
    LookAt("tag of", name, control.Tag());
    LookAt("tip of", name, control.ToolTipText());
    LookAt("font of", name, control.Font().Name());
    if (const auto* const box = dynamic_cast<const TextBox*>(&control)) {
        const bool for_passwords = IsAmong(kPasswordBoxes, {control.Parent().Name(), control.Name()});
        if (!for_passwords || box->PasswordChar().empty())
            LookAt("text of", name, box->Text());
        LookAt("mask of", name, box->PasswordChar());
    }
    if (const auto* const list = dynamic_cast<const RowControl*>(&control))
        for (int row = 0; row < list->ListCount(); ++row)
            LookAt("row of", name, list->List(row));
}

void TraceSearch::LookAtWindowsOfTheSystem() {
    practice::SystemWindows& windows = practice::SystemWindows::Current();
    for (const WindowHandle window : windows.Within(0))
        LookAt("window of the system", windows.Find(window)->text);
}

void TraceSearch::LookAtStores() {
    for (const auto& [folded, file] : mWorld.files.Files()) {
        LookAt("path of a file", file.path);
        LookAtBytes("file", file.path, file.content);
    }
    for (const auto& [folded, key] : mWorld.registry.Keys()) {
        LookAt("path of a key", key.path);
        for (const practice::RegistryValue& value : key.values) {
            LookAt("value's name in", key.path, value.name);
            LookAtBytes("value in", key.path,
                        {reinterpret_cast<const char*>(value.data.data()), value.data.size()});
        }
    }
}

void TraceSearch::LookAtBoxes() {
    for (const practice::Box& box : mWorld.boxes.All()) {
        LookAt("text of a box", box.text);
        LookAt("title of a box", box.title);
    }
}

void TraceSearch::LookAtTheRest() {
    for (const std::string& name : mWorld.mutexes)
        LookAtBytes("name of a mutex", {}, name);
    for (const practice::ShellExecution& execution : mWorld.shell_executions)
        LookAt("command to the shell", execution.operation + u' ' + execution.file);
    LookAt("command line", mWorld.machine.command_line);
    for (const auto& [name, value] : mWorld.machine.environment)
        LookAt("environment", name + u'=' + value);
}

} // namespace kestrelmoor::tests
