#pragma once

#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>
#include <vector>

namespace kestrelmoor::platform {

/// The registry, call for call. Status 0 is success, anything else a code of the system (2: not there).

inline constexpr std::uint32_t kCurrentUser = 0x80000001;
inline constexpr std::uint32_t kLocalMachine = 0x80000002;
inline constexpr std::uint32_t kKeyRead = 0x20019;
inline constexpr std::uint32_t kKeyWrite = 0x20006;

namespace registry_type {
inline constexpr std::uint32_t kNone = 0;
inline constexpr std::uint32_t kString = 1;
inline constexpr std::uint32_t kExpandString = 2;
inline constexpr std::uint32_t kBinary = 3;
inline constexpr std::uint32_t kDword = 4;
inline constexpr std::uint32_t kMultiString = 7;
} // namespace registry_type

struct RegistryKeyTraits {
    using Value = std::uintptr_t;
    static constexpr Value kNone = 0;
    static void Release(Value key) noexcept; ///< RegCloseKey
};
using OwnedKey = Owned<RegistryKeyTraits>;

std::uint32_t RegOpenKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess, OwnedKey& key);

/// Opens or creates. `nDisposition`: 1 created, 2 opened.
std::uint32_t RegCreateKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                              OwnedKey& key, std::uint32_t& nDisposition);

/// Type and length in bytes alone. A failed call leaves both 0.
std::uint32_t RegQueryValueType(const OwnedKey& key, const String& sName, std::uint32_t& nType,
                                std::uint32_t& nLength);

/// The data, at most `data.size()` bytes of it; `data` shrinks when less has come.
std::uint32_t RegQueryValueData(const OwnedKey& key, const String& sName, std::vector<std::uint8_t>& data);

std::uint32_t RegSetValueExW(const OwnedKey& key, const String& sName, std::uint32_t nType,
                             const std::vector<std::uint8_t>& data);

std::uint32_t RegDeleteValueW(const OwnedKey& key, const String& sName);

/// Name (at most 255 characters) and type of the value at an index, counted from 0. 259: no more.
std::uint32_t RegEnumValueW(const OwnedKey& key, std::uint32_t nIndex, String& sName, std::uint32_t& nType);

/// The text with its environment variables expanded, as it stands in a buffer of `nCharacters`: padded with
/// NUL, or cut off where the whole does not fit.
String ExpandEnvironmentStringsW(const String& sText, std::size_t nCharacters);

} // namespace kestrelmoor::platform
