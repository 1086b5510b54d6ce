#include "platform/practice/console/arguments.h"

#include <stdexcept>

namespace kestrelmoor::practice {

const char kConsoleUsage[] =
    "practice [--world FILE] [--save FILE] [--script FILE] [--first LINE] [-- ARGUMENTS]\n"
    "\n"
    "Runs the program on an imagined network, without a screen.\n"
    "  --world FILE   the network, as JSON; without it the stock world\n"
    "  --save FILE    writes the network as the program leaves it\n"
    "  --script FILE  takes the commands from a file, not from standard input\n"
    "  --first LINE   a command ahead of the start, such as \"clock +6d\"\n"
    "  -- ARGUMENTS   the program's own command line, such as /f\n"
    "\n"
    "The command help lists what can be done then.\n";

namespace {

String AsProgramArgument(const std::string& argument) {
    const String text = FromUtf8(argument);
    return text.find(u' ') == String::npos ? text : Quoted(text);
}

} // namespace

ConsoleArguments ReadArguments(const std::vector<std::string>& arguments) {
    ConsoleArguments read;
    std::size_t i = 0;
    const auto value = [&] {
        if (i + 1 >= arguments.size())
            throw std::invalid_argument(arguments[i] + " needs something behind it");
        return arguments[++i];
    };
    for (; i < arguments.size() && arguments[i] != "--"; ++i) {
        if (arguments[i] == "--world")
            read.world_file = value();
        else if (arguments[i] == "--save")
            read.save_file = value();
        else if (arguments[i] == "--script")
            read.script_file = value();
        else if (arguments[i] == "--first")
            read.first.push_back(value());
        else if (arguments[i] == "--help")
            read.help = true;
        else
            throw std::invalid_argument("\"" + arguments[i] + "\" is not known; --help tells what is");
    }
    StringList program_arguments;
    while (++i < arguments.size())
        program_arguments.push_back(AsProgramArgument(arguments[i]));
    read.program_arguments = Join(program_arguments, u' ');
    return read;
}

} // namespace kestrelmoor::practice
