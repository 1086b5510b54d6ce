#include "tests/fuzz/sessions/session_checks.h"

#include "runtime/forms/application.h"
#include "runtime/forms/controls.h"
#include "shell/program_state.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kestrelmoor::fuzz {

namespace {

using Broken = std::vector<std::string>;

bool Holds(StringView text) {
    return text.find(kSecretMark) != StringView::npos;
}

/// Byte by byte, in UTF-8 and in UTF-16.
bool HoldsBytes(std::string_view bytes) {
    constexpr StringView mark = kSecretMark;
    char wide[std::size(kSecretMark) * sizeof(char16_t)];
    std::memcpy(wide, mark.data(), mark.size() * sizeof(char16_t));
    return bytes.find("XYZZY") != std::string_view::npos ||
           bytes.find(std::string_view(wide, mark.size() * sizeof(char16_t))) != std::string_view::npos;
}

bool ShowsSecret(const Control& control) {
    if (Holds(control.Caption()) || Holds(control.Tag()) || Holds(control.ToolTipText()))
        return true;
    if (const auto* const box = dynamic_cast<const TextBox*>(&control))
        return box->PasswordChar().empty() && Holds(box->Text());
    if (const auto* const list = dynamic_cast<const RowControl*>(&control))
        for (int row = 0; row < list->ListCount(); ++row)
            if (Holds(list->List(row)))
                return true;
    return false;
}

void CheckLog(const practice::File& file, Broken& broken) {
    std::string_view rest = file.content;
    while (!rest.empty()) {
        const std::size_t end = rest.find("\r\n");
        const std::string_view line = rest.substr(0, end);
        const bool typed = line.starts_with("Information: ") || line.starts_with("Error: ");
        const bool plain = line.find_first_of("\r\n") == std::string_view::npos;
        if (end == std::string_view::npos || !typed || !plain)
            broken.push_back("a line of the log: " + std::string(line));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
    }
}

/// With the colours it loads its icon, which is the only one so large.
std::size_t ColoursTakenByAbout(const practice::World& world) {
    const std::vector<practice::Call> loads = world.calls.Of("LoadImageW");
    const auto is_large = [](const practice::Call& load) { return load.arguments[1] == u"48"; };
    return static_cast<std::size_t>(std::ranges::count_if(loads, is_large));
}

} // namespace

Broken SecretsOnForms() {
    Broken broken;
    for (const auto& form : Application::Current().Forms()) {
        if (Holds(form->Caption()) || Holds(form->Tag()))
            broken.push_back("a password stands in the title of " + ToUtf8(form->Name()));
        for (const Control* const control : form->AllControls())
            if (ShowsSecret(*control))
                broken.push_back("a password stands in " + ToUtf8(control->Name()));
    }
    return broken;
}

Broken SecretsInWorld(const practice::World& world) {
    Broken broken;
    for (const auto& [path, file] : world.files.Files())
        if (Holds(path) || HoldsBytes(file.content))
            broken.push_back("a password stands in the file " + ToUtf8(path));
    for (const auto& [path, registry_key] : world.registry.Keys())
        for (const practice::RegistryValue& value : registry_key.values)
            if (Holds(value.name) ||
                HoldsBytes({reinterpret_cast<const char*>(value.data.data()), value.data.size()}))
                broken.push_back("a password stands in the registry: " + ToUtf8(value.name));
    for (const practice::Call& call : world.calls.All())
        if (std::ranges::any_of(call.arguments, [](const String& text) { return Holds(text); }))
            broken.push_back("a password was given to " + call.name);
    for (const practice::Box& box : world.boxes.All())
        if (Holds(box.text) || Holds(box.title))
            broken.push_back("a password stood in a message box");
    return broken;
}

Broken BrokenLogs(const practice::World& world) {
    Broken broken;
    const String& line = world.machine.command_line;
    const bool wanted = line.find(u"/d") != String::npos || line.find(u"-d") != String::npos;
    for (const auto& [path, file] : world.files.Files()) {
        if (!path.ends_with(u".log"))
            continue;
        if (!wanted)
            broken.push_back("a log that nobody asked for: " + ToUtf8(path));
        CheckLog(file, broken);
    }
    return broken;
}

Broken Leftovers(const practice::World& world, const StartedWorld& started) {
    Broken broken;
    const std::size_t modules = world.handles.Outstanding(practice::HandleKind::Module);
    // Each time the settings open, the library in use is loaded once more and refuses to leave.
    const std::size_t modules_kept = world.calls.Count("FindFirstFileW");
    // Each time the about window takes its colours from a visual style, it keeps the handle of that.
    const std::size_t themes = world.handles.Outstanding(practice::HandleKind::Theme);
    const std::size_t themes_kept = ColoursTakenByAbout(world);
    const std::size_t others = world.OutstandingHandles() - modules - themes;
    if (others != 0)
        broken.push_back("handles left open: " + std::to_string(others));
    if (themes > themes_kept)
        broken.push_back("visual styles left open: " + std::to_string(themes));
    // One whose export isn't found is neither used nor asked to leave.
    if (modules > modules_kept && !started.hides_exports)
        broken.push_back("libraries left loaded: " + std::to_string(modules));
    if (world.handles.WrongReleases() != 0)
        broken.push_back("wrong releases: " + std::to_string(world.handles.WrongReleases()));
    if (!Application::Current().Forms().empty())
        broken.emplace_back("windows left loaded");
    if (gKeyboardHook != 0 || gMouseHook != 0)
        broken.emplace_back("hooks left installed");
    return broken;
}

} // namespace kestrelmoor::fuzz
