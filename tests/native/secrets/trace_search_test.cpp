#include "tests/native/secrets/trace_search.h"

#include "platform/collation.h"
#include "platform/directory_service.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/modules.h"
#include "platform/network_management.h"
#include "platform/practice/system_windows.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/security.h"
#include "platform/shell_execution.h"
#include "platform/shell_namespace.h"
#include "platform/text_measure.h"
#include "platform/visual_style.h"
#include "platform/window_messages.h"
#include "tests/native/forms/password_rows.h"

#include <ostream>
#include <utility>

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kPassword[] = u"Xq4!ZvKw9jHb";
constexpr std::uint32_t kCurrentUser = 0x80000001;

using Places = std::set<std::string>;

/// The search over an open window, where a password is put into one place after the other.
class FindsTraces : public PasswordRows {
  protected:
    FindsTraces() { Open(); }

    /// What the search finds once the password stands in that text, which is put back.
    Places FoundWith(String& place, const String& text) {
        const String before = std::exchange(place, text);
        const Places found = Found();
        place = before;
        return found;
    }

    Places Found() {
        TraceSearch search(world, {kPassword});
        search.Look();
        return search.Found();
    }

    /// What is found while a call is made; an error that it raises is no matter.
    template <class Action>
    Places FoundIn(Action call) {
        TraceSearch search(world, {kPassword});
        try {
            call();
        } catch (const RuntimeError&) {
            SUCCEED();
        }
        return search.Found();
    }
};

/// A call of the platform that is given the password where it has no place.
struct WrongCall {
    const char* place;
    void (*make)(const String& password);
};

void PrintTo(const WrongCall& call, std::ostream* stream) {
    *stream << call.place;
}

class FindsTracesIn : public FindsTraces, public testing::WithParamInterface<WrongCall> {};

platform::OwnedKey AKey() {
    platform::OwnedKey key;
    platform::RegOpenKeyExW(kCurrentUser, u"Software\\Orvane\\Kestrelmoor", 0x2001F, key);
    return key;
}

platform::OwnedDirectoryObject ADirectoryObject() {
    practice::TheWorld().network.directory.present = true;
    return platform::BindObject(u"WinNT://ARCHIVE/user,user");
}

Font NamedFont(const String& name) {
    Font font;
    font.SetName(name);
    return font;
}

WindowHandle AWindowOfTheSystem() {
    return practice::SystemWindows::Current().Add({0, u"Static", {}, {}});
}

