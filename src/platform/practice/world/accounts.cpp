#include "platform/practice/world/accounts.h"

#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

constexpr std::uint32_t kScript = 0x1;
constexpr std::uint32_t kDisabledFlag = 0x2;
constexpr std::uint32_t kLockedFlag = 0x10;
constexpr std::uint32_t kCannotChangeFlag = 0x40;
constexpr std::uint32_t kNormalAccount = 0x200;
constexpr std::uint32_t kNeverExpiresFlag = 0x10000;

constexpr std::size_t kKeptPasswords = 24;
constexpr std::size_t kShortestNameThatCounts = 3;

bool IsComplex(StringView password, StringView account_name) {
    bool small = false;
    bool capital = false;
    bool digit = false;
    bool other = false;
    for (const char16_t c : password) {
        if (c >= u'0' && c <= u'9')
            digit = true;
        else if (SmallLetter(c) != c)
            capital = true;
        else if (c >= u'a' && c <= u'z')
            small = true;
        else
            other = true;
    }
    const bool holds_name = account_name.size() >= kShortestNameThatCounts &&
                            FoldName(password).find(FoldName(account_name)) != String::npos;
    return small + capital + digit + other >= 3 && !holds_name;
}

bool InHistory(const Account& account, StringView password, std::uint32_t length) {
    if (length == 0)
        return false;
    if (account.password == password)
        return true;
    const auto count = std::min<std::size_t>(length - 1, account.former_passwords.size());
    const auto begin = account.former_passwords.begin();
    return std::find(begin, begin + static_cast<std::ptrdiff_t>(count), password) !=
           begin + static_cast<std::ptrdiff_t>(count);
}

} // namespace

std::uint32_t Account::Flags() const {
    std::uint32_t flags = kScript | kNormalAccount;
    flags |= disabled ? kDisabledFlag : 0;
    flags |= locked ? kLockedFlag : 0;
    flags |= cannot_change_password ? kCannotChangeFlag : 0;
    flags |= password_never_expires ? kNeverExpiresFlag : 0;
    return flags;
}

Account* AccountStore::Find(StringView name) {
    const auto found = std::find_if(accounts.begin(), accounts.end(),
                                    [&](const Account& account) { return SameName(account.name, name); });
    return found == accounts.end() ? nullptr : &*found;
}

std::uint32_t AccountStore::PasswordAge(const Account& account, Moment now) {
    const Moment age = (now - account.password_set) / kSecond;
    return static_cast<std::uint32_t>(std::clamp<Moment>(age, 0, kForever));
}

bool AccountStore::Expired(const Account& account, Moment now) const {
    if (account.password_expired)
        return true;
    return !account.password_never_expires && policy.max_age != kForever &&
           PasswordAge(account, now) > policy.max_age;
}

bool AccountStore::Accepts(const Account& account, StringView new_password, Moment now) const {
    if (PasswordAge(account, now) < policy.min_age && !account.password_expired)
        return false;
    if (new_password.size() < policy.min_length || InHistory(account, new_password, policy.history_length))
        return false;
    return !policy.complexity || IsComplex(new_password, account.name);
}

std::uint32_t AccountStore::ChangePassword(StringView name, StringView old_password, StringView new_password,
                                           Moment now) {
    Account* const account = Find(name);
    if (!account)
        return network_code::kUserNotFound;
    if (account->locked)
        return network_code::kAccountLockedOut;
    if (account->disabled)
        return network_code::kAccountDisabled;
    if (account->password != old_password)
        return network_code::kInvalidPassword;
    if (account->cannot_change_password)
        return network_code::kAccessDenied;
    if (!Accepts(*account, new_password, now))
        return network_code::kPasswordTooShort;

    account->former_passwords.insert(account->former_passwords.begin(), account->password);
    if (account->former_passwords.size() > kKeptPasswords)
        account->former_passwords.resize(kKeptPasswords);
    account->password = new_password;
    account->password_set = now;
    account->password_expired = false;
    return network_code::kSuccess;
}

} // namespace kestrelmoor::practice
