#include "runtime/forms/form.h"

#include <utility>

namespace kestrelmoor {

ListBox::ListBox(Form& form, const ControlDesign& design)
    : RowControl(form, design), mStyle(design.list_style) {}

void ListBox::SetSelected(int row, bool checked) {
    bool& mark = At(row).checked;
    if (mark == checked)
        return;
    mark = checked;
    if (Peer() != nullptr)
        Peer()->RowMarked(row);
    Raise(ItemCheck, row);
}

void ListBox::RowToggled(int row) {
    if (IsUsable() && HasRow(row))
        SetSelected(row, !Selected(row));
}

void ListBox::SetTabStops(std::vector<int> stops) {
    mTabStops = std::move(stops);
    Show(Property::TabStops);
}

StringView ListBox::SortedPart(StringView text) const {
    return mTabStops.empty() ? text : text.substr(0, text.find(u'\t'));
}

void ListBox::Clear() {
    mTopIndex = 0;
    RowControl::Clear();
}

void ListBox::Scrolled(int top_row) {
    if (mTopIndex == top_row)
        return;
    mTopIndex = top_row;
    Raise(Scroll);
}

} // namespace kestrelmoor
