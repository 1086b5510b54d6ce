#include "platform/practice/world/registry_tree.h"

#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

void AppendText(Bytes& data, StringView text) {
    for (const char16_t c : text) {
        data.push_back(static_cast<std::uint8_t>(c & 0xFF));
        data.push_back(static_cast<std::uint8_t>(c >> 8));
    }
}

RegistryKey KeyAt(StringView path) {
    RegistryKey key;
    key.path = path;
    return key;
}

} // namespace

Bytes TextData(StringView text) {
    Bytes data;
    AppendText(data, text);
    AppendText(data, StringView(u"\0", 1));
    return data;
}

Bytes TextsData(const StringList& texts) {
    Bytes data;
    for (const String& text : texts) {
        const Bytes one = TextData(text);
        data.insert(data.end(), one.begin(), one.end());
    }
    AppendText(data, StringView(u"\0", 1));
    return data;
}

Bytes NumberData(std::uint32_t number) {
    Bytes data;
    for (int shift = 0; shift < 32; shift += 8)
        data.push_back(static_cast<std::uint8_t>(number >> shift));
    return data;
}

const RegistryValue* RegistryKey::Find(StringView name) const {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const RegistryValue& value) { return SameName(value.name, name); });
    return found == values.end() ? nullptr : &*found;
}

void RegistryKey::Set(StringView name, std::uint32_t type, Bytes data) {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const RegistryValue& value) { return SameName(value.name, name); });
    RegistryValue& value =
        found == values.end() ? values.emplace_back(RegistryValue{String(name), 0, {}}) : *found;
    value.type = type;
    value.data = std::move(data);
}

bool RegistryKey::Delete(StringView name) {
    return std::erase_if(values, [&](const RegistryValue& value) { return SameName(value.name, name); }) > 0;
}

String RegistryTree::HiveName(std::uint32_t hive) {
    switch (hive) {
    case 0x80000001:
        return u"HKEY_CURRENT_USER";
    case 0x80000002:
        return u"HKEY_LOCAL_MACHINE";
    default:
        return {};
    }
}

RegistryKey* RegistryTree::Find(StringView path) {
    const auto found = mKeys.find(FoldName(path));
    return found == mKeys.end() ? nullptr : &found->second;
}

const RegistryKey* RegistryTree::Find(StringView path) const {
    const auto found = mKeys.find(FoldName(path));
    return found == mKeys.end() ? nullptr : &found->second;
}

RegistryKey& RegistryTree::Create(StringView path) {
    for (std::size_t end = path.find(u'\\'); end != StringView::npos; end = path.find(u'\\', end + 1))
        mKeys.try_emplace(FoldName(path.substr(0, end)), KeyAt(path.substr(0, end)));
    return mKeys.try_emplace(FoldName(path), KeyAt(path)).first->second;
}

const RegistryValue* RegistryTree::FindValue(StringView path, StringView name) const {
    const RegistryKey* const key = Find(path);
    return key ? key->Find(name) : nullptr;
}

} // namespace kestrelmoor::practice
