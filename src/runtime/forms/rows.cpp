#include "runtime/errors.h"
#include "runtime/forms/application.h"

#include <algorithm>

namespace kestrelmoor {

RowControl::RowControl(Form& form, const ControlDesign& design)
    : Control(form, design), mSorted(design.sorted) {}

const String& RowControl::List(int row) const {
    return At(row).text;
}

void RowControl::SetList(int row, const String& text) {
    At(row).text = text;
    if (Peer() != nullptr)
        Peer()->RowReplaced(row);
}

std::int32_t RowControl::ItemData(int row) const {
    return At(row).data;
}

void RowControl::SetItemData(int row, std::int32_t data) {
    At(row).data = data;
}

void RowControl::SetListIndex(int row) {
    if (mSlots.empty() && row >= 0)
        return;
    if (row < -1 || row >= ListCount())
        RaiseError(error_number::kInvalidPropertyValue);
    if (mListIndex == row)
        return;
    mListIndex = row;
    Show(Property::ListIndex);
    Raise(Click);
}

void RowControl::AddItem(const String& text, int row) {
    if (row < -1 || row > ListCount())
        RaiseError(error_number::kInvalidArgument);
    const int place = row >= 0 ? row : PlaceFor(text);
    mSlots.insert(mSlots.begin() + place, Store(text));
    mNewIndex = place;
    if (mListIndex >= place)
        ++mListIndex;
    if (Peer() != nullptr)
        Peer()->RowInserted(place);
}

void RowControl::RemoveItem(int row) {
    if (!HasRow(row))
        RaiseError(error_number::kInvalidArgument);
    mFree.push_back(mSlots[Position(row)]);
    mSlots.erase(mSlots.begin() + row);
    mNewIndex = -1;
    if (mListIndex == row)
        mListIndex = -1;
    else if (mListIndex > row)
        --mListIndex;
    if (Peer() != nullptr)
        Peer()->RowRemoved(row);
}

void RowControl::Clear() {
    mSlots.clear();
    mFree.clear();
    mStore.clear();
    mListIndex = -1;
    mNewIndex = -1;
    if (Peer() != nullptr)
        Peer()->RowsCleared();
}

void RowControl::RowPressed(int row) {
    if (IsUsable() && HasRow(row))
        mListIndex = row;
}

void RowControl::RowChosen(int row) {
    if (!IsUsable() || !HasRow(row))
        return;
    mListIndex = row;
    Raise(Click);
}

bool RowControl::HasRow(int row) const {
    return row >= 0 && row < ListCount();
}

RowControl::Row& RowControl::At(int row) {
    return mStore[mSlots[Position(row)]];
}

const RowControl::Row& RowControl::At(int row) const {
    return mStore[mSlots[Position(row)]];
}

std::size_t RowControl::Position(int row) const {
    if (!HasRow(row))
        RaiseError(error_number::kInvalidPropertyIndex);
    return static_cast<std::size_t>(row);
}

std::uint32_t RowControl::Store(const String& text) {
    if (mFree.empty()) {
        mStore.push_back({.text = text});
        return static_cast<std::uint32_t>(mStore.size() - 1);
    }
    const std::uint32_t slot = mFree.back();
    mFree.pop_back();
    mStore[slot] = {.text = text};
    return slot;
}

int RowControl::PlaceFor(StringView text) const {
    if (!mSorted)
        return ListCount();
    const StringView sorted_part = SortedPart(text);
    const auto comes_ahead = [&](StringView added, std::uint32_t slot) {
        return Application::Current().CompareRows(added, SortedPart(mStore[slot].text)) < 0;
    };
    // Names that come in order, as they are stored, go to the end without a search.
    if (mSlots.empty() || !comes_ahead(sorted_part, mSlots.back()))
        return ListCount();
    const auto place = std::upper_bound(mSlots.begin(), mSlots.end(), sorted_part, comes_ahead);
    return static_cast<int>(place - mSlots.begin());
}

} // namespace kestrelmoor
