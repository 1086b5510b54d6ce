#include "tests/fuzz/sessions/session_world.h"

#include "platform/practice/world/world_file.h"
#include "tests/native/support/fresh_start.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace kestrelmoor::fuzz {

namespace {

using practice::World;

constexpr char16_t kSettings[] = u"HKEY_CURRENT_USER\\Software\\Orvane\\Kestrelmoor";
constexpr char16_t kUninstall[] =
    u"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
    u"{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1";
constexpr char16_t kProgramFolder[] = u"C:\\Program Files\\Kestrelmoor\\";
constexpr int kNo = 7;
constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kStrings = 7;

/// Of the world's accounts: the computers' and the domains'.
template <class Action>
void ForEachStore(World& world, Action action) {
    for (practice::Computer& computer : world.network.computers)
        action(computer.store);
    for (practice::Domain& domain : world.network.domains)
        action(domain.store);
}

const World& Stock() {
    static const std::unique_ptr<World> stock = [] {
        auto world = std::make_unique<World>();
        practice::LoadStockWorld(*world);
        ForEachStore(*world, [](practice::AccountStore& store) {
            for (practice::Account& account : store.accounts)
                account.password = kOldPassword;
        });
        return world;
    }();
    return *stock;
}

void ChangeAccount(practice::Account& account, SessionBytes& bytes) {
    switch (bytes.Below(10)) {
    case 0:
        account.locked = true;
        return;
    case 1:
        account.disabled = true;
        return;
    case 2:
        account.password_expired = true;
        return;
    case 3:
        account.cannot_change_password = true;
        return;
    case 4:
        account.password = u"Third-XYZZY-3";
        return;
    case 5:
        account.password_never_expires = true;
        return;
    default:
        return;
    }
}

void ChangeNetwork(World& world, SessionBytes& bytes) {
    ForEachStore(world, [&](practice::AccountStore& store) {
        for (practice::Account& account : store.accounts)
            ChangeAccount(account, bytes);
        const std::uint8_t policy = bytes.Next();
        if ((policy & 1) != 0)
            store.policy = {};
        if ((policy & 2) != 0)
            store.policy.max_age = (policy & 4) != 0 ? 86400 : 40 * 86400;
        if ((policy & 8) != 0)
            store.policy.min_length = policy >> 4;
    });
    const std::uint8_t shape = bytes.Next();
    world.network.directory.present = (shape & 1) != 0;
    if ((shape & 2) != 0)
        world.network.computers.back().reachable = false;
    if ((shape & 4) != 0)
        world.network.domains.front().controllers.front().reachable = false;
    if ((shape & 8) != 0) {
        world.network.joined = true;
        world.network.computers.front().group = u"PRACTICE";
        world.network.user.sid = u"S-1-5-21-4004-5005-6006-1101";
    }
}

StringList Servers(SessionBytes& bytes) {
    static const String kNames[] = {u"\\\\ARCHIVE", u"PRACTICE", u"\\\\archive", u"practice.test",
                                    u"\\\\NOBODY",  u"NODOMAIN", u"a-b",         u"",
                                    u" leading",    u"...",      u"\\\\S1",      u"\\\\S2",
                                    u"\\\\S3",      u"\\\\S4",   u"\\\\S5",      String(300, u'n')};
    StringList servers;
    for (std::size_t left = bytes.Below(14); left > 0; --left)
        servers.push_back(bytes.Of(kNames));
    return servers;
}

void ChangeSettings(World& world, SessionBytes& bytes) {
    practice::RegistryKey& settings = world.registry.Create(kSettings);
    const std::uint8_t which = bytes.Next();
    if ((which & 1) != 0) {
        const StringList servers = Servers(bytes);
        settings.Set(u"Servers", kStrings,
                     servers.empty() ? practice::Bytes(4) : practice::TextsData(servers));
        settings.Set(u"Active", kBinary, {bytes.Next(), bytes.Next()});
    }
    if ((which & 2) != 0) {
        constexpr std::uint32_t kTimes[] = {0,           86400,      100000,    99 * 86400,
                                            100 * 86400, 0x7FFFFFFF, 0xFFFE0000};
        settings.Set(u"ReminderTime", kNumber, practice::NumberData(bytes.Of(kTimes)));
    }
    if ((which & 4) != 0)
        settings.Set(u"Options", kNumber, practice::NumberData(0));
    if ((which & 8) != 0) {
        constexpr std::uint32_t kLanguages[] = {1031, 1033, 1036, 7, 70000};
        settings.Set(u"LangID", kNumber, practice::NumberData(bytes.Of(kLanguages)));
    }
    if ((which & 16) != 0)
        settings.refuses_writing = true;
    if ((which & 32) != 0)
        world.registry.Create(kUninstall)
            .Set(u"UrlInfoAbout", kString, practice::TextData(u"https://kestrelmoor.example/"));
}

void AddLanguage(World& world, std::int16_t number, SessionBytes& bytes) {
    practice::Library library;
    library.path = kProgramFolder + FromUtf8(std::to_string(number)) + u".loc";
    library.kind = bytes.Below(8) == 7 ? practice::LibraryKind::Broken : practice::LibraryKind::Scripted;
    library.script.languages = {number};
    library.script.font_charset = 204;
    if (bytes.Below(8) == 7)
        library.script.languages = {number, 1040, number};
    world.libraries.Put(library);
    world.files.CreateFile(library.path);
}

void ChangeMachine(World& world, SessionBytes& bytes) {
    const std::uint8_t look = bytes.Next();
    world.machine.keyboard_cues = (look & 1) != 0;
    world.machine.appearance.app_themed = world.machine.appearance.theme_active = (look & 2) != 0;
    world.machine.appearance.theme_colours = {{15, 0xE0E0E0}, {5, 0xF8F8F8}};
    world.machine.appearance.library_present = (look & 4) == 0;
    constexpr practice::SystemVersion kVersions[] = {{}, {2, 4, 0, 1381}, {2, 5, 0, 2195}, {2, 5, 1, 2600}};
    world.machine.version = kVersions[look >> 6];
    if ((look & 8) != 0)
        for (const char16_t* const help : {u"Help-1033.html", u"help.html"})
            world.files.CreateFile(String(kProgramFolder) + help);
    if ((look & 16) != 0) {
        AddLanguage(world, 1031, bytes);
        AddLanguage(world, 1036, bytes);
    }
    if ((look & 32) != 0)
        world.files.current_directory = String(kProgramFolder, std::size(kProgramFolder) - 2);
}

constexpr std::uint32_t kBufferTooSmall = 0x80020013;

/// Calls that can be answered, each with codes that their servers or their system give. The name of that
/// which will fail.
std::string_view LayFault(World& world, SessionBytes& bytes) {
    struct Failing {
        const char* name;
        std::uint32_t codes[4];
    };
    static constexpr Failing kCalls[] = {
        {"NetUserChangePassword", {53, 86, 2245, 5}},
        {"NetUserGetInfo", {5, 1326, 2242, 53}},
        {"NetUserModalsGet", {5, 53, 2221, 1722}},
        {"NetGetDCName", {53, 2453, 53, 2453}},
        {"DsGetDcNameW", {1355, 1355, 53, 1355}},
        {"GetObject", {2147943727, 2147943730, 2147942486, 2147942453}},
        {"IADsUser.Get", {2147504141, 2147504141, 2147942405, 2147504141}},
        {"IADsUser.PasswordExpirationDate", {2147504141, 2147504141, 2147942405, 2147504141}},
        {"IADsUser.PasswordMinimumLength", {2147504141, 2147504141, 2147942405, 2147504141}},
        {"IADsUser.ChangePassword", {2147942486, 2147944645, 2147942405, 2147942453}},
        {"NetWkstaGetInfo", {5, 5, 2138, 5}},
        {"NetWkstaUserGetInfo", {5, 5, 2138, 5}},
        {"LsaOpenPolicy", {3221225506, 3221225506, 3221225506, 3221225506}},
        {"RegOpenKeyExW", {5, 2, 5, 2}},
        {"RegSetValueExW", {5, 112, 5, 112}},
        {"RegDeleteValueW", {2, 5, 2, 5}},
        {"RegQueryValueExW", {5, 2, 5, 2}},
        {"LoadLibraryExW", {126, 193, 126, 193}},
        {"GetProcAddress", {127, 127, 127, 127}},
        {"GetFileAttributesW", {5, 2, 5, 2}},
        {"FindFirstFileW", {5, 2, 5, 2}},
        {"OpenForAppending", {5, 5, 5, 5}},
        {"Append", {112, 112, 112, 112}},
        {"FormatMessageW", {317, 317, 317, 317}},
        {"SetWindowsHookExW", {5, 5, 5, 5}},
        {"LoadImageW", {1813, 1813, 1813, 1813}},
        {"OpenThemeData", {5, 5, 5, 5}},
        {"GetListItemRectangle", {5, 5, 5, 5}},
        {"SetWindowProcedure", {5, 5, 5, 5}},
        {"SHBrowseForFolderW", {5, 5, 5, 5}},
        {"SHGetDataFromIDListW", {kBufferTooSmall, 2147942487, 2147500037, 2147500037}},
        {"SHGetDesktopFolder", {2147500037, 2147500037, 2147500037, 2147500037}},
        {"ShellExecuteW", {5, 2, 5, 2}},
        {"ExitWindowsEx", {5, 5, 5, 5}},
    };
    const Failing& call = bytes.Of(kCalls);
    const std::uint32_t code = bytes.Of(call.codes);
    const auto nth = static_cast<int>(bytes.Below(8)); // 0: every call
    // The program asks with ever larger buffers, without a limit of its own: some time one is large enough.
    world.Fail(call.name, code, code == kBufferTooSmall ? std::max(nth, 1) : nth);
    return call.name;
}

} // namespace

