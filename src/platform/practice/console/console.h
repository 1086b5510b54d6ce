#pragma once

#include "platform/practice/user.h"
#include "platform/practice/world/world.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kestrelmoor::practice {

/// Acts in a running program by commands, one to a line, and tells what is to be seen. While it lives it is
/// where the world's actions come from, and it prints each message box.
class Console {
  public:
    /// The next line; no value at the end of the input.
    using ReadLine = std::function<std::optional<std::string>()>;
    using Print = std::function<void(const std::string&)>;

    /// `stops_at_error`: a command that can't be carried out is the last one, as it has to be in a script.
    Console(World& world, ReadLine read_line, Print print, bool stops_at_error);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Carries out the next command. False: there is none any more.
    bool Step();

    /// Whether a command could not be carried out.
    bool Failed() const { return mFailed; }

  private:
    struct Command {
        const char* name;
        const char* usage;
        const char* help;
        void (Console::*run)(const std::string& argument);
    };
    static const Command kCommands[];

    void CarryOut(const std::string& line);

    Form& OpenForm() const;
    BrowseDialog& OpenBrowse() const;
    Control& ControlNamed(const std::string& name) const;
    template <class Kind>
    std::pair<Kind*, int> RowOf(const std::string& argument, const char* kind) const;

    void Show(const std::string&);
    void Type(const std::string& text);
    void Press(const std::string& key);
    void Click(const std::string& name);
    void Choose(const std::string& argument);
    void Check(const std::string& argument);
    void Close(const std::string&);
    void Wait(const std::string& milliseconds);
    void SetClock(const std::string& time);
    void AnswerBox(const std::string& button);
    void Pick(const std::string& row);
    void Cancel(const std::string&);
    void ShowCalls(const std::string&);
    void Help(const std::string&);

    World& mWorld;
    ReadLine mReadLine;
    Print mPrint;
    bool mStopsAtError;
    bool mFailed = false;
    int mLine = 0;
    User mUser;
};

} // namespace kestrelmoor::practice
