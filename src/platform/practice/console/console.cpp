#include "platform/practice/console/console.h"

#include "platform/form_peer.h"
#include "platform/practice/console/key_names.h"
#include "platform/practice/console/screen_text.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"

#include <charconv>

namespace kestrelmoor::practice {

namespace {

/// A command that can't be carried out, in words for the person at the keyboard.
struct CommandError {
    std::string what;
};

[[noreturn]] void Refuse(const std::string& what) {
    throw CommandError{what};
}

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || failure != std::errc() || end != text.data() + text.size() || number < 0)
        return std::nullopt;
    return number;
}

/// The time in "+6d" and the like.
std::optional<Moment> StepOfText(std::string_view text) {
    constexpr std::string_view kUnits = "smhd";
    constexpr Moment kLengths[] = {kSecond, 60 * kSecond, 3600 * kSecond, kDay};
    if (text.size() < 3 || text.front() != '+')
        return std::nullopt;
    const std::size_t unit = kUnits.find(text.back());
    const std::optional<int> count = WholeNumber(text.substr(1, text.size() - 2));
    if (unit == std::string_view::npos || !count)
        return std::nullopt;
    return *count * kLengths[unit];
}

std::string Trimmed(const std::string& line) {
    const std::size_t begin = line.find_first_not_of(" \t\r");
    if (begin == std::string::npos)
        return {};
    return line.substr(begin, line.find_last_not_of(" \t\r") - begin + 1);
}

} // namespace

const Console::Command Console::kCommands[] = {
    {"show", "show", "prints what can be seen of the open window", &Console::Show},
    {"type", "type TEXT", "types the rest of the line, blanks and all, where the focus is", &Console::Type},
    {"press", "press KEY", "Enter, Escape, Tab, Shift+Tab, Alt+x, F1, Up, Down, Space, Home ...",
     &Console::Press},
    {"click", "click NAME", "clicks a control", &Console::Click},
    {"choose", "choose NAME ROW", "clicks a row of a list; rows count from 0", &Console::Choose},
    {"check", "check NAME ROW", "turns the check mark of a row", &Console::Check},
    {"close", "close", "closes the open window by its close box", &Console::Close},
    {"wait", "wait MILLISECONDS", "lets time pass", &Console::Wait},
    {"clock", "clock +6d|TIME",
     "moves the clock on by days, hours (h), minutes (m) or seconds (s), or sets it", &Console::SetClock},
    {"box", "box OK|YES|NO", "the answer to the next message box", &Console::AnswerBox},
    {"pick", "pick ROW", "picks from the dialog to choose a computer", &Console::Pick},
    {"cancel", "cancel", "closes that dialog without a pick", &Console::Cancel},
    {"calls", "calls", "prints the calls into the system so far; passwords are not in it",
     &Console::ShowCalls},
    {"help", "help", "prints this list", &Console::Help},
};

Console::Console(World& world, ReadLine read_line, Print print, bool stops_at_error)
    : mWorld(world), mReadLine(std::move(read_line)), mPrint(std::move(print)),
      mStopsAtError(stops_at_error) {
    mWorld.actions.Source = [this] { return Step(); };
    mWorld.boxes.Shown = [this](const Box& box) { mPrint(TextOfBox(box)); };
    mWorld.browser.Shown = [this](const BrowseDialog& dialog) { mPrint(TextOfBrowse(dialog)); };
}

Console::~Console() {
    mWorld.actions.Source = nullptr;
    mWorld.boxes.Shown = nullptr;
    mWorld.browser.Shown = nullptr;
}

bool Console::Step() {
    if (mFailed && mStopsAtError)
        return false;
    const std::optional<std::string> line = mReadLine();
    if (!line)
        return false;
    ++mLine;
    try {
        CarryOut(*line);
    } catch (const CommandError& error) {
        mFailed = true;
        mPrint("line " + std::to_string(mLine) + ": " + error.what + "\n");
    }
    return true;
}

void Console::CarryOut(const std::string& line) {
    const std::string trimmed = Trimmed(line);
    if (trimmed.empty() || trimmed.starts_with('#'))
        return;
    const std::string name = trimmed.substr(0, trimmed.find_first_of(" \t"));
    for (const Command& command : kCommands) {
        if (name != command.name)
            continue;
        const bool takes_one = std::string_view(command.usage) != command.name;
        const std::size_t behind = line.find(name) + name.size() + 1;
        const std::string argument = behind < line.size() ? line.substr(behind) : "";
        if (takes_one == Trimmed(argument).empty() && name != "type")
            Refuse(std::string("write \"") + command.usage + "\"");
        (this->*command.run)(name == "type" ? argument : Trimmed(argument));
        return;
    }
    Refuse("\"" + name + "\" is no command; help lists them");
}

Form& Console::OpenForm() const {
    if (mWorld.browser.Current())
        Refuse("a dialog stands in front of the window; pick from it or cancel it");
    Form* const form = Application::Current().ActiveForm();
    if (!form || !form->Visible())
        Refuse("no window is open");
    return *form;
}

