#pragma once

#include "platform/practice/console/console.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// Acts for the person of a scenario and writes down what can be seen, in lines:
///   mutex NAME                 box STYLE TITLE: TEXT      browse: PROMPT      prompt: PROMPT
///   the console's lines of a window, blanks drawn together, rows as "row TEXT", paragraphs of the results as
///   "status: TEXT"             look WHAT ...              refused: WHAT (the script then ends)
///   error NUMBER: TEXT         session ends               password COMPUTER OR DOMAIN = TEXT
///   registry NAME = DATA       registry NAME gone         file PATH                opened FILE OR ADDRESS
class Observer {
  public:
    Observer(practice::World& world, const std::vector<std::string>& script);

    /// The process was ended by an error that nobody trapped.
    void TellEnd(const RuntimeError& error);

    /// What the run has changed in its world; the lines of new files go to `log`.
    void TellChanges(const practice::World& start, std::vector<std::string>& log);

    const std::vector<std::string>& Lines() const { return mLines; }

    /// Of each line ahead of the changes: how many calls had been made when it was shown.
    const std::vector<std::size_t>& Made() const { return mMade; }

  private:
    std::optional<std::string> NextLine();
    bool Look();
    bool Restyle();
    bool Pick(std::size_t row);
    bool Refuse(const std::string& what);
    void Show(const std::string& line);
    void Print(const std::string& text);
    void PrintLine(std::string line);
    bool PrintResult(std::string line); ///< false: the line is not of the box of results
    void TellPasswords(const practice::World& start);
    void TellRegistry(const practice::World& start);
    void TellFiles(const practice::World& start, std::vector<std::string>& log);

    practice::World& mWorld;
    const std::vector<std::string>& mScript;
    std::size_t mNext = 0;
    bool mInResults = false;
    std::vector<std::string> mLines;
    std::vector<std::size_t> mMade;
    practice::Console mConsole;
};

} // namespace kestrelmoor::tests
