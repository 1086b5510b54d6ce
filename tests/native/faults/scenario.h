#pragma once

#include "platform/practice/world/world.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// What the program was seen to do in one run, as lines that can be compared.
struct Outcome {
    std::vector<std::string> lines; ///< boxes, windows, the end, and then what has changed in the world
    std::vector<std::size_t> made;  ///< of each line ahead of the changes: the calls made when it was shown
    std::vector<std::string> log;   ///< the lines of the log, where one was kept; each is one Append
    std::shared_ptr<const std::vector<practice::Call>> calls;
    std::set<std::size_t> failed; ///< the places of the calls that a fault answered
    std::size_t handles_left = 0; ///< handed out by the platform and not got back, but for the two below
    std::size_t modules_left = 0;
    std::size_t themes_left = 0;
    std::size_t wrong_releases = 0;
};

/// One start of the program: the world that it stands in, its command line, and what the person does.
struct Scenario {
    std::string name;
    std::string arguments;
    std::vector<int> answers; ///< to the first boxes, as buttons
    std::vector<std::string> script;
    std::vector<std::string> pairs; ///< the operations that are tried with two faults
    std::size_t modules_left = 0;   ///< libraries that may stay in the process, since objects of them live
    std::size_t themes_left = 0;    ///< handles of visual styles that may stay: the about window's
    std::shared_ptr<const practice::World> start;

    bool IsLogged() const { return arguments.find("/d") != std::string::npos; }
};

/// All scenarios of the file scenarios.json beside this one. A script has the console's commands, but for
/// these: "look" tells colours, icons, mask and cues of the window; "pick" tells the dialog's prompt first;
/// "restyle" has the system turn on a visual style for the program and change its colours.
const std::vector<Scenario>& AllScenarios();

/// Runs a scenario in a fresh copy of its world, with these faults laid into it.
Outcome RunScenario(const Scenario& scenario, const std::vector<practice::Fault>& faults);

} // namespace kestrelmoor::tests
