#include "shell/Main.h"
#include "platform/form_peer.h"
#include "platform/practice/console/arguments.h"
#include "platform/practice/console/console.h"
#include "platform/practice/console/screen_text.h"
#include "platform/practice/world/world_file.h"
#include "platform/process.h"
#include "runtime/forms/application.h"

#include <cstdio>
#include <memory>

#include <unistd.h>

namespace {

using namespace kestrelmoor;
using namespace kestrelmoor::practice;

using Input = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

constexpr int kBadInput = 2;

void Print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

int Refuse(const std::string& what) {
    std::fprintf(stderr, "practice: %s\n", what.c_str());
    return kBadInput;
}

std::optional<std::string> ReadLine(std::FILE* input) {
    std::string line;
    int c = std::fgetc(input);
    if (c == EOF)
        return std::nullopt;
    for (; c != EOF && c != '\n'; c = std::fgetc(input))
        line.push_back(static_cast<char>(c));
    return line;
}

void RunProgram(Console& console) {
    Application& application = Application::Current();
    application.SetDesktop(&platform::TheDesktop());
    try {
        Main();
        application.Run();
        // What is asked behind the program's end can still be answered: the record of calls, say.
        while (console.Step()) {
        }
        application.UnloadAll();
    } catch (const RuntimeError& error) {
        platform::EndByError(error);
    }
}

int Run(const ConsoleArguments& arguments) {
    // Lives as long as the process: what the program holds may be given back at its very end.
    auto& world = arguments.world_file ? *new ScopedWorld(*arguments.world_file) : *new ScopedWorld;
    world.machine.command_line = arguments.program_arguments;
    const auto save = [&] {
        if (arguments.save_file)
            SaveWorld(world, *arguments.save_file);
    };
    world.ended_by_error = [&](const Box& box) {
        Print(TextOfBox(box));
        try {
            save();
        } catch (const WorldFileError& error) {
            Refuse(error.what());
        }
    };

    const Input script(arguments.script_file ? std::fopen(arguments.script_file->c_str(), "r") : nullptr,
                       [](std::FILE* file) { return file ? std::fclose(file) : 0; });
    if (arguments.script_file && !script)
        return Refuse("the script " + *arguments.script_file + " can't be opened");
    std::FILE* const input = script ? script.get() : stdin;
    const bool at_terminal = isatty(fileno(input)) == 1;
    std::size_t first = 0;
    const auto next_line = [&] {
        return first < arguments.first.size() ? std::optional(arguments.first[first++]) : ReadLine(input);
    };
    Console console(world, next_line, Print, !at_terminal);
    for (std::size_t i = 0; i < arguments.first.size(); ++i)
        console.Step();
    RunProgram(console);
    save();
    return console.Failed() && !at_terminal ? kBadInput : 0;
}

} // namespace

int main(int count, char** values) {
    try {
        const ConsoleArguments arguments = ReadArguments({values + 1, values + count});
        if (arguments.help) {
            Print(kConsoleUsage);
            return 0;
        }
        return Run(arguments);
    } catch (const std::exception& error) {
        return Refuse(error.what());
    }
}
