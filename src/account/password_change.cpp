#include "account/password_change.h"

#include "account/api_failure.h"
#include "account/domain_controller.h"
#include "account/identity.h"
#include "platform/network_management.h"
#include "platform/security.h"
#include "shell/log.h"
#include "shell/messages.h"

#include <optional>

namespace kestrelmoor {

namespace {

constexpr std::uint32_t kAdjustAndQuery = 0x28;
constexpr std::uint32_t kPrivilegeEnabled = 2;

/// Why the privilege could not be set; nothing when it was.
std::optional<String> AdjustPrivilege(const String& sPrivilege, bool bEnable) {
    LogInformation(u"-> OpenProcessToken");
    platform::OwnedToken token;
    const auto opened = platform::OpenProcessToken(platform::GetCurrentProcess(), kAdjustAndQuery, token);
    if (!opened.value)
        return FormatApiError(opened.last_error, u"OpenProcessToken");
    LogCall(u"LookupPrivilegeValue", sPrivilege);
    platform::Luid luid = 0;
    const auto found = platform::LookupPrivilegeValueW(sPrivilege, luid);
    if (!found.value)
        return FormatApiError(found.last_error, u"LookupPrivilegeValue");
    LogInformation(u"-> AdjustTokenPrivileges");
    // The call also answers yes when it leaves the privilege unassigned: only the last error tells.
    const auto adjusted = platform::AdjustTokenPrivileges(token, luid, bEnable ? kPrivilegeEnabled : 0);
    if (adjusted.last_error != 0)
        return FormatApiError(adjusted.last_error, u"AdjustTokenPrivileges");
    return std::nullopt;
}

} // namespace

std::int16_t ChangePassword(const String& sOldPass, const String& sNewPass, const String& sTarget,
                            String& sError) {
    String lookup_error;
    const String server =
        sTarget.empty() ? GetCompName(lookup_error) : ResolveServerName(sTarget, lookup_error);
    if (server.empty()) {
        sError = lookup_error;
        return -1;
    }
    String discarded;
    SetPrivilege(u"SeChangeNotifyPrivilege", true, discarded);
    LogCall(u"NetUserChangePassword", server);
    const platform::NetStatus status = platform::NetUserChangePassword(server, sOldPass, sNewPass);
    if (status != 0) {
        sError = FailedCall(status, u"NetUserChangePassword");
        return -1;
    }
    LogInformation(u"Password changed");
    return 0;
}

std::int16_t SetPrivilege(const String& sPrivilege, bool bEnable, String& sError) {
    const std::optional<String> failure = AdjustPrivilege(sPrivilege, bEnable);
    if (!failure)
        return 0;
    sError = *failure;
    LogError(sError);
    return -1;
}

} // namespace kestrelmoor