BrowseDialog& Console::OpenBrowse() const {
    BrowseDialog* const dialog = mWorld.browser.Current();
    if (!dialog)
        Refuse("no dialog to choose from is open");
    return *dialog;
}

Control& Console::ControlNamed(const std::string& name) const {
    for (Control* const control : OpenForm().AllControls())
        if (control->Name() == FromUtf8(name))
            return *control;
    Refuse("the open window has no control named \"" + name + "\"; show lists them");
}

template <class Kind>
std::pair<Kind*, int> Console::RowOf(const std::string& argument, const char* kind) const {
    const std::size_t blank = argument.find_last_of(' ');
    const std::optional<int> row =
        blank == std::string::npos ? std::nullopt : WholeNumber(std::string_view(argument).substr(blank + 1));
    if (!row)
        Refuse("a control's name and the number of a row are needed; show lists both");
    const std::string name = Trimmed(argument.substr(0, blank));
    auto* const list = dynamic_cast<Kind*>(&ControlNamed(name));
    if (!list)
        Refuse("\"" + name + "\" is no " + kind);
    if (*row >= list->ListCount())
        Refuse("\"" + name + "\" has " + std::to_string(list->ListCount()) + " rows, counted from 0");
    return {list, *row};
}

void Console::Show(const std::string&) {
    mPrint(TextOfScreen(OpenForm()));
}

void Console::Type(const std::string& text) {
    OpenForm();
    if (!mUser.Type(FromUtf8(text)))
        Refuse("the window closed, or could not take input, before all was typed");
}

void Console::Press(const std::string& key) {
    const std::optional<KeyStroke> stroke = KeyOfName(key);
    if (!stroke)
        Refuse("\"" + key + "\" is no key; write Enter, Escape, Tab, Shift+Tab, Alt+x, F1, Up, a, 1 ...");
    OpenForm();
    if (!mUser.Press(stroke->key, stroke->shift))
        Refuse("nothing in the open window takes " + key);
}

void Console::Click(const std::string& name) {
    if (!mUser.ClickOn(ControlNamed(name)))
        Refuse("\"" + name + "\" can't be clicked: it is hidden or disabled");
}

void Console::Choose(const std::string& argument) {
    const auto [list, row] = RowOf<RowControl>(argument, "list");
    if (!mUser.ChooseRow(*list, row))
        Refuse("the list can't be clicked: it is hidden or disabled");
}

void Console::Check(const std::string& argument) {
    const auto [list, row] = RowOf<ListBox>(argument, "list with check marks");
    if (list->Style() != ListStyle::CheckBoxes)
        Refuse("this list has no check marks");
    if (!mUser.ToggleRow(*list, row))
        Refuse("the list can't be clicked: it is hidden or disabled");
}

void Console::Close(const std::string&) {
    if (!mUser.CloseWindow(OpenForm()))
        Refuse("the window can't be closed while another one stands in front of it");
}

void Console::Wait(const std::string& milliseconds) {
    const std::optional<int> time = WholeNumber(milliseconds);
    if (!time)
        Refuse("\"" + milliseconds + "\" is no number of milliseconds");
    mWorld.clock.Advance(*time);
    platform::TheDesktop().PumpEvents();
}

void Console::SetClock(const std::string& time) {
    const std::optional<Moment> step = StepOfText(time);
    const std::optional<Moment> moment =
        step ? std::optional(mWorld.clock.Now() + *step) : MomentOfText(FromUtf8(time));
    if (!moment)
        Refuse("\"" + time + "\" is no time; write +6d, +12h, +30m, +45s or 2026-03-08T09:00:00");
    mWorld.clock.Set(*moment);
}

void Console::AnswerBox(const std::string& button) {
    const String word = LowerAscii(FromUtf8(button));
    const int answer = word == u"ok" ? 1 : word == u"yes" ? 6 : word == u"no" ? 7 : 0;
    if (answer == 0)
        Refuse("\"" + button + "\" is no button; write ok, yes or no");
    mWorld.boxes.Answer(answer);
}

void Console::Pick(const std::string& row) {
    BrowseDialog& dialog = OpenBrowse();
    const std::vector<ItemPath> rows = dialog.Rows();
    const std::optional<int> number = WholeNumber(row);
    if (!number || static_cast<std::size_t>(*number) >= rows.size())
        Refuse("there are " + std::to_string(rows.size()) + " rows, counted from 0");
    dialog.Select(rows[static_cast<std::size_t>(*number)]);
    if (!dialog.PressOk())
        Refuse("OK is disabled for this row: it is no computer and no domain");
}

void Console::Cancel(const std::string&) {
    OpenBrowse().Cancel();
}

void Console::ShowCalls(const std::string&) {
    for (const Call& call : mWorld.calls.All())
        mPrint(TextOf(call) + "\n");
}

void Console::Help(const std::string&) {
    for (const Command& command : kCommands) {
        std::string usage = command.usage;
        usage.resize(20, ' ');
        mPrint(usage + command.help + "\n");
    }
}

} // namespace kestrelmoor::practice
