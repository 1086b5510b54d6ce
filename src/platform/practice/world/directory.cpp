#include "platform/practice/world/directory.h"

#include "platform/practice/world/names.h"
#include "platform/practice/world/network.h"
#include "platform/practice/world/password_changes.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

constexpr StringView kProvider = u"WinNT://";
constexpr StringView kUserClass = u",user";
constexpr std::uint32_t kPasswordExpiredFlag = 0x800000;

[[noreturn]] void FailWith(std::uint32_t system_code) {
    throw DirectoryFailure{directory_code::kSystem + system_code};
}

[[noreturn]] void FailAtPath() {
    throw DirectoryFailure{directory_code::kSyntax, u"Invalid syntax"};
}

/// What a member was told to answer; null: the truth.
const DirectoryAnswer* Told(const Network& network, StringView name, std::string_view member) {
    const auto& answers = network.directory.answers;
    const auto found = std::find_if(answers.begin(), answers.end(), [&](const DirectoryAnswer& answer) {
        return answer.member == member && SameName(answer.name, name);
    });
    if (found == answers.end())
        return nullptr;
    if (found->number != 0)
        throw DirectoryFailure{found->number, found->description};
    return &*found;
}

DirectoryUser ParsePath(StringView path) {
    if (!path.starts_with(kProvider) || !path.ends_with(kUserClass))
        FailAtPath();
    path.remove_prefix(kProvider.size());
    const std::size_t slash = path.find(u'/');
    if (slash == StringView::npos || path.size() < slash + 1 + kUserClass.size())
        FailAtPath();
    const StringView user = path.substr(slash + 1);
    return {String(path.substr(0, slash)), String(user.substr(0, user.size() - kUserClass.size()))};
}

/// The accounts behind a name: those of a computer or a controller, else those of a domain.
AccountStore& StoreOf(Network& network, const String& name) {
    if (AccountStore* const store = network.StoreAt(u"\\\\" + name))
        return *store;
    Domain* const domain = network.FindDomain(name);
    if (!domain || network.ControllerByAnyName(name).empty())
        FailWith(network_code::kBadNetPath);
    return domain->store;
}

const Account& AccountOf(AccountStore& store, const DirectoryUser& user) {
    const Account* const account = store.Find(user.user);
    if (!account)
        FailWith(network_code::kUserNotFound);
    return *account;
}

Variant ExpirationDate(const PasswordPolicy& policy, const Account& account) {
    if (policy.max_age == kForever)
        throw DirectoryFailure{directory_code::kPropertyNotFound};
    return DateValue{DateOfMoment(account.password_set + Moment{policy.max_age} * kSecond)};
}

Variant TrueValue(AccountStore& store, const Account& account, Moment now, std::string_view member) {
    const bool expired = store.Expired(account, now);
    if (member == directory_member::kFlags)
        return static_cast<std::int32_t>(account.Flags() | (expired ? kPasswordExpiredFlag : 0));
    if (member == directory_member::kExpired)
        return std::int32_t{expired};
    if (member == directory_member::kExpirationDate)
        return ExpirationDate(store.policy, account);
    if (member == directory_member::kMinimumLength)
        return static_cast<std::int32_t>(store.policy.min_length);
    throw DirectoryFailure{directory_code::kPropertyNotFound};
}

} // namespace

DirectoryUser BindDirectoryUser(Network& network, StringView path) {
    if (!network.directory.present)
        FailAtPath();
    DirectoryUser user = ParsePath(path);
    if (!Told(network, user.name, directory_member::kBind))
        AccountOf(StoreOf(network, user.name), user);
    return user;
}

Variant DirectoryValue(Network& network, Moment now, const DirectoryUser& user, std::string_view member) {
    if (const DirectoryAnswer* const told = Told(network, user.name, member))
        return told->value;
    AccountStore& store = StoreOf(network, user.name);
    return TrueValue(store, AccountOf(store, user), now, member);
}

void ChangeDirectoryPassword(Network& network, Moment now, const DirectoryUser& user, StringView old_password,
                             StringView new_password) {
    if (Told(network, user.name, directory_member::kChangePassword))
        return;
    const std::uint32_t code =
        StoreOf(network, user.name).ChangePassword(user.user, old_password, new_password, now);
    if (code != network_code::kSuccess)
        FailWith(code);
    WatcherOfPasswordChanges()(network, now, {user.name, user.user, old_password, new_password});
}

} // namespace kestrelmoor::practice
