#include "platform/practice/world/log_on.h"

namespace kestrelmoor::practice {

std::uint32_t LogOn(AccountStore& accounts, StringView name, StringView password, Moment now) {
    const Account* const account = accounts.Find(name);
    if (account && account->locked)
        return network_code::kAccountLockedOut;
    if (!account || account->password != password)
        return network_code::kLogonFailure;
    if (account->disabled)
        return network_code::kAccountDisabled;
    if (account->password_expired)
        return network_code::kPasswordMustChange;
    return accounts.Expired(*account, now) ? network_code::kPasswordExpired : network_code::kSuccess;
}

} // namespace kestrelmoor::practice
