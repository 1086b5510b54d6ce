#include "tests/native/forms/browse_network.h"

#include "platform/practice/shell_memory.h"

namespace kestrelmoor::tests {

namespace {

using practice::ShellItem;
using practice::ShellItemKind;

ShellItem Item(const char16_t* name, ShellItemKind kind, std::vector<ShellItem> items = {}) {
    ShellItem item;
    item.name = name;
    item.kind = kind;
    item.items = std::move(items);
    return item;
}

ShellItem Undescribed(const char16_t* name) {
    ShellItem item = Item(name, ShellItemKind::Computer);
    item.undescribed = true;
    return item;
}

ShellItem Hidden(const char16_t* name) {
    ShellItem item = Item(name, ShellItemKind::Computer);
    item.hidden = true;
    return item;
}

} // namespace

BrowseNetwork::BrowseNetwork() {
    world.shell = {};
    world.shell.network =
        Item(u"Network", ShellItemKind::Other,
             {Item(u"Whole", ShellItemKind::Network,
                   {Item(u"PRACTICE", ShellItemKind::Domain, {Item(u"DC1", ShellItemKind::Computer)}),
                    Undescribed(u"DEEP")}),
              Item(u"ARCHIVE", ShellItemKind::Computer, {Item(u"Shelf", ShellItemKind::Share)}),
              Item(u"GROUP", ShellItemKind::Domain), Undescribed(u"SPARE"), Hidden(u"SPARE"),
              Undescribed(u"LONELY"), Item(u"Printer", ShellItemKind::Other)});
}

BrowseNetwork::~BrowseNetwork() {
    gNetworkRoot.Reset();
    gShellMalloc.Reset();
    gBrowseTitle.clear();
    gBrowsePrompt = 0;
}

void BrowseNetwork::Begin() {
    ASSERT_EQ(platform::SHGetMalloc(gShellMalloc), 0);
    gNetworkRoot.Reset(practice::NewShellMemory(world.shell.ListOf({})));
    world.calls.Clear();
}

} // namespace kestrelmoor::tests
