#pragma once

#include "platform/practice/world/clock.h"
#include "runtime/text.h"

#include <functional>

namespace kestrelmoor::practice {

class Network;

/// A change of a password that was answered as done; `place` as the network API or the directory names it.
struct PasswordChange {
    StringView place;
    StringView user;
    StringView old_password;
    StringView new_password;
};

using PasswordChangeWatcher = std::function<void(Network&, Moment now, const PasswordChange&)>;

/// The one who is told of each change in any network. Not told are those that were answered by a fault, or by
/// an answer laid into the directory, in place of the network.
PasswordChangeWatcher& WatcherOfPasswordChanges();

} // namespace kestrelmoor::practice
