#include "platform/practice/list_views.h"

#include "platform/practice/window_places.h"

#include <algorithm>
#include <vector>

namespace kestrelmoor::practice {

ListViews& ListViews::Current() {
    static ListViews views;
    return views;
}

void ListViews::Add(ListBox& list) {
    mViews.emplace(&list, View{list.TopIndex(), list.TopIndex()});
}

// A list that was told something else meanwhile is right.
int ListViews::TopRow(const ListBox& list) const {
    const auto found = mViews.find(&list);
    const bool is_ahead = found != mViews.end() && found->second.told == list.TopIndex();
    return is_ahead ? found->second.top : list.TopIndex();
}

bool ListViews::ShowsPartOf(const ListBox& list, int row) const {
    const int above = row - TopRow(list);
    return above >= 0 && above * kRowHeight < ClientArea(list).bottom;
}

void ListViews::Reveal(ListBox& list, int row) {
    const int top = TopRow(list);
    const int shown = RowsShown(list);
    if (row >= 0 && (row < top || row >= top + shown))
        ScrollTo(list, row < top ? row : row - shown + 1);
}

void ListViews::ScrollTo(ListBox& list, int top_row) {
    const int last = std::max(0, list.ListCount() - RowsShown(list));
    if (const auto found = mViews.find(&list); found != mViews.end())
        found->second = {std::clamp(top_row, 0, last), list.TopIndex()};
}

void ListViews::Tell(ListBox& list) {
    const auto found = mViews.find(&list);
    if (found == mViews.end())
        return;
    const int top = TopRow(list);
    found->second = {top, top};
    list.Scrolled(top);
}

void ListViews::TellAll() {
    std::vector<ListBox*> lists;
    for (const auto& [list, view] : mViews)
        lists.push_back(list);
    for (ListBox* const list : lists)
        if (mViews.contains(list))
            Tell(*list);
}

} // namespace kestrelmoor::practice
