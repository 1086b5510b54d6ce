#include "tests/native/support/password_changes.h"

#include "platform/practice/world/log_on.h"
#include "platform/practice/world/names.h"
#include "platform/practice/world/password_changes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

using practice::AccountStore;
using practice::Moment;
using practice::Network;
using practice::PasswordChange;

bool Bears(const practice::Domain& domain, StringView name) {
    StringList names{domain.name, domain.dns_name};
    for (const practice::Controller& controller : domain.controllers)
        names.insert(names.end(), {controller.name, controller.dns_name});
    return std::any_of(names.begin(), names.end(),
                       [&](const String& one) { return practice::SameName(one, name); });
}

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

AccountStore* AccountsOf(Network& network, StringView place) {
    const StringView name = place.starts_with(u"\\\\") ? place.substr(2) : place;
    for (practice::Computer& computer : network.computers)
        if (practice::SameName(computer.name, name.empty() ? StringView(network.local_computer) : name))
            return &computer.store;
    for (practice::Domain& domain : network.domains)
        if (Bears(domain, name))
            return &domain.store;
    return nullptr;
}

} // namespace kestrelmoor::tests
