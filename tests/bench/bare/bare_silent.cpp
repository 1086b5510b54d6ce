// bare_silent.exe LANGUAGE-LIBRARY: the system's calls that a start of Moorlink.exe without a switch makes,
// in their order, and nothing between them. The order is that of the record which the practice platform
// keeps.

#include "tests/bench/bare/language.h"

#include <lm.h>
#include <ntsecapi.h>

namespace {

void Query(HKEY key, const wchar_t* name) {
    BYTE data[1024];
    DWORD size = sizeof data;
    ::RegQueryValueExW(key, name, nullptr, nullptr, data, &size);
}

template <std::size_t Count>
void QueryKey(const wchar_t* path, const wchar_t* const (&names)[Count]) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != 0)
        return;
    for (const wchar_t* const name : names)
        Query(key, name);
    ::RegCloseKey(key);
}

void AskForUser() {
    wchar_t path[MAX_PATH + 16];
    ::GetSystemDirectoryW(path, MAX_PATH);
    ::lstrcatW(path, L"\\netapi32.dll");
    const HMODULE library = ::LoadLibraryW(path);
    const auto get_info = reinterpret_cast<decltype(&::NetWkstaUserGetInfo)>(
        reinterpret_cast<void*>(::GetProcAddress(library, "NetWkstaUserGetInfo")));
    const auto free_buffer = reinterpret_cast<decltype(&::NetApiBufferFree)>(
        reinterpret_cast<void*>(::GetProcAddress(library, "NetApiBufferFree")));
    BYTE* buffer = nullptr;
    if (get_info && free_buffer && get_info(nullptr, 0, &buffer) == 0)
        free_buffer(buffer);
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
    QueryKey(settings, {L"Servers", L"Servers", L"Active", L"Active", L"ReminderTime", L"Options"});
    QueryKey(L"Software\\Microsoft\\Windows\\CurrentVersion\\Run", {L"Kestrelmoor"});
    AskForUser();
    AskForDomain();
    return 0;
}
