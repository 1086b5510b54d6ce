#include "forms/settings/item_lists.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace kestrelmoor {

platform::OwnedShellMalloc gShellMalloc;

namespace {

constexpr std::uint32_t kTerminatorBytes = 2;

// Items follow each other without padding, so that none may be read as a number in place.
std::uint16_t SizeOfItem(platform::ItemList item) {
    std::uint16_t size = 0;
    std::memcpy(&size, item, sizeof size);
    return size;
}

/// A list of so many bytes behind which the terminator stands already; none without memory.
OwnedIDList NewList(std::size_t nBytes) {
    OwnedIDList list(static_cast<std::uint8_t*>(platform::Alloc(gShellMalloc, nBytes + kTerminatorBytes)));
    if (list)
        std::memset(list.Get() + nBytes, 0, kTerminatorBytes);
    return list;
}

/// The bytes ahead of the first NUL, two to a character.
String TextOfBytes(std::span<const std::uint8_t> bytes) {
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    const auto length = static_cast<std::size_t>(end - bytes.begin());
    String text((length + 1) / sizeof(char16_t), u'\0');
    std::copy_n(bytes.begin(), length, reinterpret_cast<std::uint8_t*>(text.data()));
    return text;
}

/// What stands in an item from an offset on.
std::span<const std::uint8_t> Behind(platform::ItemList item, std::uint32_t nOffset) {
    const std::size_t size = item ? SizeOfItem(item) : 0;
    return nOffset < size ? std::span(item + nOffset, size - nOffset) : std::span<const std::uint8_t>();
}

} // namespace

void ShellMemoryTraits::Release(Value memory) noexcept {
    platform::Free(gShellMalloc, memory);
}

std::uint32_t GetIDListSize(platform::ItemList list) {
    std::uint32_t size = 0;
    if (list)
        while (const std::uint16_t item = SizeOfItem(list + size))
            size += item;
    return size;
}

platform::ItemList SplitIDList(platform::ItemList list, OwnedIDList& parent) {
    parent.Reset();
    if (!list)
        return nullptr;
    platform::ItemList last = nullptr;
    platform::ItemList item = list;
    while (const std::uint16_t size = SizeOfItem(item)) {
        last = item;
        item += size;
    }
    const auto ahead = static_cast<std::size_t>(last ? last - list : 0);
    parent = NewList(ahead);
    if (parent)
        std::memcpy(parent.Get(), list, ahead);
    return last;
}

OwnedIDList JoinIDLists(OwnedIDList& first, platform::ItemList second) {
    if (!first)
        return {};
    if (!second)
        return std::move(first);
    const std::uint32_t first_size = GetIDListSize(first.Get());
    const std::uint32_t second_size = GetIDListSize(second);
    OwnedIDList joined = NewList(std::size_t{first_size} + second_size);
    if (joined) {
        std::memcpy(joined.Get(), first.Get(), first_size);
        std::memcpy(joined.Get() + first_size, second, second_size);
    }
    return joined;
}

String StrRetToString(const platform::StrRet& record, platform::ItemList item) {
    switch (record.uType) {
    case platform::text_kind::kWide: {
        const OwnedIDList memory(reinterpret_cast<std::uint8_t*>(record.pOleStr));
        return memory ? String(record.pOleStr) : String();
    }
    case platform::text_kind::kOffset:
        return TextOfBytes(Behind(item, record.uOffset));
    case platform::text_kind::kBytes:
        return TextOfBytes(record.cStr);
    default:
        return {};
    }
}

} // namespace kestrelmoor
