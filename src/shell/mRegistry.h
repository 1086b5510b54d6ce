#pragma once

#include "platform/registry.h"
#include "runtime/array.h"
#include "runtime/text.h"

#include <cstdint>
#include <variant>

namespace kestrelmoor {

/// What a stored value is that the program has no kind for; it can't be written.
struct ErrorMark {
    bool operator==(const ErrorMark&) const = default;
};

using Bytes = Array<std::uint8_t>; ///< first index 0

/// A value of the registry as the program holds it: empty (not there, or of no use), Integer, String,
/// StringList (first index 0) or Bytes.
using RegistryValue = std::variant<std::monostate, std::int32_t, String, Array<String>, Bytes, ErrorMark>;

/// The kinds of `RegistryValue`, in its order.
enum class RegistryKind : std::size_t { kEmpty, kInteger, kString, kStringList, kBytes, kError };

using OwnedRegistryKey = platform::OwnedKey;

/// Opens a key, or creates it with `bCreate`, and then `nDisposition` says which (1 created, 2 opened). No
/// key on any failure, with no report.
OwnedRegistryKey OpenRegistryKey(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                                 bool bCreate, std::uint32_t& nDisposition);

/// The same without creation.
OwnedRegistryKey OpenRegistryKey(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess);

/// Closes a key; nothing for one that is not open.
void CloseRegistryKey(OwnedRegistryKey& hKey);

/// The value names of a key, first index 1, and in `aTypes`, where it is asked for, the kind that each would
/// read as. The listing begins at the registry's index 1, so the first value is never in it, and a key with
/// one value or none gives a list without storage.
Array<String> EnumRegistryValues(const OwnedRegistryKey& hKey, Array<RegistryKind>* aTypes = nullptr);

/// Reads a value. Whatever is wrong with it makes it empty; only a string list without room for its own
/// terminator raises 5.
RegistryValue GetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName);

/// Writes a value, or removes it when it is given nothing to store; a value that was not there counts as
/// removed. Raises 0x80040406 with message 102 when the registry refuses, and 0x8004040C with message 101 for
/// a kind that it can't hold; the source is "RegistryKeyValue (Let)".
void LetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName, const RegistryValue& value);

/// The same for a string list, which need not be copied into a value first.
void LetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName, const Array<String>& list);

} // namespace kestrelmoor
