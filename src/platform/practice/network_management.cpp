#include "platform/network_management.h"

#include "platform/practice/world/password_changes.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

namespace kestrelmoor::platform {

namespace {

using practice::Account;
using practice::AccountStore;
using practice::Network;
using practice::Secret;
using practice::TheWorld;
namespace network_code = practice::network_code;

Network& Bound(const char* entry) {
    Network& network = TheWorld().network;
    if (!network.library_present)
        RaiseError(error_number::kFileNotFound);
    if (network.missing_entries.contains(entry))
        RaiseError(error_number::kEntryNotFound);
    return network;
}

} // namespace

NetStatus NetWkstaUserGetInfo(WkstaUserInfo0& info) {
    const Network& network = Bound("NetWkstaUserGetInfo");
    if (const auto fault = TheWorld().calls.Enter("NetWkstaUserGetInfo"))
        return *fault;
    info.username = network.user.name;
    return network_code::kSuccess;
}

NetStatus NetWkstaGetInfo(WkstaInfo100& info) {
    Network& network = Bound("NetWkstaGetInfo");
    if (const auto fault = TheWorld().calls.Enter("NetWkstaGetInfo"))
        return *fault;
    info.computername = network.Local().name;
    info.langroup = network.Local().group;
    return network_code::kSuccess;
}

NetStatus NetGetDCName(const String& sDomain, String& sName) {
    Network& network = Bound("NetGetDCName");
    if (const auto fault = TheWorld().calls.Enter("NetGetDCName", {sDomain}))
        return *fault;
    const String name = network.ControllerByShortName(sDomain);
    if (name.empty())
        return network_code::kControllerNotFound;
    sName = name;
    return network_code::kSuccess;
}

std::optional<NetStatus> DsGetDcNameW(const String& sDomain, std::uint32_t nFlags, String& sName) {
    Network& network = TheWorld().network;
    if (!network.library_present || network.missing_entries.contains("DsGetDcNameW"))
        return std::nullopt;
    if (const auto fault = TheWorld().calls.Enter("DsGetDcNameW", {sDomain, nFlags}))
        return *fault;
    const String name = network.ControllerByAnyName(sDomain);
    if (name.empty())
        return network_code::kNoSuchDomain;
    sName = name;
    return network_code::kSuccess;
}

NetStatus NetUserChangePassword(const String& sServer, const String& sOldPass, const String& sNewPass) {
    Network& network = Bound("NetUserChangePassword");
    if (const auto fault =
            TheWorld().calls.Enter("NetUserChangePassword", {sServer, Secret{sOldPass}, Secret{sNewPass}}))
        return *fault;
    AccountStore* const store = network.StoreAt(sServer);
    if (!store)
        return network_code::kBadNetPath;
    const practice::Moment now = TheWorld().clock.Now();
    const NetStatus status = store->ChangePassword(network.user.name, sOldPass, sNewPass, now);
    if (status == network_code::kSuccess)
        practice::WatcherOfPasswordChanges()(network, now, {sServer, network.user.name, sOldPass, sNewPass});
    return status;
}

NetStatus NetUserGetInfo(const String& sServer, const String& sUser, UserInfo3& info) {
    Network& network = Bound("NetUserGetInfo");
    if (const auto fault = TheWorld().calls.Enter("NetUserGetInfo", {sServer, sUser}))
        return *fault;
    AccountStore* const store = network.StoreAt(sServer);
    if (!store)
        return network_code::kBadNetPath;
    const Account* const account = store->Find(sUser);
    if (!account)
        return network_code::kUserNotFound;
    const practice::Moment now = TheWorld().clock.Now();
    info.password_age = AccountStore::PasswordAge(*account, now);
    info.flags = account->Flags();
    info.password_expired = store->Expired(*account, now) ? 1 : 0;
    return network_code::kSuccess;
}

NetStatus NetUserModalsGet(const String& sServer, UserModalsInfo0& info) {
    Network& network = Bound("NetUserModalsGet");
    if (const auto fault = TheWorld().calls.Enter("NetUserModalsGet", {sServer}))
        return *fault;
    const AccountStore* const store = network.StoreAt(sServer);
    if (!store)
        return network_code::kBadNetPath;
    info.min_passwd_len = store->policy.min_length;
    info.max_passwd_age = store->policy.max_age;
    return network_code::kSuccess;
}

} // namespace kestrelmoor::platform
