#pragma once

#include "runtime/text.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::practice {

/// What the practice console was started with.
struct ConsoleArguments {
    std::optional<std::string> world_file; ///< none: the stock world
    std::optional<std::string> save_file;
    std::optional<std::string> script_file; ///< none: standard input
    std::vector<std::string> first;         ///< commands ahead of the program's start
    bool help = false;
    String program_arguments; ///< the program's own command line
};

/// Reads the arguments; raises std::invalid_argument with one line for the person at the keyboard.
ConsoleArguments ReadArguments(const std::vector<std::string>& arguments);

extern const char kConsoleUsage[];

} // namespace kestrelmoor::practice
