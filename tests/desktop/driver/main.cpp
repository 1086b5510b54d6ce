// The driver of the desktop tests: it sits beside the program under test and sees and touches its windows.
#include "commands.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <map>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

using Command = Answer (*)(const Arguments&);

const std::map<std::string, Command> kCommands = {
    {"windows", ListWindows},
    {"children", ListChildren},
    {"client", ClientArea},
    {"input", InputState},
    {"screen", ScreenState},
    {"text", ReadText},
    {"send", SendTo},
    {"post", PostTo},
    {"send_text", SendTextTo},
    {"items", ListItems},
    {"list", ListState},
    {"press", PressKeys},
    {"type", TypeText},
    {"front", BringToFront},
    {"start", StartProgram},
    {"start_as_user", StartAsUser},
    {"wait", WaitForExit},
    {"end", EndProcess},
    {"modules", ListModules},
    {"loads", ListLoads},
    {"counts", CountObjects},
    {"user", CountUser},
    {"heaps", MeasureHeaps},
    {"load_in", LoadInProgram},
    {"layout", FindLayoutFaults},
    {"box_icon", ReadBoxIcon},
    {"pointer", ReadPointer},
    {"call", CallInProgram},
    {"window_icon", ReadWindowIcon},
    {"clipboard", PutOnClipboard},
    {"read_value", ReadValue},
    {"write_value", WriteValue},
    {"delete_value", DeleteValue},
    {"delete_key", DeleteKey},
    {"list_key", ListKey},
    {"guard", GuardSession},
    {"endings", SessionEndings},
};

bool ReadLine(std::string& line) {
    line.clear();
    int c = 0;
    while ((c = std::getchar()) != EOF && c != '\n')
        line += static_cast<char>(c);
    return c != EOF;
}

void Print(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

void CarryOut(const std::string& line) {
    std::vector<std::string> fields = SplitRequest(line);
    try {
        const auto command = kCommands.find(fields.front());
        if (command == kCommands.end())
            throw std::invalid_argument("no such command: " + fields.front());
        fields.erase(fields.begin());
        for (const Record& record : command->second(Arguments(std::move(fields))))
            Print(record.Line());
        Print(".");
    } catch (const std::exception& failure) {
        Print("!" + Record().Add(std::string(failure.what())).Line().substr(1));
    }
    std::fflush(stdout);
}

} // namespace

} // namespace kestrelmoor::driver

int wmain() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::string line;
    while (kestrelmoor::driver::ReadLine(line))
        kestrelmoor::driver::CarryOut(line);
    return 0;
}
