#include "tests/bench/practice_start.h"

#include "forms/password/frmPass.h"
#include "localization/mCallDll.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"
#include "shell/command_line.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"

#include <benchmark/benchmark.h>

namespace kestrelmoor::bench {

namespace {

/// Gives the language library back, so that Main brings it up as in a new process.
void Forget() {
    gLocalizer = nullptr;
    UnloadDll(gLocLibHandle);
}

/// As a process begins; it loads its settings once.
void ForgetSettings() {
    gServers = {};
    gServerCount = 0;
    gActiveBits = {};
}

constexpr std::uint32_t kSixWeeks = 42 * 86400;

/// Young passwords everywhere, which the directory or, without one, the network API tells.
void LetAllBeWell(practice::World& world, bool with_directory) {
    world.network.directory.present = with_directory;
    for (practice::Computer& computer : world.network.computers) {
        computer.store.policy.max_age = kSixWeeks;
        for (practice::Account& account : computer.store.accounts)
            world.SetPasswordAge(account, 0);
    }
}

void StartToTheSilentEnd(benchmark::State& state) {
    practice::World& world = PracticeStart();
    ConfigureServers(world, static_cast<int>(state.range(0)));
    LetAllBeWell(world, state.range(1) != 0);
    world.machine.command_line = u"";
    gForceWindow = false;
    for (auto _ : state) {
        Forget();
        world.calls.Clear();
        Main();
    }
    state.counters["calls"] = static_cast<double>(world.calls.All().size());
    if (!world.boxes.All().empty() || !Application::Current().Forms().empty())
        state.SkipWithError("the start did not end in silence");
    gForceWindow = true;
    world.network.directory.present = false;
}
BENCHMARK(StartToTheSilentEnd)->ArgNames({"servers", "directory"})->ArgsProduct({{1, 10, 100}, {0, 1}});

void LoadSettingsWithServers(benchmark::State& state) {
    const int servers = static_cast<int>(state.range(0));
    practice::World& world = PracticeStart();
    ConfigureServers(world, servers);
    for (auto _ : state) {
        world.calls.Clear();
        ForgetSettings();
        state.SetIterationTime(SecondsOf([] { LoadSettings(); }));
    }
    if (gServerCount != servers)
        state.SkipWithError("not all servers were loaded");
    ConfigureServers(world, 2);
}
BENCHMARK(LoadSettingsWithServers)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void LoadMessageWithoutArguments(benchmark::State& state) {
    PracticeStart();
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadMessage(303, {}));
}
BENCHMARK(LoadMessageWithoutArguments);

void LoadMessageWithTwoArguments(benchmark::State& state) {
    PracticeStart();
    const StringList arguments{u"\\\\ARCHIVE", u"The old password is not right."};
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadMessage(327, arguments));
}
BENCHMARK(LoadMessageWithTwoArguments);

void SplitCommandLineOfFourTokens(benchmark::State& state) {
    const String line = u"/f /d \"C:\\Users\\user\\My Documents\\change.log\" /l 1033";
    for (auto _ : state)
        benchmark::DoNotOptimize(SplitCommandLine(line));
}
BENCHMARK(SplitCommandLineOfFourTokens);

void SplitLongCommandLine(benchmark::State& state) {
    String line;
    for (std::int64_t token = 0; token < state.range(0); ++token)
        line += u"\"a b\" ";
    for (auto _ : state)
        benchmark::DoNotOptimize(SplitCommandLine(line));
}
BENCHMARK(SplitLongCommandLine)->Arg(500)->Arg(5000);

} // namespace

} // namespace kestrelmoor::bench
