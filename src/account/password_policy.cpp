#include "account/password_policy.h"

#include "account/api_failure.h"
#include "account/domain_controller.h"
#include "account/mAD.h"
#include "platform/network_management.h"
#include "runtime/conversions.h"
#include "shell/log.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::int32_t kPositive = 0x7FFFFFFF;
constexpr std::int32_t kNoLimit = -1;

/// What a refused question tells of the password; `PasswordStatusOK`: nothing.
PasswordStatus RefusalStatus(platform::NetStatus answer) {
    switch (answer) {
    case 5:    // access denied
    case 1326: // logon failure
    case 2203: // bad password
        return PasswordStatusInvalid;
    case 1330: // password expired
    case 1907: // password must change
    case 2242: // password expired, in the network's own numbers
        return PasswordStatusExpired;
    default:
        return PasswordStatusOK;
    }
}

/// The answer of a question that failed.
std::int16_t Classify(platform::NetStatus answer, PasswordStatus& nStatus) {
    nStatus = RefusalStatus(answer);
    if (nStatus == PasswordStatusOK) {
        FailedCall(answer, u"NetUserGetInfo");
        return -1;
    }
    if (gLogging)
        FailedCall(answer, u"NetUserGetInfo");
    LogPasswordStatus(nStatus == PasswordStatusInvalid ? u"Invalid" : u"Expired");
    return 0;
}

/// The status of a password whose age and limit are known.
PasswordStatus StatusByAge(String& sReport, const String& sTarget, std::int32_t nMaxAge,
                           std::int32_t nPasswordAge) {
    const std::int32_t seconds_left = (nMaxAge & kPositive) - nPasswordAge;
    LogInformation(u"Seconds before password expiration = ", DecimalText(seconds_left));
    if (seconds_left < 0) {
        AddReportLine(sReport, report_message::kExpired, sTarget);
        LogPasswordStatus(u"Expired");
        return PasswordStatusExpired;
    }
    if (seconds_left >= gReminderTime)
        return PasswordStatusOK;
    AddExpiringLine(sReport, sTarget, seconds_left);
    return PasswordStatusExpiring;
}

/// The status by the policy, of an account whose password can expire.
PasswordStatus StatusByPolicy(String& sReport, const String& sTarget, const String& sServer,
                              std::int32_t nPasswordAge) {
    std::int32_t max_age = 0;
    std::int32_t min_length = 0;
    String discarded;
    if (GetMaxPwdAgeAndMinLen(sServer, max_age, min_length, discarded) != 0)
        return PasswordStatusOK;
    if (max_age == kNoLimit) {
        LogPasswordStatus(u"Never expires");
        return PasswordStatusOK;
    }
    return StatusByAge(sReport, sTarget, max_age, nPasswordAge);
}

} // namespace

std::int16_t GetAccountInfo(const String& sUser, const String& sServer, std::int32_t& nPasswordAge,
                            PasswordStatus& nStatus, std::int32_t& nFlags) {
    LogInformation(u"-> NetUserGetInfo " + Quoted(sServer) + u" " + Quoted(sUser));
    platform::UserInfo3 info;
    const platform::NetStatus answer = platform::NetUserGetInfo(sServer, sUser, info);
    nPasswordAge = nStatus = nFlags = 0;
    if (answer != 0)
        return Classify(answer, nStatus);
    nFlags = static_cast<std::int32_t>(info.flags);
    if (info.password_expired != 0)
        nStatus = PasswordStatusExpired;
    nPasswordAge = static_cast<std::int32_t>(info.password_age) & kPositive;
    // The question went well: that is all that this line says, whatever the answer was.
    LogPasswordStatus(u"OK");
    return 0;
}

std::int16_t GetMaxPwdAgeAndMinLen(const String& sServer, std::int32_t& nMaxAge, std::int32_t& nMinLen,
                                   String& sError) {
    LogCall(u"NetUserModalsGet", sServer);
    platform::UserModalsInfo0 info;
    const platform::NetStatus answer = platform::NetUserModalsGet(sServer, info);
    if (answer != 0) {
        sError = FailedCall(answer, u"NetUserModalsGet");
        return -1;
    }
    nMinLen = static_cast<std::int32_t>(info.min_passwd_len);
    nMaxAge = static_cast<std::int32_t>(info.max_passwd_age);
    LogInformation(u"Max PWD Age = ", DecimalText(nMaxAge));
    LogInformation(u"Min PWD Length = ", DecimalText(nMinLen));
    return 0;
}

std::int32_t GetMinPwdLength(const String& sTarget) {
    std::int32_t length = 0;
    if (ADGetMinPwdLength(sTarget, length) == 0)
        return length;
    String discarded;
    // A domain without a controller that answers leaves the server empty, and the local policy counts.
    const String server = sTarget.empty() ? String() : ResolveServerName(sTarget, discarded);
    std::int32_t max_age = 0;
    GetMaxPwdAgeAndMinLen(server, max_age, length, discarded);
    return length;
}

PasswordStatus CheckPasswordStatus(String& sReport, const String& sTarget) {
    String server;
    if (!sTarget.empty()) {
        String discarded;
        server = ResolveServerName(sTarget, discarded);
        if (server.empty())
            return PasswordStatusOK;
    }
    std::int32_t age = 0;
    std::int32_t flags = 0;
    PasswordStatus status = PasswordStatusOK;
    if (GetAccountInfo(gUserName, server, age, status, flags) != 0)
        return PasswordStatusOK;
    // The account's state outranks an expired password.
    if (CannotBeServed(flags))
        return PasswordStatusOK;
    if (AddRefusalLine(sReport, status, sTarget))
        return status;
    if ((flags & account_flag::kNeverExpires) != 0)
        return PasswordStatusOK;
    return StatusByPolicy(sReport, sTarget, server, age);
}

} // namespace kestrelmoor
