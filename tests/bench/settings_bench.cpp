#include "tests/bench/practice_start.h"

#include "forms/settings/frmSettings.h"
#include "platform/practice/user.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace kestrelmoor::bench {

namespace {

std::shared_ptr<frmSettings> OpenSettings() {
    auto form = Application::Current().Make<frmSettings>();
    form->Show();
    return form;
}

/// The click on OK, with the settings to be kept.
double SecondsOfSaving(const std::shared_ptr<frmSettings>& form) {
    practice::User user;
    form->Get<CheckBox>(u"chkPermanent").SetValue(1);
    form->Find(u"cmdOK").SetEnabled(true);
    return SecondsOf([&] { user.ClickOn(form->Find(u"cmdOK")); });
}

/// Saved once by the window itself, the servers are stored in the order of its list.
practice::World& StartWithSavedServers(int count) {
    practice::World& world = PracticeStart();
    ConfigureServers(world, count);
    SecondsOfSaving(OpenSettings());
    return world;
}

/// The list's part of it is what 1,000 and 10,000 servers add to ten.
void OpenTheSettingsWithServers(benchmark::State& state) {
    const int servers = static_cast<int>(state.range(0));
    practice::World& world = StartWithSavedServers(servers);
    for (auto _ : state) {
        world.calls.Clear();
        std::shared_ptr<frmSettings> form;
        state.SetIterationTime(SecondsOf([&] { form = OpenSettings(); }));
        if (form->Get<ListBox>(u"lstServers").ListCount() != servers)
            state.SkipWithError("not all servers became rows");
        Application::Current().UnloadAll();
    }
    ConfigureServers(world, 2);
}
BENCHMARK(OpenTheSettingsWithServers)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// From the click on OK to the settings in the registry.
void SaveTheSettingsWithServers(benchmark::State& state) {
    const int servers = static_cast<int>(state.range(0));
    practice::World& world = StartWithSavedServers(servers);
    for (auto _ : state) {
        world.calls.Clear();
        const auto form = OpenSettings();
        state.SetIterationTime(SecondsOfSaving(form));
        if (!form->IsUnloaded() || gServerCount != servers || world.calls.Count("RegSetValueExW") < 2)
            state.SkipWithError("not all servers were saved");
    }
    ConfigureServers(world, 2);
}
BENCHMARK(SaveTheSettingsWithServers)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace kestrelmoor::bench
