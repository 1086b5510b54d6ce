#include "tests/bench/practice_start.h"

#include "forms/password/frmPass.h"
#include "platform/network_management.h"
#include "platform/practice/user.h"
#include "platform/security.h"
#include "runtime/forms/application.h"

#include <benchmark/benchmark.h>

namespace kestrelmoor::bench {

namespace {

/// The targets' part of opening the window is what 1,000 and 10,000 servers add to ten.
void OpenTheWindowWithServers(benchmark::State& state) {
    const int servers = static_cast<int>(state.range(0));
    practice::World& world = PracticeStart();
    ConfigureServers(world, servers);
    for (auto _ : state) {
        world.calls.Clear();
        auto form = Application::Current().Make<frmPass>();
        state.SetIterationTime(SecondsOf([&] { form->Show(); }));
        if (form->Get<ListBox>(u"lstOldPass").ListCount() != servers)
            state.SkipWithError("not all servers became targets");
        Application::Current().UnloadAll();
    }
    ConfigureServers(world, 2);
}
BENCHMARK(OpenTheWindowWithServers)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Repetitions(1)
    ->Unit(benchmark::kMillisecond);

void FillIn(Form& form) {
    form.Get<TextBox>(u"txtOldPass").SetText(kOldPassword);
    form.Get<TextBox>(u"txtNewPass").SetText(kNewPassword);
    form.Get<TextBox>(u"txtConfirm").SetText(kNewPassword);
}

/// How many of the accounts have the new password.
std::int64_t Changed(const practice::World& world) {
    std::int64_t count = 0;
    for (const practice::Computer& computer : world.network.computers)
        for (const practice::Account& account : computer.store.accounts)
            count += account.password == kNewPassword ? 1 : 0;
    return count;
}

/// From the click on OK to the third layout.
void RunOverServers(benchmark::State& state) {
    practice::World& world = PracticeStart();
    ConfigureServers(world, static_cast<int>(state.range(0)));
    practice::User user;
    for (auto _ : state) {
        ResetPasswords(world);
        auto form = Application::Current().Make<frmPass>();
        form->Show();
        FillIn(*form);
        world.calls.Clear();
        state.SetIterationTime(SecondsOf([&] { user.ClickOn(form->Find(u"cmdOK")); }));
        if (Changed(world) != state.range(0))
            state.SkipWithError("the run did not change every password");
        Application::Current().UnloadAll();
    }
    state.counters["targets"] = static_cast<double>(state.range(0));
    state.counters["calls"] = static_cast<double>(world.calls.All().size());
    ConfigureServers(world, 2);
}
BENCHMARK(RunOverServers)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The calls of one target in a run, as they are recorded.
void CallsOfOneTarget(Desktop& desktop, const String& server) {
    desktop.PumpEvents();
    platform::OwnedToken token;
    platform::OpenProcessToken(platform::GetCurrentProcess(), 0x28, token);
    platform::Luid luid = 0;
    platform::LookupPrivilegeValueW(u"SeChangeNotifyPrivilege", luid);
    platform::AdjustTokenPrivileges(token, luid, 2);
    platform::NetUserChangePassword(server, kOldPassword, kNewPassword);
}

/// What the platform itself takes of RunOverServers: the same calls without the program.
void BareCallsToServers(benchmark::State& state) {
    practice::World& world = PracticeStart();
    ConfigureServers(world, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        ResetPasswords(world);
        world.calls.Clear();
        state.SetIterationTime(SecondsOf([&] {
            for (std::size_t index = 1; index < world.network.computers.size(); ++index)
                CallsOfOneTarget(*Application::Current().CurrentDesktop(),
                                 u"\\\\" + world.network.computers[index].name);
        }));
        if (Changed(world) != state.range(0))
            state.SkipWithError("the calls did not change every password");
    }
    state.counters["targets"] = static_cast<double>(state.range(0));
    state.counters["calls"] = static_cast<double>(world.calls.All().size());
    ConfigureServers(world, 2);
}
BENCHMARK(BareCallsToServers)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace kestrelmoor::bench
