#define _DSGETDCAPI_

#include "answer_buffer.h"
#include "backend_choice.h"

#include <windows.h>

#include <dsgetdc.h>
#include <lm.h>

#include <exception>

using namespace kestrelmoor;
using namespace kestrelmoor::stand_in;

namespace {

OptionalString Argument(LPCWSTR text) {
    if (text == nullptr)
        return std::nullopt;
    const std::wstring_view view(text);
    return String(view.begin(), view.end());
}

/// No exception leaves the library: want of memory is the one that is left.
template <typename Work>
NetStatus Guarded(Work work) noexcept {
    try {
        return work();
    } catch (const std::exception&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

/// Makes the answer of a query: `ask` fills the record, `make` turns it into a buffer of the caller's.
template <typename Info, typename Ask, typename Make>
NetStatus Answer(LPBYTE* bufptr, Ask ask, Make make) {
    if (bufptr == nullptr)
        return ERROR_INVALID_PARAMETER;
    *bufptr = nullptr;
    return Guarded([&] {
        Info info;
        const NetStatus code = ask(info);
        if (code == NERR_Success)
            *bufptr = reinterpret_cast<LPBYTE>(make(info));
        return code;
    });
}

WKSTA_USER_INFO_0* MakeWorkstationUser(const platform::WkstaUserInfo0& info) {
    return MakeAnswer<WKSTA_USER_INFO_0>({{&WKSTA_USER_INFO_0::wkui0_username, info.username}});
}

WKSTA_INFO_100* MakeWorkstation(const platform::WkstaInfo100& info) {
    auto* record = MakeAnswer<WKSTA_INFO_100>({{&WKSTA_INFO_100::wki100_computername, info.computername},
                                               {&WKSTA_INFO_100::wki100_langroup, info.langroup}});
    record->wki100_platform_id = PLATFORM_ID_NT;
    record->wki100_ver_major = 5;
    return record;
}

USER_INFO_3* MakeUser(const String& name, const platform::UserInfo3& info) {
    auto* record = MakeAnswer<USER_INFO_3>({{&USER_INFO_3::usri3_name, name},
                                            {&USER_INFO_3::usri3_home_dir, {}},
                                            {&USER_INFO_3::usri3_comment, {}},
                                            {&USER_INFO_3::usri3_script_path, {}},
                                            {&USER_INFO_3::usri3_full_name, {}},
                                            {&USER_INFO_3::usri3_usr_comment, {}},
                                            {&USER_INFO_3::usri3_parms, {}},
                                            {&USER_INFO_3::usri3_workstations, {}},
                                            {&USER_INFO_3::usri3_logon_server, u"\\\\*"},
                                            {&USER_INFO_3::usri3_profile, {}},
                                            {&USER_INFO_3::usri3_home_dir_drive, {}}});
    record->usri3_password_age = info.password_age;
    record->usri3_priv = USER_PRIV_USER;
    record->usri3_flags = info.flags;
    record->usri3_acct_expires = TIMEQ_FOREVER;
    record->usri3_max_storage = USER_MAXSTORAGE_UNLIMITED;
    record->usri3_password_expired = info.password_expired;
    return record;
}

USER_MODALS_INFO_0* MakeModals(const platform::UserModalsInfo0& info) {
    auto* record = MakeAnswer<USER_MODALS_INFO_0>({});
    record->usrmod0_min_passwd_len = info.min_passwd_len;
    record->usrmod0_max_passwd_age = info.max_passwd_age;
    record->usrmod0_force_logoff = TIMEQ_FOREVER;
    return record;
}

wchar_t* MakeText(const String& text) {
    auto* start = static_cast<wchar_t*>(AllocateAnswer((text.size() + 1) * sizeof(wchar_t)));
    std::copy(text.begin(), text.end(), start);
    return start;
}

} // namespace

extern "C" {

NET_API_STATUS WINAPI NetWkstaUserGetInfo(LPWSTR reserved, DWORD level, LPBYTE* bufptr) {
    if (reserved != nullptr)
        return ERROR_INVALID_PARAMETER;
    if (level != 0)
        return ERROR_INVALID_LEVEL;
    return Answer<platform::WkstaUserInfo0>(
        bufptr, [](auto& info) { return Backend().NetWkstaUserGetInfo(info); }, MakeWorkstationUser);
}

NET_API_STATUS WINAPI NetWkstaGetInfo(LPWSTR servername, DWORD level, LPBYTE* bufptr) {
    if (servername != nullptr)
        return ERROR_NOT_SUPPORTED;
    if (level != 100)
        return ERROR_INVALID_LEVEL;
    return Answer<platform::WkstaInfo100>(
        bufptr, [](auto& info) { return Backend().NetWkstaGetInfo(info); }, MakeWorkstation);
}

NET_API_STATUS WINAPI NetGetDCName(LPCWSTR servername, LPCWSTR domainname, LPBYTE* bufptr) {
    if (servername != nullptr)
        return ERROR_NOT_SUPPORTED;
    return Answer<String>(
        bufptr, [&](String& name) { return Backend().NetGetDCName(Argument(domainname), name); }, MakeText);
}

DWORD WINAPI DsGetDcNameW(LPCWSTR computername, LPCWSTR domainname, GUID*, LPCWSTR, ULONG flags,
                          PDOMAIN_CONTROLLER_INFOW* info) {
    if (computername != nullptr)
        return ERROR_NOT_SUPPORTED;
    return Answer<String>(
        reinterpret_cast<LPBYTE*>(info),
        [&](String& name) { return Backend().DsGetDcNameW(Argument(domainname), flags, name); },
        [](const String& name) {
            return MakeAnswer<DOMAIN_CONTROLLER_INFOW>(
                {{&DOMAIN_CONTROLLER_INFOW::DomainControllerName, name}});
        });
}

NET_API_STATUS WINAPI NetUserGetInfo(LPCWSTR servername, LPCWSTR username, DWORD level, LPBYTE* bufptr) {
    if (username == nullptr)
        return ERROR_INVALID_PARAMETER;
    if (level != 3)
        return ERROR_INVALID_LEVEL;
    const String name = *Argument(username);
    return Answer<platform::UserInfo3>(
        bufptr, [&](auto& info) { return Backend().NetUserGetInfo(Argument(servername), name, info); },
        [&](const auto& info) { return MakeUser(name, info); });
}

NET_API_STATUS WINAPI NetUserModalsGet(LPCWSTR servername, DWORD level, LPBYTE* bufptr) {
    if (level != 0)
        return ERROR_INVALID_LEVEL;
    return Answer<platform::UserModalsInfo0>(
        bufptr, [&](auto& info) { return Backend().NetUserModalsGet(Argument(servername), info); },
        MakeModals);
}

NET_API_STATUS WINAPI NetUserChangePassword(LPCWSTR domainname, LPCWSTR username, LPCWSTR oldpassword,
                                            LPCWSTR newpassword) {
    if (oldpassword == nullptr || newpassword == nullptr)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] {
        return Backend().NetUserChangePassword(Argument(domainname), Argument(username),
                                               *Argument(oldpassword), *Argument(newpassword));
    });
}

NET_API_STATUS WINAPI NetApiBufferFree(LPVOID buffer) {
    if (buffer == nullptr)
        return NERR_Success;
    return Guarded([&]() -> NetStatus {
        const bool known = ReleaseAnswer(buffer);
        Backend().NetApiBufferFree(known, OutstandingAnswers());
        return known ? NERR_Success : ERROR_INVALID_PARAMETER;
    });
}

} // extern "C"
