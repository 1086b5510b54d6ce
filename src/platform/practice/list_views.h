#pragma once

#include "runtime/forms/controls.h"

#include <functional>
#include <map>

namespace kestrelmoor::practice {

/// Which rows the windows of lists show. A window scrolls at once; its list hears of it afterwards, when the
/// input is done or with the next pump of events, as from a real one.
class ListViews {
  public:
    static ListViews& Current();

    void Add(ListBox& list);
    void Remove(ListBox& list) { mViews.erase(&list); }

    /// The row at the top of the window.
    int TopRow(const ListBox& list) const;

    bool ShowsPartOf(const ListBox& list, int row) const;

    /// Scrolls no more than it takes to show a row.
    void Reveal(ListBox& list, int row);

    /// Scrolls so that the row stands at the top, or as near to it as the rows reach.
    void ScrollTo(ListBox& list, int top_row);

    /// Tells lists that have scrolled unheard.
    void Tell(ListBox& list);
    void TellAll();

  private:
    struct View {
        int top;  ///< in the window
        int told; ///< in the list when the two last agreed
    };
    std::map<ListBox*, View, std::less<>> mViews;
};

} // namespace kestrelmoor::practice
