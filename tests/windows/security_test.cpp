#include "platform/security.h"

#include <gtest/gtest.h>

#include <cstring>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

constexpr std::uint32_t kTokenRead = 131080;
constexpr std::uint32_t kTokenAdjust = 40;
constexpr std::uint32_t kTokenUser = 1;

OwnedToken Token(std::uint32_t nAccess) {
    OwnedToken token;
    const auto result = OpenProcessToken(GetCurrentProcess(), nAccess, token);
    EXPECT_TRUE(result.value);
    EXPECT_EQ(result.last_error, 0U);
    return token;
}

std::vector<std::uint8_t> UserBuffer() {
    const OwnedToken token = Token(kTokenRead);
    std::vector<std::uint8_t> buffer;
    std::uint32_t needed = 0;
    const auto asked = GetTokenInformation(token, kTokenUser, buffer, needed);
    EXPECT_FALSE(asked.value);
    EXPECT_EQ(asked.last_error, 122U);
    EXPECT_GT(needed, 16U);
    buffer.resize(needed);
    EXPECT_TRUE(GetTokenInformation(token, kTokenUser, buffer, needed).value);
    return buffer;
}

/// The identifier out of its own parts, without the last `without` sub-authorities.
OwnedSid Rebuilt(SidAddress sid, std::uint8_t without) {
    const std::uint8_t count = *GetSidSubAuthorityCount(sid).value;
    std::uint32_t sub_authorities[8] = {};
    for (std::uint8_t i = 0; i < count; ++i)
        sub_authorities[i] = *GetSidSubAuthority(sid, i).value;
    OwnedSid built;
    const auto result =
        AllocateAndInitializeSid(GetSidIdentifierAuthority(sid).value,
                                 static_cast<std::uint8_t>(count - without), sub_authorities, built);
    EXPECT_TRUE(result.value);
    return built;
}

TEST(Security, theUsersIdentifierPointsIntoTheBuffer) {
    const auto buffer = UserBuffer();
    const auto sid = static_cast<const std::uint8_t*>(UserSidInBuffer(buffer));
    EXPECT_GE(sid, buffer.data() + 8);
    EXPECT_LT(sid, buffer.data() + buffer.size());
    EXPECT_TRUE(::IsValidSid(const_cast<std::uint8_t*>(sid)));
}

TEST(Security, aBufferTooShortForTheRecordHoldsNoIdentifier) {
    EXPECT_EQ(UserSidInBuffer({1, 2, 3}), nullptr);
}

TEST(Security, anIdentifierRebuiltFromItsPartsIsTheSame) {
    const auto buffer = UserBuffer();
    const SidAddress sid = UserSidInBuffer(buffer);
    EXPECT_TRUE(EqualSid(sid, Rebuilt(sid, 0).Get()));
    EXPECT_FALSE(EqualSid(sid, Rebuilt(sid, 1).Get()));
}

TEST(Security, readingTheIdentifierLeavesNoLastError) {
    const auto buffer = UserBuffer();
    const SidAddress sid = UserSidInBuffer(buffer);
    ::SetLastError(1300);
    EXPECT_EQ(GetSidIdentifierAuthority(sid).last_error, 0U);
    EXPECT_EQ(GetSidSubAuthorityCount(sid).last_error, 0U);
    EXPECT_EQ(GetSidSubAuthority(sid, 0).last_error, 0U);
    EXPECT_EQ(std::memcmp(GetSidIdentifierAuthority(sid).value, "\0\0\0\0\0\5", 6), 0);
}

TEST(Security, noIdentifierIsAFailureAndNotAnAddressNearNull) {
    EXPECT_EQ(GetSidIdentifierAuthority(nullptr).last_error, 1337U);
    EXPECT_EQ(GetSidSubAuthorityCount(nullptr).value, nullptr);
    EXPECT_EQ(GetSidSubAuthority(nullptr, 0).value, nullptr);
}

TEST(Security, moreThanEightSubAuthoritiesCantBeBuilt) {
    const std::uint8_t authority[6] = {0, 0, 0, 0, 0, 5};
    const std::uint32_t sub_authorities[8] = {};
    OwnedSid sid;
    const auto result = AllocateAndInitializeSid(authority, 9, sub_authorities, sid);
    EXPECT_FALSE(result.value);
    EXPECT_EQ(result.last_error, 1337U);
    EXPECT_FALSE(sid);
}

TEST(Security, aPrivilegeThatIsHeldIsAssigned) {
    Luid luid = 0;
    ASSERT_TRUE(LookupPrivilegeValueW(u"SeChangeNotifyPrivilege", luid).value);
    EXPECT_EQ(luid, 23U);
    const auto result = AdjustTokenPrivileges(Token(kTokenAdjust), luid, 2);
    EXPECT_TRUE(result.value);
    EXPECT_EQ(result.last_error, 0U);
}

TEST(Security, aPrivilegeThatIsNotHeldAnswersTrueWithLastError1300) {
    Luid luid = 0;
    ASSERT_TRUE(LookupPrivilegeValueW(u"SeCreateTokenPrivilege", luid).value);
    CallResult<bool> result;
    {
        const OwnedToken token = Token(kTokenAdjust);
        result = AdjustTokenPrivileges(token, luid, 2);
    }
    EXPECT_TRUE(result.value);
    EXPECT_EQ(result.last_error, 1300U);
}

TEST(Security, aPrivilegeOfNoSuchNameIsAFailure) {
    Luid luid = 0;
    const auto result = LookupPrivilegeValueW(u"SeNoSuchPrivilege", luid);
    EXPECT_FALSE(result.value);
    EXPECT_EQ(result.last_error, 1313U);
}

TEST(Security, thePolicyTellsThePrimaryDomain) {
    OwnedPolicy policy;
    ASSERT_EQ(LsaOpenPolicy(1, policy), 0);
    OwnedPolicyRecord record;
    ASSERT_EQ(LsaQueryInformationPolicy(policy, 3, record), 0);
    const SidAddress sid = PrimaryDomainSid(record);
    EXPECT_TRUE(!sid || ::IsValidSid(const_cast<void*>(sid)));
}

TEST(Security, statusesBecomeSystemCodes) {
    EXPECT_EQ(LsaNtStatusToWinError(static_cast<NtStatus>(0xC0000022)), 5U);
}

} // namespace
} // namespace kestrelmoor::platform
