#include "platform/network_management.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"
#include "runtime/owned.h"

#include <cstddef>

#include <windows.h>

#include <lm.h>

#include <dsgetdc.h>

namespace kestrelmoor::platform {
namespace {

static_assert(offsetof(WKSTA_USER_INFO_0, wkui0_username) == 0);
static_assert(offsetof(WKSTA_INFO_100, wki100_computername) == 4);
static_assert(offsetof(WKSTA_INFO_100, wki100_langroup) == 8);
static_assert(offsetof(USER_INFO_3, usri3_password_age) == 8);
static_assert(offsetof(USER_INFO_3, usri3_flags) == 24);
static_assert(offsetof(USER_INFO_3, usri3_password_expired) == 112);
static_assert(offsetof(USER_MODALS_INFO_0, usrmod0_min_passwd_len) == 0);
static_assert(offsetof(USER_MODALS_INFO_0, usrmod0_max_passwd_age) == 4);
static_assert(offsetof(DOMAIN_CONTROLLER_INFOW, DomainControllerName) == 0);

BoundLibrary& NetApi32() {
    static BoundLibrary library{L"netapi32.dll"};
    return library;
}

struct NetBufferTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value buffer) noexcept {
        static BoundEntry<decltype(::NetApiBufferFree)> entry{NetApi32(), "NetApiBufferFree"};
        const LastErrorKept kept;
        if (const auto free_buffer = entry.Find())
            free_buffer(buffer);
    }
};
using OwnedNetBuffer = Owned<NetBufferTraits>;

/// Asks for a record, and on success hands it to `read` before its buffer goes back. `ask` gets the place
/// for the buffer.
template <class Record, class Ask, class Read>
NetStatus ReadRecord(Ask ask, Read read) {
    OwnedNetBuffer buffer;
    void* place = nullptr;
    const NetStatus status = ask(reinterpret_cast<BYTE**>(&place));
    buffer.Reset(place);
    if (status == NERR_Success && buffer)
        read(*static_cast<const Record*>(buffer.Get()));
    return status;
}

/// An empty server stands for the local computer.
const wchar_t* ServerArgument(const String& sServer) {
    return sServer.empty() ? nullptr : Wide(sServer);
}

} // namespace

NetStatus NetWkstaUserGetInfo(WkstaUserInfo0& info) {
    static BoundEntry<decltype(::NetWkstaUserGetInfo)> entry{NetApi32(), "NetWkstaUserGetInfo"};
    const auto call = entry.Get();
    return ReadRecord<WKSTA_USER_INFO_0>(
        [&](BYTE** place) { return call(nullptr, 0, place); },
        [&](const WKSTA_USER_INFO_0& record) { info.username = FromWide(record.wkui0_username); });
}

NetStatus NetWkstaGetInfo(WkstaInfo100& info) {
    static BoundEntry<decltype(::NetWkstaGetInfo)> entry{NetApi32(), "NetWkstaGetInfo"};
    const auto call = entry.Get();
    return ReadRecord<WKSTA_INFO_100>([&](BYTE** place) { return call(nullptr, 100, place); },
                                      [&](const WKSTA_INFO_100& record) {
                                          info.computername = FromWide(record.wki100_computername);
                                          info.langroup = FromWide(record.wki100_langroup);
                                      });
}

NetStatus NetGetDCName(const String& sDomain, String& sName) {
    static BoundEntry<decltype(::NetGetDCName)> entry{NetApi32(), "NetGetDCName"};
    const auto call = entry.Get();
    return ReadRecord<wchar_t>([&](BYTE** place) { return call(nullptr, Wide(sDomain), place); },
                               [&](const wchar_t& text) { sName = FromWide(&text); });
}

std::optional<NetStatus> DsGetDcNameW(const String& sDomain, std::uint32_t nFlags, String& sName) {
    static BoundEntry<decltype(::DsGetDcNameW)> entry{NetApi32(), "DsGetDcNameW"};
    const auto call = entry.Find();
    if (!call)
        return std::nullopt;
    return ReadRecord<DOMAIN_CONTROLLER_INFOW>(
        [&](BYTE** place) {
            return call(nullptr, Wide(sDomain), nullptr, nullptr, nFlags,
                        reinterpret_cast<DOMAIN_CONTROLLER_INFOW**>(place));
        },
        [&](const DOMAIN_CONTROLLER_INFOW& record) { sName = FromWide(record.DomainControllerName); });
}

NetStatus NetUserChangePassword(const String& sServer, const String& sOldPass, const String& sNewPass) {
    static BoundEntry<decltype(::NetUserChangePassword)> entry{NetApi32(), "NetUserChangePassword"};
    return entry.Get()(Wide(sServer), nullptr, Wide(sOldPass), Wide(sNewPass));
}

NetStatus NetUserGetInfo(const String& sServer, const String& sUser, UserInfo3& info) {
    static BoundEntry<decltype(::NetUserGetInfo)> entry{NetApi32(), "NetUserGetInfo"};
    const auto call = entry.Get();
    return ReadRecord<USER_INFO_3>(
        [&](BYTE** place) { return call(ServerArgument(sServer), Wide(sUser), 3, place); },
        [&](const USER_INFO_3& record) {
            info = {record.usri3_password_age, record.usri3_flags, record.usri3_password_expired};
        });
}

NetStatus NetUserModalsGet(const String& sServer, UserModalsInfo0& info) {
    static BoundEntry<decltype(::NetUserModalsGet)> entry{NetApi32(), "NetUserModalsGet"};
    const auto call = entry.Get();
    return ReadRecord<USER_MODALS_INFO_0>(
        [&](BYTE** place) { return call(ServerArgument(sServer), 0, place); },
        [&](const USER_MODALS_INFO_0& record) {
            info = {record.usrmod0_min_passwd_len, record.usrmod0_max_passwd_age};
        });
}

} // namespace kestrelmoor::platform
