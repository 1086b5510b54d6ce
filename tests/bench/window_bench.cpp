#include "tests/bench/practice_start.h"

#include "forms/password/frmPass.h"
#include "forms/settings/show_settings.h"
#include "platform/directory_service.h"
#include "platform/network_management.h"
#include "platform/practice/user.h"
#include "platform/security.h"
#include "runtime/errors.h"
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

/// The list is loaded anew after each visit to the settings, here to settings that do nothing.
void LoadTargetsIn(benchmark::State& state, Order order) {
    const int servers = static_cast<int>(state.range(0));
    practice::World& world = PracticeStart();
    ConfigureServers(world, servers, order);
    ShowSettings = [](Form&) {};
    auto form = Application::Current().Make<frmPass>();
    form->Show();
    for (auto _ : state) {
        world.calls.Clear();
        state.SetIterationTime(SecondsOf([&] { form->Get<CommandButton>(u"cmdSettings").Pressed(); }));
        if (form->Get<ListBox>(u"lstOldPass").ListCount() != servers)
            state.SkipWithError("not all servers became targets");
    }
    Application::Current().UnloadAll();
    ConfigureServers(world, 2);
}
void LoadTargets(benchmark::State& state) {
    LoadTargetsIn(state, Order::kSorted);
}
BENCHMARK(LoadTargets)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Each name has to find its place among the others: what a search takes grows with their number's logarithm.
void LoadScatteredTargets(benchmark::State& state) {
    LoadTargetsIn(state, Order::kScattered);
}
BENCHMARK(LoadScatteredTargets)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Opens the list mode and gives every row a password.
std::shared_ptr<frmPass> WindowWithStoredPasswords(int count) {
    auto form = Application::Current().Make<frmPass>();
    form->Show();
    form->Get<CheckBox>(u"chkSame").SetValue(0);
    auto& list = form->Get<ListBox>(u"lstOldPass");
    auto& box = form->Get<TextBox>(u"txtOldPass");
    for (int row = 0; row < count; ++row) {
        list.SetFocus();
        list.SetListIndex(row);
        box.SetText(kOldPassword);
    }
    form->Get<TextBox>(u"txtNewPass").SetFocus();
    return form;
}

/// With the box hidden the rule goes through all stored passwords: the costliest of its cases. It runs as the
/// new password is emptied.
void UpdateOkButton(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    practice::World& world = PracticeStart();
    ConfigureServers(world, count);
    auto form = WindowWithStoredPasswords(count);
    auto& new_password = form->Get<TextBox>(u"txtNewPass");
    for (auto _ : state) {
        world.calls.Clear();
        new_password.SetText(kNewPassword);
        state.SetIterationTime(SecondsOf([&] { new_password.SetText(u""); }));
    }
    if (form->Get<TextBox>(u"txtOldPass").Visible() || !form->Find(u"cmdOK").Enabled())
        state.SkipWithError("the passwords of the rows were not counted");
    form->Unload();
    ConfigureServers(world, 2);
}
BENCHMARK(UpdateOkButton)->Arg(10000)->UseManualTime()->Unit(benchmark::kMicrosecond);

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

/// There is no directory: the call fails, as it does for the program.
void TryToBind(const String& path) {
    try {
        platform::BindObject(path);
    } catch (const RuntimeError&) {
        return;
    }
}

/// The calls of one target in a run and in the check ahead of it, as they are recorded.
void CallsOfOneTarget(Desktop& desktop, const String& server) {
    const String path = u"WinNT://" + server.substr(2) + u"/user,user";
    platform::UserModalsInfo0 policy;
    TryToBind(path);
    platform::NetUserModalsGet(server, policy);
    desktop.PumpEvents();
    TryToBind(path);
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
