#include "platform/practice/world/shell_tree.h"

#include "platform/practice/world/names.h"

#include <algorithm>
#include <string>

namespace kestrelmoor::practice {

namespace {

// Of the network folder, which has no number among others.
constexpr std::uint16_t kNetworkNumber = 0xFFFF;

constexpr std::uint16_t kSizeBytes = 2;

std::uint16_t NumberAt(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

void Append(ItemBytes& bytes, std::uint16_t number) {
    bytes.push_back(static_cast<std::uint8_t>(number & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(number >> 8));
}

void AppendItem(ItemBytes& bytes, std::uint16_t number, const String& name) {
    const std::string text = ToUtf8(name);
    Append(bytes, static_cast<std::uint16_t>(kNameOffset + text.size() + 1));
    Append(bytes, number);
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
}

bool IsItem(const std::uint8_t* item, std::uint16_t number, const String& name) {
    ItemBytes bytes;
    AppendItem(bytes, number, name);
    return NumberAt(item) == bytes.size() && std::equal(bytes.begin(), bytes.end(), item);
}

} // namespace

const ShellItem* ShellTree::Find(const ItemPath& path) const {
    const ShellItem* item = &network;
    for (const std::uint16_t number : path) {
        if (number >= item->items.size())
            return nullptr;
        item = &item->items[number];
    }
    return item;
}

ItemBytes ShellTree::ListOf(const ItemPath& path) const {
    ItemBytes bytes;
    AppendItem(bytes, kNetworkNumber, network.name);
    const ShellItem* item = &network;
    for (const std::uint16_t number : path) {
        item = &item->items.at(number);
        AppendItem(bytes, number, item->name);
    }
    Append(bytes, 0);
    return bytes;
}

std::optional<ItemPath> ShellTree::PathOf(const std::uint8_t* list) const {
    if (!list || !IsItem(list, kNetworkNumber, network.name))
        return std::nullopt;
    ItemPath path;
    const ShellItem* folder = &network;
    for (const std::uint8_t* item = list + NumberAt(list); NumberAt(item) != 0; item += NumberAt(item)) {
        const std::optional<std::uint16_t> number = NumberIn(*folder, item);
        if (!number)
            return std::nullopt;
        path.push_back(*number);
        folder = &folder->items[*number];
    }
    return path;
}

ItemBytes RelativeList(const ShellItem& folder, std::uint16_t number) {
    ItemBytes bytes;
    AppendItem(bytes, number, folder.items.at(number).name);
    Append(bytes, 0);
    return bytes;
}

std::optional<std::uint16_t> NumberIn(const ShellItem& folder, const std::uint8_t* list) {
    if (!list || NumberAt(list) <= kNameOffset)
        return std::nullopt;
    const std::uint16_t number = NumberAt(list + kSizeBytes);
    if (number >= folder.items.size() || !IsItem(list, number, folder.items[number].name))
        return std::nullopt;
    return number;
}

std::optional<std::uint16_t> NumberOfName(const ShellItem& folder, StringView name) {
    std::optional<std::uint16_t> found;
    for (std::size_t i = 0; i < folder.items.size(); ++i) {
        const ShellItem& item = folder.items[i];
        if (SameName(item.name, name) && (!found || item.hidden))
            found = static_cast<std::uint16_t>(i);
    }
    return found;
}

std::span<const std::uint8_t> BytesOfList(const std::uint8_t* list) {
    const std::uint8_t* end = list;
    while (NumberAt(end) != 0)
        end += NumberAt(end);
    return {list, end + kSizeBytes};
}

} // namespace kestrelmoor::practice
