#include "tests/native/faults/observer.h"

#include "platform/practice/windows.h"
#include "platform/window_messages.h"
#include "runtime/forms/application.h"

#include <cstdio>
#include <regex>
#include <sstream>

namespace kestrelmoor::tests {

namespace {

using practice::World;

/// On one line, with each run of blanks as one.
std::string OnOneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        const std::string part = c == '\n' ? " /" : c == '\r' || c == '\t' ? "" : std::string(1, c);
        for (const char unit : part + (c == '\n' ? " " : ""))
            if (unit != ' ' || (!line.empty() && line.back() != ' '))
                line.push_back(unit);
    }
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return line;
}

std::string Hex(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "%06X", number);
    return text;
}

bool TakePrefix(std::string& line, const std::string& prefix) {
    if (!line.starts_with(prefix))
        return false;
    line.erase(0, prefix.size());
    return true;
}

std::string DataText(const practice::RegistryValue& value) {
    std::string text;
    if (value.type == 1)
        for (std::size_t i = 0; i + 3 < value.data.size(); i += 2)
            text.push_back(static_cast<char>(value.data[i]));
    else
        for (auto byte = value.data.rbegin(); byte != value.data.rend(); ++byte)
            text += Hex(*byte).substr(4);
    return text;
}

/// Of everybody who answers for passwords: the name and the accounts.
template <class Told>
void ForEachStore(const World& world, Told told) {
    for (const practice::Computer& computer : world.network.computers)
        told(computer.name, computer.store);
    for (const practice::Domain& domain : world.network.domains)
        told(domain.name, domain.store);
}

std::string IconText(const Form& form, std::uint32_t size) {
    const auto icon = practice::Windows::Current().Icon(form.Window(), size);
    return icon ? std::to_string(icon->width) + " " + std::to_string(icon->height) : "none";
}

} // namespace

Observer::Observer(World& world, const std::vector<std::string>& script)
    : mWorld(world), mScript(script),
      mConsole(
          world, [this] { return NextLine(); }, [this](const std::string& text) { Print(text); }, true) {
    world.boxes.Shown = [this](const practice::Box& box) {
        Show(OnOneLine("box " + std::to_string(box.style) + " " + ToUtf8(box.title) + ": " +
                       ToUtf8(box.text)));
    };
    world.browser.Shown = [this](const practice::BrowseDialog& dialog) {
        Show(OnOneLine("browse: " + ToUtf8(dialog.Prompt())));
    };
}

std::optional<std::string> Observer::NextLine() {
    while (mNext < mScript.size()) {
        const std::string& line = mScript[mNext++];
        if (line == "look") {
            if (!Look())
                return std::nullopt;
        } else if (line == "restyle") {
            if (!Restyle())
                return std::nullopt;
        } else if (line.starts_with("pick ")) {
            if (!Pick(static_cast<std::size_t>(std::stoi(line.substr(5)))))
                return std::nullopt;
            return "# the dialog is closed";
        } else {
            return line;
        }
    }
    return std::nullopt;
}

bool Observer::Refuse(const std::string& what) {
    Show("refused: " + what);
    mNext = mScript.size();
    return false;
}

bool Observer::Look() {
    Form* const form = Application::Current().ActiveForm();
    if (!form)
        return Refuse("no window is open");
    Show("look form " + Hex(form->BackColor()) + " " + Hex(form->ForeColor()));
    if (const Control* const focus = form->FocusHolder())
        Show("look focus " + Hex(focus->BackColor()) + " " + Hex(focus->ForeColor()));
    for (const std::uint32_t size : {0U, 1U})
        Show("look icon " + std::to_string(size) + " " + IconText(*form, size));
    const auto& box = form->Get<TextBox>(u"txtNewPass");
    Show("look mask " + ToUtf8(box.PasswordChar()));
    const auto& label = form->Get<Label>(u"lblNewPass");
    Show(label.Caption() == label.Tag() ? "look cues shown" : "look cues hidden");
    return true;
}

bool Observer::Restyle() {
    Form* const form = Application::Current().ActiveForm();
    if (!form)
        return Refuse("no window is open");
    mWorld.machine.appearance.app_themed = true;
    practice::DeliverMessage(form->Window(), platform::window_message::kSysColorChange);
    return true;
}

