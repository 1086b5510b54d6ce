#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kestrelmoor::practice {

/// What the record of a network resource says that an item is.
enum class ShellItemKind : std::uint32_t { Other = 0, Domain = 1, Computer = 2, Share = 3, Network = 6 };

/// How an item's folder hands out its name.
enum class NameForm : std::uint32_t { Wide = 0, Offset = 1, Bytes = 2 };

/// An item of the shell's namespace, with what stands in it.
struct ShellItem {
    String name;
    ShellItemKind kind = ShellItemKind::Other;
    NameForm name_form = NameForm::Wide;
    bool undescribed = false;        ///< the shell finds the argument wrong when it is asked for its data
    bool hidden = false;             ///< found by its name alone, ahead of a listed one of the same name
    std::uint32_t record_bytes = 32; ///< what its data takes; a smaller buffer is refused
    std::vector<ShellItem> items;

    bool operator==(const ShellItem&) const = default;
};

/// The bytes of item lists, terminator and all.
using ItemBytes = std::vector<std::uint8_t>;

/// Where an item stands: its number in the network folder, in the folder there, and so on. Empty: the network
/// folder itself.
using ItemPath = std::vector<std::uint16_t>;

/// The network branch of the shell's namespace.
class ShellTree {
  public:
    bool network_present = true; ///< false: the shell succeeds, but gives no network folder
    ShellItem network;

    /// Null: nothing stands there.
    const ShellItem* Find(const ItemPath& path) const;

    /// The list of an item, counted from the desktop.
    ItemBytes ListOf(const ItemPath& path) const;

    /// The item that such a list names; none: it names nothing here.
    std::optional<ItemPath> PathOf(const std::uint8_t* list) const;

    bool operator==(const ShellTree&) const = default;
};

/// The list, relative to its folder, of the item at a number.
ItemBytes RelativeList(const ShellItem& folder, std::uint16_t number);

/// The number of the item that a list relative to its folder begins with.
std::optional<std::uint16_t> NumberIn(const ShellItem& folder, const std::uint8_t* list);

/// The number of the item with this name, a hidden one ahead of others.
std::optional<std::uint16_t> NumberOfName(const ShellItem& folder, StringView name);

/// Where in an item its name stands, as UTF-8 that ends in NUL.
inline constexpr std::uint32_t kNameOffset = 4;

/// The bytes of a list up to and with its terminator.
std::span<const std::uint8_t> BytesOfList(const std::uint8_t* list);

} // namespace kestrelmoor::practice
