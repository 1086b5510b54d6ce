#include "platform/practice/world/password_changes.h"
#include "platform/practice/world/log_on.h"
#include "tests/native/support/accounts_of.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

// After each change of a password that a network answers as done, in whatever test, the new password must log
// on and the old one must not: a change that doesn't hold fails the test that made it.

namespace {

using practice::AccountStore;
using practice::Moment;
using practice::Network;
using practice::PasswordChange;

void ProveChange(Network& network, Moment now, const PasswordChange& change) {
    AccountStore* const accounts = AccountsOf(network, change.place);
    ASSERT_NE(accounts, nullptr) << ToUtf8(String(change.place));
    EXPECT_EQ(practice::LogOn(*accounts, change.user, change.new_password, now), 0U) << "the new password";
    if (change.old_password == change.new_password)
        return;
    EXPECT_EQ(practice::LogOn(*accounts, change.user, change.old_password, now), 1326U) << "the old one";
}

class PasswordChanges : public testing::Environment {
    void SetUp() override { practice::WatcherOfPasswordChanges() = ProveChange; }
};

[[maybe_unused]] const testing::Environment* const kPasswordChanges =
    testing::AddGlobalTestEnvironment(new PasswordChanges);

} // namespace

} // namespace kestrelmoor::tests
