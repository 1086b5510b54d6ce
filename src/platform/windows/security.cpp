#include "platform/security.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/observed_call.h"
#include "platform/windows/wide_text.h"

#include <cstddef>
#include <cstring>

#include <windows.h>

#include <ntsecapi.h>

namespace kestrelmoor::platform {
namespace {

static_assert(offsetof(POLICY_PRIMARY_DOMAIN_INFO, Sid) == 8);
static_assert(offsetof(TOKEN_USER, User.Sid) == 0);
static_assert(offsetof(TOKEN_PRIVILEGES, PrivilegeCount) == 0);
static_assert(offsetof(TOKEN_PRIVILEGES, Privileges[0].Luid) == 4 && sizeof(LUID) == 8);
static_assert(offsetof(TOKEN_PRIVILEGES, Privileges[0].Attributes) == 12);
static_assert(sizeof(TOKEN_PRIVILEGES) == 16);
static_assert(sizeof(Luid) == sizeof(LUID));

/// The platform's declarations take identifiers that can be written to; the calls made here only read them.
PSID Sid(SidAddress address) {
    return const_cast<void*>(address);
}

/// The system would compute an address near null for an identifier that isn't there, and call it a success.
template <class Call>
auto ObservedOnSid(SidAddress pSid, Call call) {
    if (!pSid)
        return CallResult<decltype(call())>{nullptr, ERROR_INVALID_SID};
    return Observed(call);
}

} // namespace

void PolicyTraits::Release(Value policy) noexcept {
    const LastErrorKept kept;
    ::LsaClose(policy);
}

void PolicyRecordTraits::Release(Value record) noexcept {
    const LastErrorKept kept;
    ::LsaFreeMemory(record);
}

void TokenTraits::Release(Value token) noexcept {
    const LastErrorKept kept;
    ::CloseHandle(token);
}

void ProcessTraits::Release(Value process) noexcept {
    const LastErrorKept kept;
    ::CloseHandle(process);
}

void BuiltSidTraits::Release(Value sid) noexcept {
    const LastErrorKept kept;
    ::FreeSid(sid);
}

NtStatus LsaOpenPolicy(std::uint32_t nAccess, OwnedPolicy& policy) {
    LSA_OBJECT_ATTRIBUTES attributes{};
    return ::LsaOpenPolicy(nullptr, &attributes, nAccess, policy.Receive());
}

NtStatus LsaQueryInformationPolicy(const OwnedPolicy& policy, std::uint32_t nClass,
                                   OwnedPolicyRecord& record) {
    return ::LsaQueryInformationPolicy(policy.Get(), static_cast<POLICY_INFORMATION_CLASS>(nClass),
                                       record.Receive());
}

SidAddress PrimaryDomainSid(const OwnedPolicyRecord& record) {
    return static_cast<const POLICY_PRIMARY_DOMAIN_INFO*>(record.Get())->Sid;
}

std::uint32_t LsaNtStatusToWinError(NtStatus status) {
    return ::LsaNtStatusToWinError(status);
}

ProcessHandle GetCurrentProcess() {
    return ::GetCurrentProcess();
}

CallResult<bool> OpenProcessToken(ProcessHandle process, std::uint32_t nAccess, OwnedToken& token) {
    void** const place = token.Receive();
    return Observed([&] { return ::OpenProcessToken(process, nAccess, place) != FALSE; });
}

CallResult<bool> GetTokenInformation(const OwnedToken& token, std::uint32_t nClass,
                                     std::vector<std::uint8_t>& buffer, std::uint32_t& nNeeded) {
    DWORD needed = 0;
    void* const place = buffer.empty() ? nullptr : buffer.data();
    const auto result = Observed([&] {
        return ::GetTokenInformation(token.Get(), static_cast<TOKEN_INFORMATION_CLASS>(nClass), place,
                                     static_cast<DWORD>(buffer.size()), &needed) != FALSE;
    });
    nNeeded = needed;
    return result;
}

SidAddress UserSidInBuffer(const std::vector<std::uint8_t>& buffer) {
    TOKEN_USER record{};
    if (buffer.size() >= sizeof record)
        std::memcpy(&record, buffer.data(), sizeof record);
    return record.User.Sid;
}

CallResult<SidAuthorityAddress> GetSidIdentifierAuthority(SidAddress pSid) {
    return ObservedOnSid(pSid,
                         [&]() -> SidAuthorityAddress { return ::GetSidIdentifierAuthority(Sid(pSid)); });
}

CallResult<const std::uint8_t*> GetSidSubAuthorityCount(SidAddress pSid) {
    return ObservedOnSid(pSid, [&]() -> const std::uint8_t* { return ::GetSidSubAuthorityCount(Sid(pSid)); });
}

CallResult<const std::uint32_t*> GetSidSubAuthority(SidAddress pSid, std::uint32_t nIndex) {
    return ObservedOnSid(pSid, [&] {
        return reinterpret_cast<const std::uint32_t*>(::GetSidSubAuthority(Sid(pSid), nIndex));
    });
}

CallResult<bool> AllocateAndInitializeSid(SidAuthorityAddress authority, std::uint8_t nCount,
                                          const std::uint32_t (&sub_authorities)[8], OwnedSid& sid) {
    SID_IDENTIFIER_AUTHORITY copy;
    std::memcpy(&copy, authority, sizeof copy);
    void** const place = sid.Receive();
    const auto& sub = sub_authorities;
    return Observed([&] {
        return ::AllocateAndInitializeSid(&copy, nCount, sub[0], sub[1], sub[2], sub[3], sub[4], sub[5],
                                          sub[6], sub[7], place) != FALSE;
    });
}

bool EqualSid(SidAddress a, SidAddress b) {
    return ::EqualSid(Sid(a), Sid(b)) != FALSE;
}

CallResult<bool> LookupPrivilegeValueW(const String& sPrivilege, Luid& luid) {
    LUID found{};
    const auto result =
        Observed([&] { return ::LookupPrivilegeValueW(nullptr, Wide(sPrivilege), &found) != FALSE; });
    std::memcpy(&luid, &found, sizeof luid);
    return result;
}

CallResult<bool> AdjustTokenPrivileges(const OwnedToken& token, Luid luid, std::uint32_t nAttributes) {
    TOKEN_PRIVILEGES record{};
    record.PrivilegeCount = 1;
    std::memcpy(&record.Privileges[0].Luid, &luid, sizeof luid);
    record.Privileges[0].Attributes = nAttributes;
    return Observed(
        [&] { return ::AdjustTokenPrivileges(token.Get(), FALSE, &record, 0, nullptr, nullptr) != FALSE; });
}

} // namespace kestrelmoor::platform
