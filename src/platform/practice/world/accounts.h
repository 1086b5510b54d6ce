#pragma once

#include "platform/practice/world/clock.h"
#include "runtime/text.h"

#include <cstdint>
#include <vector>

namespace kestrelmoor::practice {

inline constexpr std::uint32_t kForever = 0xFFFFFFFF;

/// Codes that the world's account services answer.
namespace network_code {
inline constexpr std::uint32_t kSuccess = 0;
inline constexpr std::uint32_t kAccessDenied = 5;
inline constexpr std::uint32_t kBadNetPath = 53;
inline constexpr std::uint32_t kInvalidPassword = 86;
inline constexpr std::uint32_t kAccountDisabled = 1331;
inline constexpr std::uint32_t kNoSuchDomain = 1355;
inline constexpr std::uint32_t kAccountLockedOut = 1909;
inline constexpr std::uint32_t kUserNotFound = 2221;
inline constexpr std::uint32_t kPasswordTooShort = 2245;
inline constexpr std::uint32_t kControllerNotFound = 2453;
} // namespace network_code

/// What a computer or a domain asks of passwords. Ages in seconds.
struct PasswordPolicy {
    std::uint32_t min_length = 0;
    std::uint32_t max_age = kForever;
    std::uint32_t min_age = 0;
    std::uint32_t history_length = 0; ///< so many last passwords, the present one included, can't come again
    bool complexity = false;          ///< three kinds of characters, and not the account's name

    bool operator==(const PasswordPolicy&) const = default;
};

struct Account {
    String name;
    String password;
    StringList former_passwords; ///< the latest first
    Moment password_set = 0;
    bool password_expired = false; ///< must be changed at the next logon
    bool disabled = false;
    bool locked = false;
    bool cannot_change_password = false;
    bool password_never_expires = false;

    /// The account's flags as the network tells them.
    std::uint32_t Flags() const;

    bool operator==(const Account&) const = default;
};

/// The accounts of one computer or domain under their policy.
struct AccountStore {
    PasswordPolicy policy;
    std::vector<Account> accounts;

    Account* Find(StringView name);

    /// Seconds since the password was set.
    static std::uint32_t PasswordAge(const Account& account, Moment now);

    /// Whether the password has to be changed: by its mark or by its age.
    bool Expired(const Account& account, Moment now) const;

    /// A user's change of a password, judged as a server does, in this order: no such account 2221, locked
    /// 1909, disabled 1331, wrong old password 86, may not change it 5, refused by the policy 2245. On 0 the
    /// new password holds and its age begins anew; otherwise nothing has changed.
    std::uint32_t ChangePassword(StringView name, StringView old_password, StringView new_password,
                                 Moment now);

    bool operator==(const AccountStore&) const = default;

  private:
    bool Accepts(const Account& account, StringView new_password, Moment now) const;
};

} // namespace kestrelmoor::practice
