#include "forms/settings/item_lists.h"
#include "forms/settings/modBrowse.h"
#include "platform/practice/shell_memory.h"
#include "tests/fuzz/support.h"

#include <algorithm>
#include <optional>

namespace kestrelmoor::fuzz {

namespace {

constexpr std::size_t kTerminator = 2;
constexpr WindowHandle kDialog = 0x1234;

/// A list that ends, in memory that ends where the list does, so that a step beyond it is seen.
struct List {
    std::vector<std::uint8_t> bytes; ///< terminator and all
    std::vector<std::size_t> items;  ///< where each begins

    std::size_t Size() const { return bytes.size() - kTerminator; }
    const std::uint8_t* Begin() const { return bytes.data(); }
};

std::size_t Number16(InputBytes bytes, std::size_t at) {
    return at + 1 < bytes.size() ? bytes[at] | static_cast<std::size_t>(bytes[at + 1]) << 8 : 0;
}

/// The list that the bytes begin with; it ends ahead of an item that goes beyond them. The size of an item of
/// one byte has its high half in what follows, which is 0 there and in a terminator alike.
List ListIn(InputBytes bytes) {
    List list;
    std::size_t end = 0;
    for (std::size_t size = Number16(bytes, 0); size != 0 && end + size <= bytes.size();
         size = Number16(bytes, end)) {
        list.items.push_back(end);
        end += size;
    }
    list.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end));
    list.bytes.resize(end + kTerminator);
    return list;
}

/// What the practice network hands out, so that the ways behind a known item are found.
List KnownList(Input& input) {
    practice::ItemPath path;
    const practice::ShellTree& tree = practice::TheWorld().shell;
    for (std::size_t depth = input.Byte() % 5; depth > 0; --depth) {
        path.push_back(input.Byte() % 4);
        if (tree.Find(path) == nullptr)
            path.pop_back();
    }
    return ListIn(tree.ListOf(path));
}

bool Holds(const OwnedIDList& list, InputBytes items) {
    const std::uint8_t* const end = list.Get() + items.size();
    return std::equal(items.begin(), items.end(), list.Get()) && end[0] == 0 && end[1] == 0;
}

OwnedIDList CopyOf(const List& list) {
    return OwnedIDList(practice::NewShellMemory(list.bytes));
}

void CheckSplitAndJoin(const List& list) {
    Require(GetIDListSize(list.Begin()) == list.Size());
    OwnedIDList parent;
    const platform::ItemList last = SplitIDList(list.Begin(), parent);
    const std::size_t ahead = list.items.empty() ? 0 : list.items.back();
    Require(last == (list.items.empty() ? nullptr : list.Begin() + ahead));
    Require(parent && Holds(parent, InputBytes(list.bytes).first(ahead)));
    if (last != nullptr)
        Require(Holds(JoinIDLists(parent, last), InputBytes(list.bytes).first(list.Size())));
}

void CheckJoin(const List& first, const List& second) {
    OwnedIDList owned = CopyOf(first);
    std::vector<std::uint8_t> both(first.Begin(), first.Begin() + first.Size());
    both.insert(both.end(), second.Begin(), second.Begin() + second.Size());
    Require(Holds(JoinIDLists(owned, second.Begin()), both));
    Require(Holds(owned, InputBytes(first.bytes).first(first.Size())));
}

/// The bytes of a text up to their first NUL, two to a character.
void CheckBytes(const String& text, InputBytes bytes) {
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    std::vector<std::uint8_t> told(bytes.begin(), end);
    told.resize((told.size() + 1) / 2 * 2);
    Require(Utf16Bytes(text) == told);
}

InputBytes Behind(const List& list, std::uint32_t offset) {
    const std::size_t from = list.items.empty() ? 0 : list.items.back();
    const InputBytes item = InputBytes(list.bytes).subspan(from, list.Size() - from);
    return item.subspan(std::min<std::size_t>(offset, item.size()));
}

void CheckRecord(Input& input, const List& list) {
    platform::StrRet record;
    record.uType = input.Byte() % 4;
    record.uOffset = input.Number32();
    const InputBytes bytes = input.Take(record.cStr.size());
    std::copy(bytes.begin(), bytes.end(), record.cStr.begin());
    const String wide = Utf16(bytes);
    if (record.uType == platform::text_kind::kWide && !bytes.empty())
        record.pOleStr = reinterpret_cast<char16_t*>(practice::NewShellMemory(Utf16Bytes(wide + u'\0')));
    const platform::ItemList item = list.items.empty() ? nullptr : list.Begin() + list.items.back();
    const String text = StrRetToString(record, item);
    if (record.uType == platform::text_kind::kWide)
        Require(text == TrimAtNul(wide));
    else if (record.uType == platform::text_kind::kOffset)
        CheckBytes(text, Behind(list, record.uOffset));
    else if (record.uType == platform::text_kind::kBytes)
        CheckBytes(text, record.cStr);
    else
        Require(text.empty());
}

/// Whatever the dialog says is selected: only a domain or a computer can be accepted, and nothing else has a
/// name from its folder.
void CheckSelection(const List& list) {
    practice::World& world = practice::TheWorld();
    const std::optional<practice::ItemPath> path = world.shell.PathOf(list.Begin());
    const std::uint32_t kind = GetNetworkItemType(kDialog, list.Begin());
    const String name = GetItemDisplayName(list.Begin());
    Require(path || (kind == 0 && name.empty()));
    if (path && !path->empty() && !world.shell.Find(*path)->undescribed)
        Require(kind == static_cast<std::uint32_t>(world.shell.Find(*path)->kind));
    BrowseCallback(kDialog, platform::browse_message::kSelectionChanged,
                   reinterpret_cast<std::intptr_t>(list.Begin()), 0);
    const bool accepted = kind == network_item::kDomain || kind == network_item::kServer;
    const practice::Call& last = world.calls.All().back();
    Require(last.name == "SendMessageW" && last.arguments[1] == u"1125");
    Require((last.arguments[3] != u"0") == accepted);
}

/// The state that a browse has while its dialog is up.
class Browse {
  public:
    Browse() {
        platform::SHGetMalloc(gShellMalloc);
        gNetworkRoot.Reset(practice::NewShellMemory(practice::TheWorld().shell.ListOf({})));
        gBrowsePrompt = 0;
    }
    ~Browse() {
        gNetworkRoot.Reset();
        gShellMalloc.Reset();
    }
    Browse(const Browse&) = delete;
    Browse& operator=(const Browse&) = delete;
};

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are a record, the way to an item of the practice network, a list with its length, and one more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor::fuzz;
    Run run;
    const Browse browse;
    Input input({data, size});
    Input record(input.Take(input.Byte()));
    const List known = KnownList(input);
    const List first = ListIn(input.Take(input.Byte()));
    const List second = ListIn(input.Rest());
    for (const List* list : {&known, &first, &second}) {
        CheckSplitAndJoin(*list);
        CheckSelection(*list);
    }
    CheckJoin(first, second);
    CheckJoin(known, first);
    CheckRecord(record, second);
    return 0;
}