const WrongCall kWrongCalls[] = {
    {"NetUserChangePassword, argument 0",
     [](const String& p) { platform::NetUserChangePassword(p, u"old", u"new"); }},
    {"NetUserGetInfo, argument 0",
     [](const String& p) {
         platform::UserInfo3 info;
         platform::NetUserGetInfo(p, u"user", info);
     }},
    {"NetUserGetInfo, argument 1",
     [](const String& p) {
         platform::UserInfo3 info;
         platform::NetUserGetInfo(u"\\\\DC1", p, info);
     }},
    {"NetUserModalsGet, argument 0",
     [](const String& p) {
         platform::UserModalsInfo0 info;
         platform::NetUserModalsGet(p, info);
     }},
    {"NetGetDCName, argument 0",
     [](const String& p) {
         String name;
         platform::NetGetDCName(p, name);
     }},
    {"DsGetDcNameW, argument 0",
     [](const String& p) {
         String name;
         platform::DsGetDcNameW(p, 0, name);
     }},
    {"GetObject, argument 0", [](const String& p) { platform::BindObject(p); }},
    {"IADsUser.Get, argument 0", [](const String& p) { platform::GetAttribute(ADirectoryObject(), p); }},
    {"name of a call", [](const String& p) { platform::GetProperty(ADirectoryObject(), p); }},
    {"GetFileAttributesW, argument 0", [](const String& p) { platform::GetFileAttributesW(p); }},
    {"FindFirstFileW, argument 0",
     [](const String& p) {
         platform::FoundFile found;
         platform::FindFirstFileW(p, found);
     }},
    {"OpenForAppending, argument 0", [](const String& p) { platform::OpenForAppending(p); }},
    {"passed to Append",
     [](const String& p) { platform::Append(platform::OpenForAppending(u"C:\\a.txt"), ToUtf8(p)); }},
    {"MessageBoxW, argument 0", [](const String& p) { platform::MessageBoxW(p, 0, u"title"); }},
    {"MessageBoxW, argument 2", [](const String& p) { platform::MessageBoxW(u"text", 0, p); }},
    {"LoadLibraryExW, argument 0", [](const String& p) { platform::LoadLibraryExW(p, 0); }},
    {"GetProcAddress, argument 0", [](const String& p) { platform::GetProcAddress(0, ToUtf8(p).c_str()); }},
    {"CreateMutexA, argument 0", [](const String& p) { platform::CreateMutexA(ToUtf8(p).c_str()); }},
    {"RegOpenKeyExW, argument 0",
     [](const String& p) {
         platform::OwnedKey key;
         platform::RegOpenKeyExW(kCurrentUser, p, 1, key);
     }},
    {"RegCreateKeyExW, argument 0",
     [](const String& p) {
         platform::OwnedKey key;
         std::uint32_t disposition = 0;
         platform::RegCreateKeyExW(kCurrentUser, p, 1, key, disposition);
     }},
    {"RegQueryValueExW, argument 0",
     [](const String& p) {
         std::uint32_t type = 0;
         std::uint32_t length = 0;
         platform::RegQueryValueType(AKey(), p, type, length);
     }},
    {"RegQueryValueExW, argument 0",
     [](const String& p) {
         practice::Bytes data;
         platform::RegQueryValueData(AKey(), p, data);
     }},
    {"RegSetValueExW, argument 0", [](const String& p) { platform::RegSetValueExW(AKey(), p, 1, {}); }},
    {"passed to RegSetValueExW",
     [](const String& p) { platform::RegSetValueExW(AKey(), u"LangID", 1, practice::TextData(p)); }},
    {"RegDeleteValueW, argument 0", [](const String& p) { platform::RegDeleteValueW(AKey(), p); }},
    {"ExpandEnvironmentStringsW, argument 0",
     [](const String& p) { platform::ExpandEnvironmentStringsW(p, 99); }},
    {"LookupPrivilegeValueW, argument 0",
     [](const String& p) {
         platform::Luid luid = 0;
         platform::LookupPrivilegeValueW(p, luid);
     }},
    {"ShellExecuteW, argument 1", [](const String& p) { platform::ShellExecuteW(0, p, u"file", 1); }},
    {"ShellExecuteW, argument 2", [](const String& p) { platform::ShellExecuteW(0, u"open", p, 1); }},
    {"IShellFolder::ParseDisplayName, argument 1",
     [](const String& p) {
         platform::OwnedShellFolder desktop;
         platform::SHGetDesktopFolder(desktop);
         std::uint8_t* list = nullptr;
         platform::ParseDisplayName(desktop, 0, p, &list);
     }},
    {"SHBrowseForFolderW, argument 1",
     [](const String& p) {
         platform::BrowseInfo info;
         info.lpszTitle = p.c_str();
         platform::SHBrowseForFolderW(info);
     }},
    {"TextWidth, argument 0", [](const String& p) { platform::TextWidth(NamedFont(p), u"text"); }},
    {"TextWidth, argument 1", [](const String& p) { platform::TextWidth(Font(), p); }},
    {"OpenThemeData, argument 1", [](const String& p) { platform::OpenThemeData(0, p); }},
    {"passed to CompareText", [](const String& p) { platform::CompareText(u"name", p); }},
    {"passed to CompareText", [](const String& p) { platform::CompareText(p, u"name"); }},
    {"passed to FoldCase", [](const String& p) { platform::FoldCase(p); }},
    {"passed to CompareRows", [](const String& p) { platform::CompareRows(p, u"row"); }},
    {"passed to CompareRows", [](const String& p) { platform::CompareRows(u"row", p); }},
    {"passed to SendMessageW",
     [](const String& p) {
         const WindowHandle window = AWindowOfTheSystem();
         platform::SendMessageW(window, platform::window_message::kSetText, 0,
                                reinterpret_cast<std::intptr_t>(p.c_str()));
         practice::SystemWindows::Current().Remove(window);
     }},
};

} // namespace