StartedWorld MakeWorld(World& world, SessionBytes& bytes) {
    constexpr const char16_t* kCommandLines[] = {u"/f",
                                                 u"",
                                                 u"/f /d",
                                                 u"/d",
                                                 u"/?",
                                                 u"/f /l 1031",
                                                 u"-f -d \"C:\\Users\\user\\Documents\\a b.log\"",
                                                 u"/f /l 0",
                                                 u"/x"};
    tests::PutBack(world, Stock());
    world.machine.command_line = bytes.Of(kCommandLines);
    StartedWorld started;
    const std::uint8_t parts = bytes.Next();
    if ((parts & 1) != 0)
        ChangeNetwork(world, bytes);
    if ((parts & 2) != 0)
        ChangeSettings(world, bytes);
    if ((parts & 4) != 0)
        ChangeMachine(world, bytes);
    started.has_faults = (parts & 8) != 0;
    for (std::size_t left = started.has_faults ? bytes.Below(4) + 1 : 0; left > 0; --left)
        started.hides_exports = LayFault(world, bytes) == "GetProcAddress" || started.hides_exports;
    started.has_directory = world.network.directory.present;
    world.pump_milliseconds = (parts & 16) != 0 ? 200 : 10;
    if ((parts & 32) != 0)
        world.boxes.Answer(kNo);
    return started;
}

} // namespace kestrelmoor::fuzz
