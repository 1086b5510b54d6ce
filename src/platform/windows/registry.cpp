#include "platform/registry.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

constexpr DWORD kLongestName = 255;

HKEY Key(std::uintptr_t key) {
    return reinterpret_cast<HKEY>(key);
}
HKEY Key(const OwnedKey& key) {
    return Key(key.Get());
}

std::uint32_t Code(LONG status) {
    return static_cast<std::uint32_t>(status);
}

} // namespace

void RegistryKeyTraits::Release(Value key) noexcept {
    const LastErrorKept kept;
    ::RegCloseKey(Key(key));
}

std::uint32_t RegOpenKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                            OwnedKey& key) {
    HKEY opened = nullptr;
    const LONG status = ::RegOpenKeyExW(Key(hHive), Wide(sSubKey), 0, nAccess, &opened);
    key.Reset(reinterpret_cast<std::uintptr_t>(opened));
    return Code(status);
}

std::uint32_t RegCreateKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                              OwnedKey& key, std::uint32_t& nDisposition) {
    HKEY opened = nullptr;
    DWORD disposition = 0;
    const LONG status =
        ::RegCreateKeyExW(Key(hHive), Wide(sSubKey), 0, nullptr, 0, nAccess, nullptr, &opened, &disposition);
    key.Reset(reinterpret_cast<std::uintptr_t>(opened));
    nDisposition = disposition;
    return Code(status);
}

std::uint32_t RegQueryValueType(const OwnedKey& key, const String& sName, std::uint32_t& nType,
                                std::uint32_t& nLength) {
    DWORD type = 0;
    DWORD length = 0;
    const LONG status = ::RegQueryValueExW(Key(key), Wide(sName), nullptr, &type, nullptr, &length);
    nType = status == ERROR_SUCCESS ? type : 0;
    nLength = status == ERROR_SUCCESS ? length : 0;
    return Code(status);
}

std::uint32_t RegQueryValueData(const OwnedKey& key, const String& sName, std::vector<std::uint8_t>& data) {
    DWORD length = static_cast<DWORD>(data.size());
    const LONG status = ::RegQueryValueExW(Key(key), Wide(sName), nullptr, nullptr, data.data(), &length);
    if (length < data.size())
        data.resize(length);
    return Code(status);
}

std::uint32_t RegSetValueExW(const OwnedKey& key, const String& sName, std::uint32_t nType,
                             const std::vector<std::uint8_t>& data) {
    return Code(
        ::RegSetValueExW(Key(key), Wide(sName), 0, nType, data.data(), static_cast<DWORD>(data.size())));
}

std::uint32_t RegDeleteValueW(const OwnedKey& key, const String& sName) {
    return Code(::RegDeleteValueW(Key(key), Wide(sName)));
}

std::uint32_t RegEnumValueW(const OwnedKey& key, std::uint32_t nIndex, String& sName, std::uint32_t& nType) {
    wchar_t name[kLongestName + 1] = {};
    DWORD length = kLongestName + 1;
    DWORD type = 0;
    const LONG status = ::RegEnumValueW(Key(key), nIndex, name, &length, nullptr, &type, nullptr, nullptr);
    if (status == ERROR_SUCCESS) {
        sName = FromWide(name);
        nType = type;
    }
    return Code(status);
}

String ExpandEnvironmentStringsW(const String& sText, std::size_t nCharacters) {
    // What a buffer that is too small holds differs between systems, so the whole is had and then cut.
    String whole(::ExpandEnvironmentStringsW(Wide(sText), nullptr, 0), u'\0');
    ::ExpandEnvironmentStringsW(Wide(sText), WideBuffer(whole), static_cast<DWORD>(whole.size()));
    whole.resize(nCharacters);
    return whole;
}

} // namespace kestrelmoor::platform
