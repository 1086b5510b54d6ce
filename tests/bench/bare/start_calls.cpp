#include "tests/bench/bare/start_calls.h"

#include <windows.h>

#include <ntsecapi.h>

#include <cstddef>
#include <initializer_list>

namespace kestrelmoor::bench {

namespace {

wchar_t gServers[32768];

void Query(HKEY key, const wchar_t* name, void* data, DWORD size) {
    ::RegQueryValueExW(key, name, nullptr, nullptr, static_cast<BYTE*>(data), &size);
}

template <std::size_t Count>
void QueryKey(const wchar_t* path, const wchar_t* const (&names)[Count]) {
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

} // namespace

void CallsAheadOfTheLanguage(const wchar_t* library) {
    ::GetVersion();
    ::CreateMutexA(nullptr, FALSE, "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}");
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Orvane\\Kestrelmoor\\LocFiles", 0, KEY_READ, &key) ==
        0)
        ::RegCloseKey(key);
    ::GetFileAttributesW(library);
    ::GetFileAttributesW(library);
}

const wchar_t* CallsBehindTheLanguage(Accounts& accounts) {
    static const wchar_t settings[] = L"Software\\Orvane\\Kestrelmoor";
    QueryKey(settings, {L"LangID"});
    QuerySettings(settings);
    QueryKey(L"Software\\Microsoft\\Windows\\CurrentVersion\\Run", {L"Kestrelmoor"});
    accounts.AskForUser();
    AskForDomain();
    return gServers;
}

} // namespace kestrelmoor::bench
