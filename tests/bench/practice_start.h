#pragma once

#include "platform/practice/world/world.h"

#include <ctime>

namespace kestrelmoor::bench {

/// The world of all benchmarks, the stock one, with the program's words and font brought up in it. The record
/// of calls is emptied; whoever measures in a loop empties it again.
practice::World& PracticeStart();

/// Sorted as the settings store them, or as a list from elsewhere may come.
enum class Order { kSorted, kScattered };

/// Makes `count` servers, each with an account of the user, the settings in the registry and in memory: all
/// active, the local computer not among them.
void ConfigureServers(practice::World& world, int count, Order order = Order::kSorted);

inline constexpr char16_t kOldPassword[] = u"Old-Password-1"; ///< that of the user on every server
inline constexpr char16_t kNewPassword[] = u"Next-Password-2";

/// Gives every account its old password again.
void ResetPasswords(practice::World& world);

/// Of the processor's time: what other programs do meanwhile does not count.
template <class Action>
double SecondsOf(Action action) {
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

} // namespace kestrelmoor::bench
