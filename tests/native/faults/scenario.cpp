#include "tests/native/faults/scenario.h"

#include "platform/form_peer.h"
#include "platform/practice/console/console.h"
#include "platform/practice/world/host_file.h"
#include "platform/practice/world/world_file.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"
#include "tests/native/faults/observer.h"
#include "tests/native/support/fresh_start.h"

#include <nlohmann/json.hpp>

namespace kestrelmoor::tests {

namespace {

using nlohmann::json;
using practice::World;

std::shared_ptr<const World> PatchedWorld(const json& patches, const std::vector<std::string>& names) {
    json text = json::parse(practice::StockWorldText());
    for (const std::string& name : names)
        text = text.patch(patches.at(name));
    auto world = std::make_shared<World>();
    practice::ReadWorld(*world, text.dump(), "the world of a scenario");
    return world;
}

Scenario ReadScenario(const json& row, const json& patches) {
    Scenario scenario;
    scenario.name = row.at("name");
    scenario.arguments = row.value("arguments", "");
    for (const std::string answer : row.value("answers", json::array()))
        scenario.answers.push_back(answer == "yes" ? 6 : 7);
    scenario.script = row.value("script", std::vector<std::string>());
    scenario.pairs = row.value("pairs", std::vector<std::string>());
    scenario.modules_left = row.value("modules_left", std::size_t{0});
    scenario.themes_left = row.value("themes_left", std::size_t{0});
    scenario.start = PatchedWorld(patches, row.value("world", std::vector<std::string>()));
    return scenario;
}

std::vector<Scenario> ReadScenarios() {
    const json file = json::parse(practice::ReadHostFile(FAULTS_FOLDER "/scenarios.json"));
    std::vector<Scenario> scenarios;
    for (const json& row : file.at("scenarios"))
        scenarios.push_back(ReadScenario(row, file.at("worlds")));
    return scenarios;
}

void Prepare(World& world, const Scenario& scenario, const std::vector<practice::Fault>& faults) {
    PutBack(world, *scenario.start);
    world.machine.command_line = FromUtf8(scenario.arguments);
    for (const int answer : scenario.answers)
        world.boxes.Answer(answer);
    for (const practice::Fault& fault : faults)
        world.Fail(fault.name, fault.code, fault.nth);
    ResetProgramState();
}

void RunProgram(Observer& observer) {
    try {
        Main();
        Application::Current().Run();
    } catch (const RuntimeError& error) {
        observer.TellEnd(error);
    }
}

std::set<std::size_t> PlacesOf(const std::vector<practice::Fault>& faults,
                               const std::vector<practice::Call>& calls) {
    std::set<std::size_t> places;
    for (const practice::Fault& fault : faults)
        for (std::size_t place = 0, nth = 0; place < calls.size(); ++place)
            if (calls[place].name == fault.name && ++nth == static_cast<std::size_t>(fault.nth))
                places.insert(place);
    return places;
}

} // namespace

const std::vector<Scenario>& AllScenarios() {
    static const std::vector<Scenario> scenarios = ReadScenarios();
    return scenarios;
}

Outcome RunScenario(const Scenario& scenario, const std::vector<practice::Fault>& faults) {
    World& world = LastingWorld();
    Prepare(world, scenario, faults);
    Application::Current().SetDesktop(&platform::TheDesktop());
    Outcome outcome;
    {
        Observer observer(world, scenario.script);
        RunProgram(observer);
        observer.TellChanges(*scenario.start, outcome.log);
        outcome.lines = observer.Lines();
        outcome.made = observer.Made();
    }
    outcome.calls = std::make_shared<std::vector<practice::Call>>(world.calls.All());
    outcome.failed = PlacesOf(faults, *outcome.calls);
    GiveBackAll();
    outcome.modules_left = world.handles.Outstanding(practice::HandleKind::Module);
    outcome.themes_left = world.handles.Outstanding(practice::HandleKind::Theme);
    outcome.handles_left = world.OutstandingHandles() - outcome.modules_left - outcome.themes_left;
    outcome.wrong_releases = world.handles.WrongReleases();
    return outcome;
}

} // namespace kestrelmoor::tests
