#include "platform/practice/world/browse_dialog.h"

#include <algorithm>
#include <span>
#include <utility>

namespace kestrelmoor::practice {

namespace {

void AddRows(std::vector<ItemPath>& rows, const ShellItem& item, const ItemPath& path) {
    rows.push_back(path);
    for (std::size_t i = 0; i < item.items.size(); ++i) {
        ItemPath deeper = path;
        deeper.push_back(static_cast<std::uint16_t>(i));
        if (!item.items[i].hidden)
            AddRows(rows, item.items[i], deeper);
    }
}

} // namespace

std::vector<ItemPath> BrowseDialog::Rows() const {
    std::vector<ItemPath> rows;
    AddRows(rows, *mTree.Find(Top()), Top());
    return rows;
}

bool BrowseDialog::Select(const ItemPath& path) {
    const ShellItem* const item = mTree.Find(path);
    const ItemPath top = Top();
    if (!item || path.size() < top.size() || !std::equal(top.begin(), top.end(), path.begin()))
        return false;
    mSelection = path;
    mOkEnabled = item->kind == ShellItemKind::Computer;
    if (SelectionChanged)
        SelectionChanged();
    return true;
}

bool BrowseDialog::Select(const StringList& names) {
    ItemPath path = Top();
    std::span<const String> below = names;
    if (!mRoot) {
        if (below.empty() || below.front() != mTree.network.name)
            return false;
        below = below.subspan(1);
    }
    const ShellItem* folder = mTree.Find(path);
    for (const String& name : below) {
        std::uint16_t number = 0;
        while (number < folder->items.size() &&
               (folder->items[number].hidden || folder->items[number].name != name))
            ++number;
        if (number == folder->items.size())
            return false;
        path.push_back(number);
        folder = &folder->items[number];
    }
    return Select(path);
}

bool BrowseDialog::PressOk() {
    if (!mOkEnabled)
        return false;
    mAccepted = true;
    mOpen = false;
    return true;
}

/// The dialog is no longer in front when it ends, also by an error.
class BrowseDesk::InFront {
  public:
    InFront(BrowseDesk& desk, BrowseDialog& dialog)
        : mDesk(desk), mFormer(std::exchange(desk.mCurrent, &dialog)) {}
    ~InFront() { mDesk.mCurrent = mFormer; }
    InFront(const InFront&) = delete;
    InFront& operator=(const InFront&) = delete;

  private:
    BrowseDesk& mDesk;
    BrowseDialog* mFormer;
};

void BrowseDesk::Run(BrowseDialog& dialog, const std::function<bool()>& act) {
    const InFront in_front(*this, dialog);
    if (Shown)
        Shown(dialog);
    if (!mPersons.empty()) {
        const auto person = std::move(mPersons.front());
        mPersons.pop_front();
        person(dialog);
        dialog.Cancel();
    }
    while (dialog.IsOpen())
        if (!act())
            dialog.Cancel();
}

} // namespace kestrelmoor::practice
