#pragma once

#include "account/mAD.h"
#include "tests/native/account/account_test.h"

#include <span>
#include <utility>

namespace kestrelmoor::tests {

/// A check through the directory, of the server ARCHIVE, whose account says what the test wants: nothing but
/// the flags of an ordinary account, and 20 days left.
class DirectoryStatus : public AccountTest {
  protected:
    static constexpr std::int32_t kOrdinary = 0x200;
    static constexpr std::int32_t kExpiredBit = 0x800000;
    static constexpr std::int32_t kNeverBit = 0x10000;
    static constexpr char kExpiredLine[] = "message 3: phrase 8: \\\\ARCHIVE\r\n";
    static constexpr char kBinding[] = R"(Information: -> GetObject "WinNT://ARCHIVE/user,user")";
    static constexpr char kReadingFlags[] = R"(Information: -> IADsUser.Get "UserFlags")";

    DirectoryStatus() {
        InstallDirectory();
        NameSystemCodes({5, 86, 1326, 1327, 1328, 1329, 1330, 1331, 1367, 1380, 1385, 1793, 1907, 1909});
        world.machine.network_messages = {{2242, u"network 2242"}};
        Flags(kOrdinary);
        Say(u"ARCHIVE", u"PasswordExpired", 0);
        DaysLeft(20);
    }

    PasswordStatus Check(const String& sTarget = u"\\\\ARCHIVE") {
        return ADCheckPasswordStatus(report, sTarget);
    }

    std::int32_t RaisedByCheck() {
        return RaisedNumber([this] { Check(); });
    }

    void Flags(Variant value) { Say(u"ARCHIVE", u"UserFlags", std::move(value)); }
    void Expiry(Variant value) { Say(u"ARCHIVE", u"PasswordExpirationDate", std::move(value)); }
    void DaysLeft(double days) { Expiry(DateValue{kNow + days}); }

    void RefuseBind(std::uint32_t result) { Refuse(u"ARCHIVE", u"GetObject", result); }

    void CheckRefused(std::span<const std::uint32_t> results) {
        for (const std::uint32_t result : results) {
            RefuseBind(result);
            Check();
        }
    }

    Lines Reads() const {
        return CallsOf({"IADsUser.Get", "IADsUser.PasswordExpirationDate", "IADsUser.PasswordMinimumLength"});
    }
    bool DateWasRead() const { return world.calls.Count("IADsUser.PasswordExpirationDate") != 0; }
};

} // namespace kestrelmoor::tests
