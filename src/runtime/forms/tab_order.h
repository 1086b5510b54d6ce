#pragma once

#include "runtime/forms/control.h"

#include <algorithm>
#include <vector>

namespace kestrelmoor {

/// The first control behind `from` (backward: ahead of it) that `accepts` takes, round the end of the order
/// and without `from` itself; null for none. From null the search begins at the end that it comes from.
template <class Accepts>
Control* NextInTabOrder(const std::vector<Control*>& order, const Control* from, bool backward,
                        const Accepts& accepts) {
    const std::size_t count = order.size();
    const auto found = std::find(order.begin(), order.end(), from);
    const bool inside = found != order.end();
    std::size_t at = inside ? static_cast<std::size_t>(found - order.begin()) : (backward ? 0 : count - 1);
    for (std::size_t left = inside ? count - 1 : count; left > 0; --left) {
        at = (at + (backward ? count - 1 : 1)) % count;
        if (accepts(*order[at]))
            return order[at];
    }
    return nullptr;
}

} // namespace kestrelmoor
