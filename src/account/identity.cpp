#include "account/identity.h"

#include "account/api_failure.h"
#include "platform/network_management.h"
#include "runtime/conversions.h"
#include "shell/log.h"
#include "shell/messages.h"

namespace kestrelmoor {

namespace {

constexpr std::uint32_t kViewLocalInformation = 1;
constexpr std::uint32_t kPrimaryDomainInformation = 3;
constexpr std::uint32_t kTokenRead = 0x20008;
constexpr std::uint32_t kTokenUser = 1;
constexpr std::uint8_t kMostSubAuthorities = 8; ///< of AllocateAndInitializeSid

/// A failure of the calls about identifiers leaves its line in the log whether or not diagnosing is on.
void LogSidFailure(std::uint32_t nCode, const String& sApiName) {
    LogEvent(FormatApiError(nCode, sApiName), log_event::kError);
}

/// The shape of a question to the local workstation: announce, ask, log the answer.
template <class Info, class Text>
String AskWorkstation(platform::NetStatus (*call)(Info&), const char16_t* sApiName, const char16_t* sLabel,
                      Text text, String& sError) {
    LogInformation(u"-> ", sApiName);
    Info info;
    const platform::NetStatus status = call(info);
    if (status != 0) {
        sError = FailedCall(status, sApiName);
        return {};
    }
    String answer = text(info);
    LogInformation(String(sLabel) + u" = " + answer);
    return answer;
}

bool IsAccountOfDomain(platform::SidAddress domain_sid) {
    platform::OwnedSid account_domain = GetAccountDomainSid(GetCurrentUserSid());
    const bool same = account_domain && platform::EqualSid(domain_sid, account_domain.Get());
    account_domain.Reset();
    LogInformation(u"Domain Account = ", BooleanText(same));
    return same;
}

String FailedStatus(platform::NtStatus status, const char16_t* sApiName) {
    return FailedCall(platform::LsaNtStatusToWinError(status), sApiName);
}

/// The sub-authorities but for the last, which is the account's own relative identifier. False: one of them
/// could not be read.
bool CopySubAuthorities(platform::SidAddress pSid, std::uint8_t nCount, std::uint32_t (&slots)[8]) {
    for (std::uint32_t i = 0; i + 1 < nCount; ++i) {
        const auto sub_authority = platform::GetSidSubAuthority(pSid, i);
        if (sub_authority.last_error != 0)
            return false;
        slots[i] = *sub_authority.value;
    }
    return true;
}

} // namespace

String GetCurrentUser(String& sError) {
    return AskWorkstation<platform::WkstaUserInfo0>(
        platform::NetWkstaUserGetInfo, u"NetWkstaUserGetInfo", u"Current User",
        [](const auto& info) { return info.username; }, sError);
}

String GetCompName(String& sError) {
    return AskWorkstation<platform::WkstaInfo100>(
        platform::NetWkstaGetInfo, u"NetWkstaGetInfo", u"Computer Name",
        [](const auto& info) { return u"\\\\" + info.computername; }, sError);
}

String GetDomainName(String& sError) {
    return AskWorkstation<platform::WkstaInfo100>(
        platform::NetWkstaGetInfo, u"NetWkstaGetInfo", u"Domain Name",
        [](const auto& info) { return info.langroup; }, sError);
}

bool IsDomainMember(String& sError) {
    LogInformation(u"-> LsaOpenPolicy");
    platform::OwnedPolicy policy;
    platform::NtStatus status = platform::LsaOpenPolicy(kViewLocalInformation, policy);
    if (status != 0) {
        sError = FailedStatus(status, u"LsaOpenPolicy");
        return false;
    }
    LogInformation(u"-> LsaQueryInformationPolicy");
    platform::OwnedPolicyRecord record;
    status = platform::LsaQueryInformationPolicy(policy, kPrimaryDomainInformation, record);
    if (status != 0) {
        sError = FailedStatus(status, u"LsaQueryInformationPolicy");
        return false;
    }
    const platform::SidAddress domain_sid = platform::PrimaryDomainSid(record);
    const bool member = domain_sid != nullptr;
    LogInformation(u"Domain Member = ", BooleanText(member));
    return member && IsAccountOfDomain(domain_sid);
}

platform::SidAddress GetCurrentUserSid() {
    static std::vector<std::uint8_t> buffer;
    const platform::OwnedProcess process(platform::GetCurrentProcess());
    if (!process)
        return nullptr;
    platform::OwnedToken token;
    if (!platform::OpenProcessToken(process.Get(), kTokenRead, token).value)
        return nullptr;
    std::uint32_t needed = 0;
    std::vector<std::uint8_t> none;
    platform::GetTokenInformation(token, kTokenUser, none, needed);
    buffer.resize(needed);
    LogInformation(u"-> GetTokenInformation");
    const auto filled = platform::GetTokenInformation(token, kTokenUser, buffer, needed);
    if (!filled.value) {
        LogSidFailure(filled.last_error, u"GetTokenInformation");
        return nullptr;
    }
    return platform::UserSidInBuffer(buffer);
}

platform::OwnedSid GetAccountDomainSid(platform::SidAddress pSid) {
    LogInformation(u"-> GetSidIdentifierAuthority");
    const auto authority = platform::GetSidIdentifierAuthority(pSid);
    if (authority.last_error != 0) {
        LogSidFailure(authority.last_error, u"GetSidIdentifierAuthority");
        return {};
    }
    LogInformation(u"-> GetSidSubAuthorityCount");
    const auto count_place = platform::GetSidSubAuthorityCount(pSid);
    if (count_place.last_error != 0) {
        LogSidFailure(count_place.last_error, u"GetSidSubAuthorityCount");
        return {};
    }
    const std::uint8_t count = *count_place.value;
    LogInformation(u"Account Sid SubAuthority Count = ", DecimalText(count));
    std::uint32_t slots[8] = {};
    if (count > kMostSubAuthorities || !CopySubAuthorities(pSid, count, slots))
        return {};
    LogInformation(u"-> AllocateAndInitializeSid");
    platform::OwnedSid built;
    const auto made = platform::AllocateAndInitializeSid(authority.value,
                                                         static_cast<std::uint8_t>(count - 1), slots, built);
    if (!made.value)
        LogSidFailure(made.last_error, u"AllocateAndInitializeSid");
    return built;
}

} // namespace kestrelmoor
