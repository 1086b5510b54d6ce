#include "tests/bench/practice_start.h"

#include "localization/language_resolution.h"
#include "platform/collation.h"
#include "platform/form_peer.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"
#include "shell/program_state.h"
#include "shell/settings.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kestrelmoor::bench {

namespace {

constexpr char16_t kSettingsKey[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kMultiText = 7;
constexpr std::int16_t kEnglish = 1033;

String ServerName(int index) {
    std::string digits = std::to_string(index * 7919 % 100003);
    digits.insert(0, 6 - digits.size(), '0');
    return u"SERVER" + FromUtf8(digits);
}

practice::Computer MakeServer(int index, practice::Moment password_set) {
    practice::Computer computer;
    computer.name = ServerName(index);
    practice::Account account;
    account.name = u"user";
    account.password = kOldPassword;
    account.password_set = password_set;
    computer.store.accounts.push_back(account);
    return computer;
}

} // namespace

practice::World& PracticeStart() {
    // Lives as long as the process: the program gives back what it holds at the very end.
    static practice::ScopedWorld& world = *new practice::ScopedWorld;
    if (!gLocalizer) {
        Application::Current().SetDesktop(&platform::TheDesktop());
        gWinVersion = GetWinVersion();
        gUserName = u"user";
        gForceWindow = true;
        if (LoadLocalization(kEnglish)) {
            std::fputs("the language library default.loc has not been built\n", stderr);
            std::exit(1);
        }
        gLangID = kEnglish;
    }
    world.calls.Clear();
    return world;
}

void ConfigureServers(practice::World& world, int count, Order order) {
    world.network.computers.resize(1);
    StringList names;
    for (int index = 1; index <= count; ++index) {
        world.network.computers.push_back(MakeServer(index, world.clock.Now()));
        names.push_back(u"\\\\" + ServerName(index));
    }
    if (order == Order::kSorted)
        std::sort(names.begin(), names.end(),
                  [](const String& a, const String& b) { return platform::CompareRows(a, b) < 0; });
    practice::RegistryKey& key = world.registry.Create(kSettingsKey);
    key.Set(u"Servers", kMultiText, practice::TextsData(names));
    key.Set(u"Active", kBinary, practice::Bytes(static_cast<std::size_t>(count + 7) / 8, 0xFF));
    LoadSettings();
    gSyncLocal = false;
}

void ResetPasswords(practice::World& world) {
    for (practice::Computer& computer : world.network.computers)
        for (practice::Account& account : computer.store.accounts)
            account.password = kOldPassword;
}

} // namespace kestrelmoor::bench
