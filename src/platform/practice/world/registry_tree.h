#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <map>
#include <vector>

namespace kestrelmoor::practice {

using Bytes = std::vector<std::uint8_t>;

struct RegistryValue {
    String name;
    std::uint32_t type = 0;
    Bytes data;

    bool operator==(const RegistryValue&) const = default;
};

/// Data as the registry has it.
Bytes TextData(StringView text);          ///< with one NUL
Bytes TextsData(const StringList& texts); ///< each with a NUL, and one more
Bytes NumberData(std::uint32_t number);   ///< four bytes, the lowest first

struct RegistryKey {
    String path; ///< from the hive on: HKEY_CURRENT_USER\Software\...
    bool refuses_reading = false;
    bool refuses_writing = false;
    std::vector<RegistryValue> values; ///< in the order of their numbering

    const RegistryValue* Find(StringView name) const;
    void Set(StringView name, std::uint32_t type, Bytes data);
    bool Delete(StringView name); ///< false: it was not there
};

/// Keys by their whole path, names without regard to case. A key's parents are keys too.
class RegistryTree {
  public:
    /// "HKEY_CURRENT_USER" for its number; other hives are not held.
    static String HiveName(std::uint32_t hive);

    RegistryKey* Find(StringView path);
    const RegistryKey* Find(StringView path) const;
    RegistryKey& Create(StringView path);

    /// A value of a key that need not be there: null when either is missing.
    const RegistryValue* FindValue(StringView path, StringView name) const;

    const std::map<String, RegistryKey>& Keys() const { return mKeys; }

  private:
    std::map<String, RegistryKey> mKeys;
};

} // namespace kestrelmoor::practice
