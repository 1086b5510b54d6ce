#include "process_memory.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace kestrelmoor::driver {

namespace {

constexpr std::size_t kMostHandles = 32768;

// A handle is a place in the system's one table, counted in twos from 0x20, and above it how often that place
// has been taken.
long long Place(HMENU menu) {
    return static_cast<long long>((reinterpret_cast<ULONG_PTR>(menu) & 0xFFFF) - 0x20) / 2;
}
bool IsFresh(HMENU menu) {
    return reinterpret_cast<ULONG_PTR>(menu) >> 16 == 1;
}

} // namespace

// The table grows only when no place in it is free. So menus are made until one gets a place that nobody had
// before: that place tells the size of the table, and the menus before it tell how many places were free.
long long CountUserHandles() {
    std::vector<HMENU> menus;
    do
        menus.push_back(CreateMenu());
    while (menus.back() != nullptr && !IsFresh(menus.back()) && menus.size() < kMostHandles);
    const HMENU last = menus.back();
    const bool found = last != nullptr && IsFresh(last);
    // The places are given back in reverse, so that the next one to ask gets the one that it would have got.
    std::for_each(menus.rbegin(), menus.rend(), [](HMENU menu) { DestroyMenu(menu); });
    if (!found)
        throw std::runtime_error("the table of windows, menus and hooks is full");
    return Place(last) - (static_cast<long long>(menus.size()) - 1);
}

} // namespace kestrelmoor::driver
