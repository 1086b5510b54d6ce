#pragma once

#include "platform/call_result.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>
#include <vector>

namespace kestrelmoor::platform {

/// Security: the policy of the local computer, tokens, privileges and security identifiers. Calls are made
/// one for one; handles and records have one owner each.

using NtStatus = std::int32_t; ///< 0 success

/// Address of a security identifier, null for none. Whoever made it owns it; see below.
using SidAddress = const void*;

/// Six bytes of a security identifier, at an address inside of it.
using SidAuthorityAddress = const void*;

struct PolicyTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value policy) noexcept; ///< LsaClose
};
using OwnedPolicy = Owned<PolicyTraits>;

struct PolicyRecordTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value record) noexcept; ///< LsaFreeMemory
};
using OwnedPolicyRecord = Owned<PolicyRecordTraits>;

struct TokenTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value token) noexcept; ///< CloseHandle
};
using OwnedToken = Owned<TokenTraits>;

using ProcessHandle = void*;

/// The process's own handle, where it is closed like any other although the platform ignores that.
struct ProcessTraits {
    using Value = ProcessHandle;
    static constexpr Value kNone = nullptr;
    static void Release(Value process) noexcept; ///< CloseHandle
};
using OwnedProcess = Owned<ProcessTraits>;

struct BuiltSidTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value sid) noexcept; ///< FreeSid
};
using OwnedSid = Owned<BuiltSidTraits>;

/// The local policy, with attributes of all zeros and the access given.
NtStatus LsaOpenPolicy(std::uint32_t nAccess, OwnedPolicy& policy);

/// The record of the class given (3: the primary domain).
NtStatus LsaQueryInformationPolicy(const OwnedPolicy& policy, std::uint32_t nClass,
                                   OwnedPolicyRecord& record);

/// The identifier of the primary domain in a record of class 3, null on a computer without a domain. It
/// lives as long as the record.
SidAddress PrimaryDomainSid(const OwnedPolicyRecord& record);

std::uint32_t LsaNtStatusToWinError(NtStatus status);

/// The process's own handle; null when there is none to be had.
ProcessHandle GetCurrentProcess();

/// False: failed, no token.
CallResult<bool> OpenProcessToken(ProcessHandle process, std::uint32_t nAccess, OwnedToken& token);

/// The token's information of the class given, into a buffer of `buffer.size()` bytes (none when empty);
/// `nNeeded` is the size that the whole takes.
CallResult<bool> GetTokenInformation(const OwnedToken& token, std::uint32_t nClass,
                                     std::vector<std::uint8_t>& buffer, std::uint32_t& nNeeded);

/// The user's identifier in a filled buffer of class 1; it points into that buffer.
SidAddress UserSidInBuffer(const std::vector<std::uint8_t>& buffer);

CallResult<SidAuthorityAddress> GetSidIdentifierAuthority(SidAddress pSid);
CallResult<const std::uint8_t*> GetSidSubAuthorityCount(SidAddress pSid);
CallResult<const std::uint32_t*> GetSidSubAuthority(SidAddress pSid, std::uint32_t nIndex);

/// Builds an identifier out of `nCount` of the eight sub-authorities.
CallResult<bool> AllocateAndInitializeSid(SidAuthorityAddress authority, std::uint8_t nCount,
                                          const std::uint32_t (&sub_authorities)[8], OwnedSid& sid);

bool EqualSid(SidAddress a, SidAddress b);

/// A privilege's 64-bit local identifier.
using Luid = std::uint64_t;

CallResult<bool> LookupPrivilegeValueW(const String& sPrivilege, Luid& luid);

/// One privilege with the attributes given, nothing disabled, no previous state asked for. Success is the
/// last error's affair: the value is true also when the privilege was not assigned (1300).
CallResult<bool> AdjustTokenPrivileges(const OwnedToken& token, Luid luid, std::uint32_t nAttributes);

} // namespace kestrelmoor::platform
