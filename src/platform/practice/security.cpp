#include "platform/security.h"

#include "platform/practice/world/sid.h"
#include "platform/practice/world/world.h"

#include <cstring>
#include <memory>

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::SidBytes;
using practice::TheWorld;

constexpr std::uint32_t kPrimaryDomainClass = 3;
constexpr std::uint32_t kTokenUserClass = 1;
constexpr NtStatus kInvalidInfoClass = static_cast<NtStatus>(0xC0000003);
constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kInvalidParameter = 87;
constexpr std::uint32_t kInsufficientBuffer = 122;
constexpr std::uint32_t kNotAllAssigned = 1300;
constexpr std::uint32_t kNoSuchPrivilege = 1313;
constexpr std::uint32_t kInvalidSid = 1337;

/// Stands for the process; nothing is handed out that would have to come back.
constexpr std::uintptr_t kPseudoHandle = ~std::uintptr_t{0};

/// Ahead of the identifier in a token's user: its address and its attributes.
constexpr std::size_t kTokenUserHead = 16;

using SharedSid = std::shared_ptr<SidBytes>;

void* Handle(HandleKind kind, std::any content) {
    return practice::AsPointer(TheWorld().handles.Open(kind, std::move(content)));
}

std::uintptr_t Number(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

void Close(const char* call, HandleKind kind, const void* handle) {
    TheWorld().calls.Enter(call);
    TheWorld().handles.Close(kind, Number(handle));
}

const std::uint8_t* BytesAt(SidAddress sid, std::size_t offset) {
    return static_cast<const std::uint8_t*>(sid) + offset;
}

/// The address inside an identifier, with the last error that a test may have laid into the call.
template <class Value>
CallResult<const Value*> PartOfSid(const char* call, SidAddress sid, std::size_t offset) {
    const auto fault = TheWorld().calls.Enter(call);
    if (!sid)
        return {nullptr, fault.value_or(kInvalidSid)};
    return {reinterpret_cast<const Value*>(BytesAt(sid, offset)), fault.value_or(0)};
}

} // namespace

void PolicyTraits::Release(Value policy) noexcept {
    Close("LsaClose", HandleKind::Policy, policy);
}

void PolicyRecordTraits::Release(Value record) noexcept {
    Close("LsaFreeMemory", HandleKind::PolicyRecord, record);
}

void TokenTraits::Release(Value token) noexcept {
    Close("CloseHandle", HandleKind::Token, token);
}

void ProcessTraits::Release(Value) noexcept {
    TheWorld().calls.Enter("CloseHandle");
}

void BuiltSidTraits::Release(Value sid) noexcept {
    Close("FreeSid", HandleKind::BuiltSid, sid);
}

NtStatus LsaOpenPolicy(std::uint32_t nAccess, OwnedPolicy& policy) {
    if (const auto fault = TheWorld().calls.Enter("LsaOpenPolicy", {nAccess}))
        return static_cast<NtStatus>(*fault);
    policy.Reset(Handle(HandleKind::Policy, nAccess));
    return 0;
}

NtStatus LsaQueryInformationPolicy(const OwnedPolicy&, std::uint32_t nClass, OwnedPolicyRecord& record) {
    if (const auto fault = TheWorld().calls.Enter("LsaQueryInformationPolicy", {nClass}))
        return static_cast<NtStatus>(*fault);
    if (nClass != kPrimaryDomainClass)
        return kInvalidInfoClass;
    const practice::Domain* const domain = TheWorld().network.PrimaryDomain();
    SharedSid sid;
    if (domain)
        sid = std::make_shared<SidBytes>(practice::SidOfText(domain->sid).value());
    record.Reset(Handle(HandleKind::PolicyRecord, sid));
    return 0;
}

SidAddress PrimaryDomainSid(const OwnedPolicyRecord& record) {
    const auto* const sid =
        TheWorld().handles.Find<SharedSid>(HandleKind::PolicyRecord, Number(record.Get()));
    return sid && *sid ? (*sid)->data() : nullptr;
}

std::uint32_t LsaNtStatusToWinError(NtStatus status) {
    constexpr std::uint32_t kUnknownStatus = 317;
    switch (static_cast<std::uint32_t>(status)) {
    case 0:
        return 0;
    case 0xC0000022:
        return 5;
    case 0xC0000008:
        return kInvalidHandle;
    case 0xC000000D:
        return kInvalidParameter;
    case 0xC0000003:
        return 87;
    case 0xC000009A:
        return 1450;
    default:
        return kUnknownStatus;
    }
}

ProcessHandle GetCurrentProcess() {
    if (TheWorld().calls.Enter("GetCurrentProcess"))
        return nullptr;
    return practice::AsPointer(kPseudoHandle);
}

