#include "shell/mRegistry.h"

#include "runtime/errors.h"
#include "shell/log.h"
#include "shell/messages.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace kestrelmoor {

namespace {

using platform::OwnedKey;
namespace type = platform::registry_type;

constexpr char16_t kSource[] = u"RegistryKeyValue (Let)";
constexpr auto kWriteFailed = static_cast<std::int32_t>(0x80040406U);
constexpr auto kNoSuchKind = static_cast<std::int32_t>(0x8004040CU);
constexpr std::uint32_t kFileNotFoundCode = 2;
constexpr std::size_t kExpandedLength = 260;

using RawData = std::vector<std::uint8_t>;

/// The characters of string data but for the terminator; none for data too short to have one.
std::optional<String> TextOf(const RawData& data) {
    const std::size_t units = data.size() / sizeof(char16_t);
    if (units == 0)
        return std::nullopt;
    String text(units - 1, u'\0');
    std::memcpy(text.data(), data.data(), text.size() * sizeof(char16_t));
    return text;
}

RegistryValue ListOf(String text) {
    if (text.empty())
        RaiseError(error_number::kInvalidArgument);
    text.pop_back();
    if (text.empty())
        return Array<String>();
    return Array<String>(0, Split(text, u'\0'));
}

RegistryValue IntegerOf(const RawData& data) {
    std::uint32_t value = 0;
    std::memcpy(&value, data.data(), std::min(data.size(), sizeof value));
    return static_cast<std::int32_t>(value);
}

RegistryValue FromString(std::uint32_t nType, const RawData& data) {
    std::optional<String> text = TextOf(data);
    if (!text)
        return {};
    if (nType == type::kMultiString)
        return ListOf(std::move(*text));
    if (nType == type::kExpandString)
        return TrimAtNul(platform::ExpandEnvironmentStringsW(*text, kExpandedLength));
    return *text;
}

[[noreturn]] void RaiseWriteFailure(std::uint32_t nCode, const char16_t* sApiName) {
    const String text = FormatApiError(nCode, sApiName);
    LogError(text);
    throw RuntimeError(kWriteFailed, kSource, LoadMessage(102, {text}));
}

std::size_t SizeOf(const String& text) {
    return text.size() * sizeof(char16_t);
}

RawData DataOf(const String& text) {
    RawData data(SizeOf(text) + sizeof(char16_t));
    std::memcpy(data.data(), text.data(), SizeOf(text));
    return data;
}

/// A terminator behind each text and one behind all; a list of none has two all the same.
RawData DataOf(const StringList& list) {
    std::size_t size = list.empty() ? 2 * sizeof(char16_t) : sizeof(char16_t);
    for (const String& text : list)
        size += SizeOf(text) + sizeof(char16_t);
    RawData data(size);
    std::size_t place = 0;
    for (const String& text : list) {
        std::memcpy(data.data() + place, text.data(), SizeOf(text));
        place += SizeOf(text) + sizeof(char16_t);
    }
    return data;
}

/// Writes each kind in its type.
class Writer {
  public:
    Writer(const OwnedKey& key, const String& sName) : mKey(key), mName(sName) {}

    void operator()(std::monostate) const {
        const std::uint32_t status = platform::RegDeleteValueW(mKey, mName);
        if (status != 0 && status != kFileNotFoundCode)
            RaiseWriteFailure(status, u"RegDeleteValueW");
    }
    void operator()(std::int32_t value) const {
        RawData data(sizeof value);
        std::memcpy(data.data(), &value, sizeof value);
        Set(type::kDword, data);
    }
    void operator()(const String& text) const { Set(type::kString, DataOf(text)); }
    void operator()(const Array<String>& list) const { Set(type::kMultiString, DataOf(list.Elements())); }
    void operator()(const Bytes& bytes) const { Set(type::kBinary, bytes.Elements()); }
    void operator()(ErrorMark) const { throw RuntimeError(kNoSuchKind, kSource, LoadMessage(101, {})); }

  private:
    void Set(std::uint32_t nType, const RawData& data) const {
        const std::uint32_t status = platform::RegSetValueExW(mKey, mName, nType, data);
        if (status != 0)
            RaiseWriteFailure(status, u"RegSetValueExW");
    }

    const OwnedKey& mKey;
    const String& mName;
};

RegistryKind KindOf(std::uint32_t nType) {
    switch (nType) {
    case type::kString:
    case type::kExpandString:
        return RegistryKind::kString;
    case type::kDword:
        return RegistryKind::kInteger;
    case type::kBinary:
        return RegistryKind::kBytes;
    case type::kMultiString:
        return RegistryKind::kStringList;
    default:
        return RegistryKind::kError;
    }
}

} // namespace

OwnedRegistryKey OpenRegistryKey(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess,
                                 bool bCreate, std::uint32_t& nDisposition) {
    OwnedKey key;
    if (bCreate)
        platform::RegCreateKeyExW(hHive, sSubKey, nAccess, key, nDisposition);
    else
        platform::RegOpenKeyExW(hHive, sSubKey, nAccess, key);
    return key;
}

OwnedRegistryKey OpenRegistryKey(std::uint32_t hHive, const String& sSubKey, std::uint32_t nAccess) {
    std::uint32_t disposition = 0;
    return OpenRegistryKey(hHive, sSubKey, nAccess, false, disposition);
}

void CloseRegistryKey(OwnedRegistryKey& hKey) {
    hKey.Reset();
}

Array<String> EnumRegistryValues(const OwnedRegistryKey& hKey, Array<RegistryKind>* aTypes) {
    Array<String> names;
    String name;
    std::uint32_t value_type = 0;
    for (std::int32_t counter = 1;
         platform::RegEnumValueW(hKey, static_cast<std::uint32_t>(counter), name, value_type) == 0;
         ++counter) {
        names.Redim(1, counter);
        names[counter] = name;
        if (aTypes != nullptr) {
            aTypes->Redim(1, counter);
            (*aTypes)[counter] = KindOf(value_type);
        }
    }
    return names;
}

RegistryValue GetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName) {
    std::uint32_t value_type = 0;
    std::uint32_t length = 0;
    platform::RegQueryValueType(hKey, sName, value_type, length);
    const bool known = KindOf(value_type) != RegistryKind::kError;
    if (length == 0 || !known)
        return {};
    RawData data(value_type == type::kDword ? sizeof(std::int32_t) : length);
    if (platform::RegQueryValueData(hKey, sName, data) != 0)
        return {};
    switch (value_type) {
    case type::kDword:
        return IntegerOf(data);
    case type::kBinary:
        return Bytes(0, data);
    default:
        return FromString(value_type, data);
    }
}

void LetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName, const RegistryValue& value) {
    std::visit(Writer(hKey, sName), value);
}

void LetRegistryKeyValue(const OwnedRegistryKey& hKey, const String& sName, const Array<String>& list) {
    Writer(hKey, sName)(list);
}

} // namespace kestrelmoor
