#include "platform/practice/world/password_changes.h"

namespace kestrelmoor::practice {

PasswordChangeWatcher& WatcherOfPasswordChanges() {
    static PasswordChangeWatcher watcher = [](Network&, Moment, const PasswordChange&) {};
    return watcher;
}

} // namespace kestrelmoor::practice