CallResult<bool> OpenProcessToken(ProcessHandle, std::uint32_t nAccess, OwnedToken& token) {
    if (const auto fault = TheWorld().calls.Enter("OpenProcessToken", {nAccess}))
        return {false, *fault};
    token.Reset(Handle(HandleKind::Token, nAccess));
    return {true, 0};
}

CallResult<bool> GetTokenInformation(const OwnedToken&, std::uint32_t nClass,
                                     std::vector<std::uint8_t>& buffer, std::uint32_t& nNeeded) {
    nNeeded = 0;
    if (const auto fault = TheWorld().calls.Enter("GetTokenInformation", {nClass, buffer.size()}))
        return {false, *fault};
    if (nClass != kTokenUserClass)
        return {false, kInvalidParameter};
    const SidBytes sid = practice::SidOfText(TheWorld().network.user.sid).value();
    nNeeded = static_cast<std::uint32_t>(kTokenUserHead + sid.size());
    if (buffer.size() < nNeeded)
        return {false, kInsufficientBuffer};
    std::uint8_t* const place = buffer.data() + kTokenUserHead;
    std::memcpy(place, sid.data(), sid.size());
    std::memcpy(buffer.data(), &place, sizeof place);
    return {true, 0};
}

SidAddress UserSidInBuffer(const std::vector<std::uint8_t>& buffer) {
    SidAddress sid = nullptr;
    std::memcpy(&sid, buffer.data(), sizeof sid);
    return sid;
}

CallResult<SidAuthorityAddress> GetSidIdentifierAuthority(SidAddress pSid) {
    const auto part =
        PartOfSid<std::uint8_t>("GetSidIdentifierAuthority", pSid, practice::kSidAuthorityOffset);
    return {part.value, part.last_error};
}

CallResult<const std::uint8_t*> GetSidSubAuthorityCount(SidAddress pSid) {
    return PartOfSid<std::uint8_t>("GetSidSubAuthorityCount", pSid, practice::kSidCountOffset);
}

CallResult<const std::uint32_t*> GetSidSubAuthority(SidAddress pSid, std::uint32_t nIndex) {
    return PartOfSid<std::uint32_t>("GetSidSubAuthority", pSid,
                                    practice::kSidSubAuthoritiesOffset + sizeof(std::uint32_t) * nIndex);
}

CallResult<bool> AllocateAndInitializeSid(SidAuthorityAddress authority, std::uint8_t nCount,
                                          const std::uint32_t (&sub_authorities)[8], OwnedSid& sid) {
    if (const auto fault = TheWorld().calls.Enter("AllocateAndInitializeSid", {nCount}))
        return {false, *fault};
    if (nCount > 8)
        return {false, kInvalidParameter};
    constexpr std::size_t kAuthoritySize = 6;
    const auto made =
        std::make_shared<SidBytes>(practice::kSidSubAuthoritiesOffset + sizeof(std::uint32_t) * nCount);
    made->at(0) = 1;
    made->at(practice::kSidCountOffset) = nCount;
    std::memcpy(made->data() + practice::kSidAuthorityOffset, authority, kAuthoritySize);
    std::memcpy(made->data() + practice::kSidSubAuthoritiesOffset, sub_authorities,
                sizeof(std::uint32_t) * nCount);
    TheWorld().handles.OpenAt(HandleKind::BuiltSid, Number(made->data()), made);
    sid.Reset(made->data());
    return {true, 0};
}

bool EqualSid(SidAddress a, SidAddress b) {
    if (TheWorld().calls.Enter("EqualSid"))
        return false;
    return practice::SidSize(a) == practice::SidSize(b) && std::memcmp(a, b, practice::SidSize(a)) == 0;
}

CallResult<bool> LookupPrivilegeValueW(const String& sPrivilege, Luid& luid) {
    if (const auto fault = TheWorld().calls.Enter("LookupPrivilegeValueW", {sPrivilege}))
        return {false, *fault};
    const auto& privileges = TheWorld().machine.privileges;
    const auto found = privileges.find(sPrivilege);
    if (found == privileges.end())
        return {false, kNoSuchPrivilege};
    luid = found->second;
    return {true, 0};
}

CallResult<bool> AdjustTokenPrivileges(const OwnedToken&, Luid luid, std::uint32_t nAttributes) {
    if (const auto fault = TheWorld().calls.Enter("AdjustTokenPrivileges", {luid, nAttributes}))
        return {*fault == kNotAllAssigned, *fault};
    return {true, TheWorld().machine.privileges_assigned ? 0 : kNotAllAssigned};
}

} // namespace kestrelmoor::platform
