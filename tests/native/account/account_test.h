#pragma once

#include "account/password_status.h"
#include "runtime/dates.h"
#include "runtime/variant.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

/// The stock world's clock: 2 March 2026, 9 in the morning.
inline constexpr Date kNow = 46083.375;

/// A test of an account's state on the stock world. The user is known, the reminder is two weeks ahead, and
/// the tests' language names its numbers: "message 3: phrase 8: \\ARCHIVE", "noun 5 of 7". The directory is
/// not there until it is asked for.
class AccountTest : public ProgramTest {
  protected:
    AccountTest();

    /// Server: two backslashes and a name; empty: the local computer.
    practice::Account& AccountAt(StringView server);
    practice::PasswordPolicy& PolicyAt(StringView server);

    /// Gives the world a directory, which answers truthfully but for what is said below.
    void InstallDirectory();

    /// What a member of the user's object under a name (a computer's or a domain's) says or raises.
    void Say(StringView name, StringView member, Variant value);
    void Refuse(StringView name, StringView member, std::uint32_t result, StringView description = u"");

    /// Words of the system for these codes: "system 1326".
    void NameSystemCodes(std::initializer_list<std::uint32_t> codes);

    std::string Report() const { return ToUtf8(report); }

    String report;
};

} // namespace kestrelmoor::tests
