// bare_silent.exe LANGUAGE-LIBRARY: the system's calls that a start of Moorlink.exe without a switch makes
// where all is well, in their order, and nothing between them. The targets are the local computer and the
// servers in the registry, all of them computers and active.

#include "tests/bench/bare/accounts.h"
#include "tests/bench/bare/language.h"

#include <ntsecapi.h>

#include <initializer_list>

namespace {

using kestrelmoor::bench::Accounts;

wchar_t gServers[32768];

void Query(HKEY key, const wchar_t* name, void* data, DWORD size) {
    ::RegQueryValueExW(key, name, nullptr, nullptr, static_cast<BYTE*>(data), &size);
}

template <std::size_t count>
void QueryKey(const wchar_t* path, const wchar_t* const (&names)[count]) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != 0)
        return;
    BYTE data[1024];
    for (const wchar_t* const name : names)
        Query(key, name, data, sizeof data);
    ::RegCloseKey(key);
}

void QuerySettings(const wchar_t* path) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != 0)
        return;
    BYTE data[1024];
    Query(key, L"Servers", nullptr, 0);
    Query(key, L"Servers", gServers, sizeof gServers);
    for (const wchar_t* const name : {L"Active", L"Active", L"ReminderTime", L"Options"})
        Query(key, name, data, sizeof data);
    ::RegCloseKey(key);
}

void AskForDomain() {
    LSA_OBJECT_ATTRIBUTES attributes{};
    LSA_HANDLE policy = nullptr;
    if (::LsaOpenPolicy(nullptr, &attributes, POLICY_VIEW_LOCAL_INFORMATION, &policy) != 0)
        return;
    void* record = nullptr;
    if (::LsaQueryInformationPolicy(policy, PolicyPrimaryDomainInformation, &record) == 0)
        ::LsaFreeMemory(record);
    ::LsaClose(policy);
}

void AskTargets(Accounts& accounts) {
    accounts.AskForComputer();
    accounts.AskForPassword(nullptr);
    for (const wchar_t* server = gServers; *server != L'\0'; server += ::lstrlenW(server) + 1)
        accounts.AskForPassword(server);
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    static const wchar_t settings[] = L"Software\\Orvane\\Kestrelmoor";
    ::GetVersion();
    ::CreateMutexA(nullptr, FALSE, "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}");
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Orvane\\Kestrelmoor\\LocFiles", 0, KEY_READ, &key) ==
        0)
        ::RegCloseKey(key);
    const wchar_t* const library = kestrelmoor::bench::Arguments();
    ::GetFileAttributesW(library);
    ::GetFileAttributesW(library);
    kestrelmoor::bench::Language language(library);
    QueryKey(settings, {L"LangID"});
    QuerySettings(settings);
    QueryKey(L"Software\\Microsoft\\Windows\\CurrentVersion\\Run", {L"Kestrelmoor"});
    Accounts accounts;
    accounts.AskForUser();
    AskForDomain();
    AskTargets(accounts);
    return 0;
}
