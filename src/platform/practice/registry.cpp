#include "platform/registry.h"

#include "platform/practice/world/names.h"
#include "platform/practice/world/world.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::TheWorld;

constexpr std::uint32_t kSuccess = 0;
constexpr std::uint32_t kNotThere = 2;
constexpr std::uint32_t kAccessDenied = 5;
constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kMoreData = 234;
constexpr std::uint32_t kNoMoreItems = 259;

constexpr std::uint32_t kQueryValue = 1;
constexpr std::uint32_t kSetValue = 2;
constexpr std::uint32_t kCreated = 1;
constexpr std::uint32_t kOpened = 2;
constexpr std::size_t kLongestName = 255;

struct OpenKey {
    String path;
    std::uint32_t access;
};

String PathOf(std::uint32_t hive, const String& sub_key) {
    return practice::RegistryTree::HiveName(hive) + u"\\" + sub_key;
}

bool Refuses(const practice::RegistryKey& key, std::uint32_t access) {
    return (key.refuses_reading && (access & kQueryValue) != 0) ||
           (key.refuses_writing && (access & kSetValue) != 0);
}

std::uint32_t Open(const String& path, std::uint32_t access, OwnedKey& key) {
    practice::RegistryKey* const found = TheWorld().registry.Find(path);
    if (!found)
        return kNotThere;
    if (Refuses(*found, access))
        return kAccessDenied;
    key.Reset(TheWorld().handles.Open(HandleKind::RegistryKey, OpenKey{path, access}));
    return kSuccess;
}

/// The key behind a handle, with a status where it can't be used so.
std::uint32_t Reach(const OwnedKey& key, std::uint32_t access, practice::RegistryKey*& found) {
    const OpenKey* const open = TheWorld().handles.Find<OpenKey>(HandleKind::RegistryKey, key.Get());
    if (!open)
        return kInvalidHandle;
    if ((open->access & access) == 0)
        return kAccessDenied;
    found = TheWorld().registry.Find(open->path);
    return found ? kSuccess : kNotThere;
}

std::uint32_t ReachValue(const OwnedKey& key, const String& name, const practice::RegistryValue*& value) {
    practice::RegistryKey* found = nullptr;
    if (const std::uint32_t status = Reach(key, kQueryValue, found))
        return status;
    value = found->Find(name);
    return value ? kSuccess : kNotThere;
}

String Expanded(const String& text) {
    String result;
    std::size_t place = 0;
    for (;;) {
        const std::size_t begin = text.find(u'%', place);
        const std::size_t end = begin == String::npos ? begin : text.find(u'%', begin + 1);
        if (end == String::npos)
            return result + text.substr(place);
        result += text.substr(place, begin - place);
        const auto& environment = TheWorld().machine.environment;
        const String name = text.substr(begin + 1, end - begin - 1);
        const auto variable = std::find_if(environment.begin(), environment.end(), [&](const auto& entry) {
            return practice::SameName(entry.first, name);
        });
        // The second mark may be the first one of the next variable.
        result += variable == environment.end() ? text.substr(begin, end - begin) : variable->second;
        place = variable == environment.end() ? end : end + 1;
    }
}

} // namespace

void RegistryKeyTraits::Release(Value key) noexcept {
    TheWorld().calls.Enter("RegCloseKey");
    TheWorld().handles.Close(HandleKind::RegistryKey, key);
}

std::uint32_t RegOpenKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                            OwnedKey& key) {
    const String path = PathOf(hHive, sSubKey);
    if (const auto fault = TheWorld().calls.Enter("RegOpenKeyExW", {path, nAccess}))
        return *fault;
    return Open(path, nAccess, key);
}

std::uint32_t RegCreateKeyExW(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                              OwnedKey& key, std::uint32_t& nDisposition) {
    const String path = PathOf(hHive, sSubKey);
    if (const auto fault = TheWorld().calls.Enter("RegCreateKeyExW", {path, nAccess}))
        return *fault;
    const bool is_there = TheWorld().registry.Find(path) != nullptr;
    TheWorld().registry.Create(path);
    const std::uint32_t status = Open(path, nAccess, key);
    if (status == kSuccess)
        nDisposition = is_there ? kOpened : kCreated;
    return status;
}

std::uint32_t RegQueryValueType(const OwnedKey& key, const String& sName, std::uint32_t& nType,
                                std::uint32_t& nLength) {
    nType = 0;
    nLength = 0;
    if (const auto fault = TheWorld().calls.Enter("RegQueryValueExW", {sName}))
        return *fault;
    const practice::RegistryValue* value = nullptr;
    if (const std::uint32_t status = ReachValue(key, sName, value))
        return status;
    nType = value->type;
    nLength = static_cast<std::uint32_t>(value->data.size());
    return kSuccess;
}

std::uint32_t RegQueryValueData(const OwnedKey& key, const String& sName, std::vector<std::uint8_t>& data) {
    if (const auto fault = TheWorld().calls.Enter("RegQueryValueExW", {sName}))
        return *fault;
    const practice::RegistryValue* value = nullptr;
    if (const std::uint32_t status = ReachValue(key, sName, value))
        return status;
    if (value->data.size() > data.size())
        return kMoreData;
    data = value->data;
    return kSuccess;
}

std::uint32_t RegSetValueExW(const OwnedKey& key, const String& sName, std::uint32_t nType,
                             const std::vector<std::uint8_t>& data) {
    TheWorld().calls.Pass("RegSetValueExW",
                          std::string_view(reinterpret_cast<const char*>(data.data()), data.size()));
    if (const auto fault = TheWorld().calls.Enter("RegSetValueExW", {sName, nType, data.size()}))
        return *fault;
    practice::RegistryKey* found = nullptr;
    if (const std::uint32_t status = Reach(key, kSetValue, found))
        return status;
    found->Set(sName, nType, data);
    return kSuccess;
}

std::uint32_t RegDeleteValueW(const OwnedKey& key, const String& sName) {
    if (const auto fault = TheWorld().calls.Enter("RegDeleteValueW", {sName}))
        return *fault;
    practice::RegistryKey* found = nullptr;
    if (const std::uint32_t status = Reach(key, kSetValue, found))
        return status;
    return found->Delete(sName) ? kSuccess : kNotThere;
}

std::uint32_t RegEnumValueW(const OwnedKey& key, std::uint32_t nIndex, String& sName, std::uint32_t& nType) {
    if (const auto fault = TheWorld().calls.Enter("RegEnumValueW", {nIndex}))
        return *fault;
    practice::RegistryKey* found = nullptr;
    if (const std::uint32_t status = Reach(key, kQueryValue, found))
        return status;
    if (nIndex >= found->values.size())
        return kNoMoreItems;
    const practice::RegistryValue& value = found->values[nIndex];
    if (value.name.size() > kLongestName)
        return kMoreData;
    sName = value.name;
    nType = value.type;
    return kSuccess;
}

String ExpandEnvironmentStringsW(const String& sText, std::size_t nCharacters) {
    if (TheWorld().calls.Enter("ExpandEnvironmentStringsW", {sText, nCharacters}))
        return String(nCharacters, 0);
    String expanded = Expanded(sText);
    expanded.resize(nCharacters, 0);
    return expanded;
}

} // namespace kestrelmoor::platform