bool Observer::Pick(std::size_t row) {
    practice::BrowseDialog* const dialog = mWorld.browser.Current();
    if (!dialog)
        return Refuse("no dialog is open");
    dialog->Select(dialog->Rows().at(row));
    Show(OnOneLine("prompt: " + ToUtf8(dialog->Prompt())));
    return dialog->PressOk() || Refuse("OK is disabled for this row");
}

void Observer::Show(const std::string& line) {
    mLines.push_back(line);
    mMade.push_back(mWorld.calls.All().size());
}

void Observer::Print(const std::string& text) {
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        PrintLine(OnOneLine(line));
}

void Observer::PrintLine(std::string line) {
    static const std::regex kRefused(R"(^line \d+: )");
    static const std::regex kRow(R"(^(\* )?(\[.\] )?\d+: ?)");
    static const std::regex kLength(R"(list of \d+)");
    if (PrintResult(line))
        return;
    if (line.starts_with("line "))
        line = std::regex_replace(line, kRefused, "refused: ");
    else if (line.find_first_of("*[0123456789") == 0)
        line = OnOneLine(std::regex_replace(line, kRow, "row $2"));
    else if (line.find("list of ") != std::string::npos)
        line = std::regex_replace(line, kLength, "list");
    if (!line.empty())
        Show(line);
}

bool Observer::PrintResult(std::string line) {
    static const std::regex kEnd(R"("( \(disabled\))? \(locked\)$)");
    if (TakePrefix(line, "txtStatus \"") || TakePrefix(line, "> txtStatus \"")) {
        mInResults = true;
        Show("txtStatus");
    }
    if (!mInResults)
        return false;
    mInResults = !std::regex_search(line, kEnd);
    line = OnOneLine("status: " + std::regex_replace(line, kEnd, ""));
    if (line != "status:")
        Show(line);
    return true;
}

void Observer::TellEnd(const RuntimeError& error) {
    Show(OnOneLine("error " + std::to_string(error.number()) + ": " + ToUtf8(error.description())));
}

void Observer::TellChanges(const World& start, std::vector<std::string>& log) {
    for (const std::string& name : mWorld.mutexes)
        mLines.push_back("mutex " + name);
    for (std::size_t i = 0; i < mWorld.session_ends.size(); ++i)
        mLines.emplace_back("session ends");
    for (const practice::ShellExecution& opened : mWorld.shell_executions)
        mLines.push_back("opened " + ToUtf8(opened.file));
    TellPasswords(start);
    TellRegistry(start);
    TellFiles(start, log);
}

void Observer::TellPasswords(const World& start) {
    std::vector<String> former;
    ForEachStore(start, [&](const String&, const practice::AccountStore& store) {
        for (const practice::Account& account : store.accounts)
            former.push_back(account.password);
    });
    auto before = former.begin();
    ForEachStore(mWorld, [&](const String& name, const practice::AccountStore& store) {
        for (const practice::Account& account : store.accounts)
            if (*before++ != account.password)
                mLines.push_back("password " + ToUtf8(name) + " = " + ToUtf8(account.password));
    });
}

void Observer::TellRegistry(const World& start) {
    for (const auto& [folded, key] : mWorld.registry.Keys())
        for (const practice::RegistryValue& value : key.values) {
            const practice::RegistryValue* const former = start.registry.FindValue(key.path, value.name);
            if (!former || *former != value)
                mLines.push_back("registry " + ToUtf8(value.name) + " = " + DataText(value));
        }
    for (const auto& [folded, key] : start.registry.Keys())
        for (const practice::RegistryValue& value : key.values)
            if (!mWorld.registry.FindValue(key.path, value.name))
                mLines.push_back("registry " + ToUtf8(value.name) + " gone");
}

void Observer::TellFiles(const World& start, std::vector<std::string>& log) {
    for (const auto& [folded, file] : mWorld.files.Files()) {
        if (start.files.Find(file.path))
            continue;
        mLines.push_back("file " + ToUtf8(file.path));
        std::istringstream stream(file.content);
        for (std::string line; std::getline(stream, line);)
            log.push_back(OnOneLine(line));
    }
}

} // namespace kestrelmoor::tests
