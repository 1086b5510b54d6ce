#pragma once

#include "platform/practice/world/accounts.h"

namespace kestrelmoor::practice {

/// Codes that a log-on is refused with, beside those of a change.
namespace network_code {
inline constexpr std::uint32_t kLogonFailure = 1326;
inline constexpr std::uint32_t kPasswordExpired = 1330;
inline constexpr std::uint32_t kPasswordMustChange = 1907;
} // namespace network_code

/// A log-on, judged in this order: locked 1909, no such account or wrong password 1326, disabled 1331, must
/// be changed 1907, too old 1330. On 0 the user is let in.
std::uint32_t LogOn(AccountStore& accounts, StringView name, StringView password, Moment now);

} // namespace kestrelmoor::practice