TEST_P(FindsTracesIn, ACall) {
    EXPECT_EQ(FoundIn([] { GetParam().make(u"C:\\nothing"); }), Places{});
    const Places found = FoundIn([] { GetParam().make(kPassword); });
    EXPECT_TRUE(found.contains(GetParam().place)) << testing::PrintToString(found);
}

INSTANTIATE_TEST_SUITE_P(TraceSearch, FindsTracesIn, testing::ValuesIn(kWrongCalls));

TEST_F(FindsTraces, NoneInTheArgumentsThatPasswordsAreFor) {
    EXPECT_EQ(FoundIn([] {
                  platform::NetUserChangePassword(u"\\\\DC1", kPassword, kPassword);
                  platform::ChangePassword(ADirectoryObject(), kPassword, kPassword);
              }),
              Places{});
}

TEST_F(FindsTraces, InAnotherArgumentThatTheRecordHides) {
    const auto places = [this](std::string_view call, auto... arguments) {
        return FoundIn([&] { world.calls.Enter(call, {arguments...}); });
    };
    const practice::Secret secret{u"not known to the search"};
    EXPECT_EQ(places("NetUserChangePassword", String(u"\\\\DC1"), secret, secret), Places{});
    EXPECT_EQ(places("NetUserChangePassword", secret, secret), Places{"NetUserChangePassword, argument 0"});
    EXPECT_EQ(places("NetUserGetInfo", String(u"\\\\DC1"), secret), Places{"NetUserGetInfo, argument 1"});
    EXPECT_EQ(places("IADsUser.ChangePassword", secret, secret, secret),
              Places{"IADsUser.ChangePassword, argument 2"});
}

TEST_F(FindsTraces, InHalvesInAnyCaseAndEncoding) {
    String& place = world.machine.command_line;
    for (const char16_t* const text : {u"Xq4!ZvKw9jHb", u"--Xq4!ZvKw9jHb--", u"Xq4!Zv", u"Kw9jHb", u"4!ZvKw",
                                       u"xq4!zvkw9jhb", u"XQ4!ZVKW9JHB", u"kW9Jhb"})
        EXPECT_EQ(FoundWith(place, text), Places{"command line"}) << ToUtf8(text);
    for (const char16_t* const text : {u"Xq4!Z", u"w9jHb", u"bHj9wKvZ!4qX", u"Xq4!-ZvKw9-jHb", u""})
        EXPECT_EQ(FoundWith(place, text), Places{}) << ToUtf8(text);
    practice::File& file = world.files.CreateFile(u"C:\\a.txt", "before ZVKW9J after");
    EXPECT_EQ(Found(), Places{"file C:\\a.txt"});
    const practice::Bytes wide = practice::TextData(u"-Kw9jHb"); // at an odd place
    file.content = "x" + std::string(wide.begin(), wide.end());
    EXPECT_EQ(Found(), Places{"file C:\\a.txt"});
    file.content = "Xq4!";
    EXPECT_EQ(Found(), Places{});
}

TEST_F(FindsTraces, OfCharactersBeyondAscii) {
    TraceSearch search(world, {u"\u00C4\u6F22\U0001F511\u00DF\u6F23\u00E9"});
    world.files.CreateFile(u"C:\\a.txt", "\u00C4\u6F22\U0001F511");
    search.LookAt("a text", u"\U0001F511\u00DF\u6F23\u00E9");
    search.Look();
    EXPECT_EQ(search.Found(), (Places{"a text", "file C:\\a.txt"}));
}

