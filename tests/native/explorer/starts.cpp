#include "tests/native/explorer/starts.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::tests {

namespace {

using practice::World;

constexpr char16_t kSettings[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kStrings = 7;

void Configure(World& world, const StringList& servers, bool local) {
    practice::RegistryKey& settings = world.registry.Create(kSettings);
    settings.Set(u"Servers", kStrings, servers.empty() ? practice::Bytes(4) : practice::TextsData(servers));
    settings.Set(u"Active", kBinary, practice::Bytes(servers.size(), 0xFF));
    if (!local)
        settings.Set(u"Options", kNumber, practice::NumberData(0));
}

practice::Account& AccountOf(practice::AccountStore& store) {
    return *store.Find(u"user");
}

void NoTarget(World& world) {
    Configure(world, {}, false);
}

void OneTarget(World& world) {
    Configure(world, {}, true);
}

void TwoTargets(World& world) {
    Configure(world, {u"\\\\ARCHIVE"}, true);
}

/// More rows than the list shows.
void ManyTargets(World& world) {
    Configure(world, {u"\\\\A", u"\\\\B", u"\\\\C", u"\\\\D", u"\\\\E", u"\\\\ARCHIVE"}, true);
}

/// A single letter is long enough, so that runs can be made.
void NoPolicy(World& world) {
    TwoTargets(world);
    for (practice::Computer& computer : world.network.computers) {
        computer.store.policy = {};
        AccountOf(computer.store).password = u"a";
    }
}

/// A success on a server alone leaves the session alone, a failure offers the way back.
void OtherPassword(World& world) {
    NoPolicy(world);
    Configure(world, {u"\\\\ARCHIVE"}, false);
    AccountOf(world.network.computers.back().store).password = u"b";
}

void Expired(World& world) {
    for (practice::Computer& computer : world.network.computers)
        AccountOf(computer.store).password_expired = true;
}

/// One has expired and one refuses the user: the window opens with a row for each.
void ComeApart(World& world) {
    Expired(world);
    world.Fail("NetUserGetInfo", 1326, 2);
}

/// All that is wrong is that one refuses the user: nothing else stays a target.
void Narrowed(World& world) {
    world.Fail("NetUserGetInfo", 1326, 2);
    world.network.computers.front().store.policy.max_age = practice::kForever;
}

void Themed(World& world) {
    TwoTargets(world);
    world.machine.appearance.app_themed = world.machine.appearance.theme_active = true;
    world.machine.keyboard_cues = true;
}

void DomainUser(World& world) {
    Configure(world, {u"PRACTICE"}, true);
    world.network.joined = true;
    world.network.computers.front().group = u"PRACTICE";
    world.network.user.sid = u"S-1-5-21-4004-5005-6006-1101";
}

void OneServer(World& world) {
    Configure(world, {u"\\\\ARCHIVE"}, true);
    world.files.CreateFile(u"C:\\Program Files\\Kestrelmoor\\Help-1033.html");
}

void ManyServers(World& world) {
    Configure(world, {u"\\\\A", u"\\\\B", u"\\\\C", u"\\\\D", u"\\\\E"}, true);
}

const std::vector<UserAction> kToSettings{{ActionKind::Click, u"cmdSettings"}};

} // namespace

const std::vector<StartOfExploration>& StartsOfExploration() {
    static const std::vector<StartOfExploration> starts{
        {"no target", "/f", NoTarget, {}, u"frmPass", 123, 6},
        {"one target", "/f", OneTarget, {}, u"frmPass", 97, 6},
        {"two targets", "/f", TwoTargets, {}, u"frmPass", 659, 6},
        {"many targets", "/f", ManyTargets, {}, u"frmPass", 540, 4},
        {"runs that succeed", "/f /d", NoPolicy, {}, u"frmPass", 710, 6},
        {"runs that fail", "/f", OtherPassword, {}, u"frmPass", 107, 6},
        {"expired", "", Expired, {}, u"frmPass", 213, 4, {6}},
        {"come apart", "/d", ComeApart, {}, u"frmPass", 343, 4, {6}},
        {"narrowed", "", Narrowed, {}, u"frmPass", 97, 6, {6}},
        {"style", "/f", Themed, {}, u"frmPass", 73, 3},
        {"settings", "/f", OneServer, kToSettings, u"frmSettings", 488, 4},
        {"settings without servers", "/f", NoTarget, kToSettings, u"frmSettings", 242, 4},
        {"settings of many servers", "/f", ManyServers, kToSettings, u"frmSettings", 167, 2},
        {"settings of a domain user", "/f", DomainUser, kToSettings, u"frmSettings", 152, 3},
        {"settings of narrowed targets", "", Narrowed, kToSettings, u"frmSettings", 188, 3, {6}},
        {"about",
         "/f",
         OneServer,
         {{ActionKind::Click, u"cmdSettings"}, {ActionKind::Click, u"cmdAbout"}},
         u"frmAbout",
         5,
         6},
    };
    return starts;
}

} // namespace kestrelmoor::tests
