#pragma once

#include "platform/network_management.h"

#include <cstddef>
#include <optional>

namespace kestrelmoor::stand_in {

using platform::NetStatus;
using OptionalString = std::optional<String>;

/// What stands behind the exported calls. Arguments are the API's, checked for level and null out places;
/// no value is a null pointer. A call writes its record on success (0) alone.
class NetworkBackend {
  public:
    virtual ~NetworkBackend() = default;

    virtual NetStatus NetWkstaUserGetInfo(platform::WkstaUserInfo0& info) = 0;
    virtual NetStatus NetWkstaGetInfo(platform::WkstaInfo100& info) = 0;
    virtual NetStatus NetGetDCName(const OptionalString& domainname, String& name) = 0;
    virtual NetStatus DsGetDcNameW(const OptionalString& domainname, std::uint32_t flags, String& name) = 0;
    virtual NetStatus NetUserGetInfo(const OptionalString& servername, const String& username,
                                     platform::UserInfo3& info) = 0;
    virtual NetStatus NetUserModalsGet(const OptionalString& servername, platform::UserModalsInfo0& info) = 0;
    virtual NetStatus NetUserChangePassword(const OptionalString& domainname, const OptionalString& username,
                                            const String& oldpassword, const String& newpassword) = 0;

    /// Tells of a buffer given back, for the record: whether it was one of ours (a second release is not),
    /// and how many are still out.
    virtual void NetApiBufferFree(bool known, std::size_t outstanding) = 0;
};

} // namespace kestrelmoor::stand_in