TEST_F(FindsTraces, InFormsAndControls) {
    form->SetCaption(kPassword);
    At(u"lblUser").SetTag(kPassword);
    At(u"cmdOK").SetCaption(kPassword);
    At(u"cmdOK").SetToolTipText(kPassword);
    At(u"lblWait").Font().SetName(kPassword);
    Box(u"txtStatus").SetText(kPassword);
    List().AddItem(u"\\\\X\tXq4!Zv");
    EXPECT_EQ(Found(), (Places{"caption of frmPass", "tag of frmPass.lblUser", "caption of frmPass.cmdOK",
                               "tip of frmPass.cmdOK", "font of frmPass.lblWait", "text of frmPass.txtStatus",
                               "row of frmPass.lstOldPass"}));
}

TEST_F(FindsTraces, InAPasswordBoxThatHasNoMaskAlone) {
    for (const char16_t* const name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"}) {
        Box(name).SetText(kPassword);
        EXPECT_EQ(Found(), Places{});
        Box(name).SetPasswordChar(u"");
        EXPECT_EQ(Found(), Places{"text of frmPass." + ToUtf8(name)});
        Box(name).SetPasswordChar(kPassword);
        EXPECT_EQ(Found(), Places{"mask of frmPass." + ToUtf8(name)});
        Box(name).SetPasswordChar(u"*");
    }
    Box(u"txtStatus").SetPasswordChar(u"*");
    Box(u"txtStatus").SetText(kPassword);
    EXPECT_EQ(Found(), Places{"text of frmPass.txtStatus"}) << "a mask makes no password box";
}

TEST_F(FindsTraces, InWindowsOfTheSystem) {
    const WindowHandle window = AWindowOfTheSystem();
    practice::SystemWindows::Current().Find(window)->text = kPassword;
    EXPECT_EQ(Found(), Places{"window of the system"});
    practice::SystemWindows::Current().Remove(window);
}

TEST_F(FindsTraces, InFilesAndTheRegistry) {
    world.files.CreateFile(u"C:\\Xq4!Zv.txt");
    practice::RegistryKey& key = world.registry.Create(u"HKEY_CURRENT_USER\\Software\\Kw9jHb");
    key.Set(u"4!ZvKw", 1, {});
    EXPECT_EQ(Found(), (Places{"path of a file", "path of a key",
                               "value's name in HKEY_CURRENT_USER\\Software\\Kw9jHb"}));
    world.files.Remove(u"C:\\Xq4!Zv.txt");
}

TEST_F(FindsTraces, InAValueOfTheRegistry) {
    world.registry.Create(u"HKEY_CURRENT_USER\\Software\\X")
        .Set(u"list", 7, practice::TextsData({u"a", kPassword}));
    EXPECT_EQ(Found(), Places{"value in HKEY_CURRENT_USER\\Software\\X"});
    world.registry.Create(u"HKEY_CURRENT_USER\\Software\\X").Set(u"list", 3, {'x', 'Q', '4', '!', 'z', 'v'});
    EXPECT_EQ(Found(), Places{"value in HKEY_CURRENT_USER\\Software\\X"});
}

TEST_F(FindsTraces, InBoxesWhileTheyAreUp) {
    TraceSearch search(world, {kPassword});
    world.boxes.Show(u"text", 0, kPassword);
    EXPECT_EQ(search.Found(), Places{"title of a box"});
    world.boxes.Show(kPassword, 0, u"title");
    EXPECT_EQ(search.Found(), (Places{"text of a box", "title of a box"}));
}

TEST_F(FindsTraces, InWhatOtherProgramsAreTold) {
    world.mutexes.emplace_back("Xq4!ZvKw9jHb");
    world.shell_executions.push_back({0, u"open", kPassword, 1});
    world.machine.environment[u"NAME"] = kPassword;
    EXPECT_EQ(Found(), (Places{"name of a mutex", "command to the shell", "environment"}));
}

TEST_F(FindsTraces, ThatStandOnlyWhileACallIsMade) {
    TraceSearch search(world, {kPassword});
    form->SetCaption(kPassword);
    platform::ExitWindowsEx(0, 0);
    form->SetCaption(u"as before");
    EXPECT_EQ(search.Found(), Places{"caption of frmPass"});
    EXPECT_EQ(search.Looks(), 1);
}

} // namespace kestrelmoor::tests
