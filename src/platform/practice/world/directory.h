#pragma once

#include "platform/practice/world/clock.h"
#include "runtime/text.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrelmoor::practice {

class Network;

/// COM results that the directory fails with. A code of the system comes as 0x80070000 plus the code.
namespace directory_code {
inline constexpr std::uint32_t kSystem = 0x80070000;
inline constexpr std::uint32_t kSyntax = 0x800401E4; ///< a path that nobody can read
inline constexpr std::uint32_t kPropertyNotFound = 0x8000500D;
} // namespace directory_code

/// Members of a user's object. The bind stands among them, so that it can be told what to answer too.
namespace directory_member {
inline constexpr char kBind[] = "GetObject";
inline constexpr char kFlags[] = "UserFlags";
inline constexpr char kExpired[] = "PasswordExpired";
inline constexpr char kExpirationDate[] = "PasswordExpirationDate";
inline constexpr char kMinimumLength[] = "PasswordMinimumLength";
inline constexpr char kChangePassword[] = "ChangePassword";
} // namespace directory_member

/// What a member is to answer in place of the truth.
struct DirectoryAnswer {
    String name; ///< computer or domain, as it stands in the path
    std::string member;
    std::uint32_t number = 0; ///< the COM result that it fails with; 0: it gives `value`
    String description{};     ///< of the failure
    Variant value{};

    bool operator==(const DirectoryAnswer&) const = default;
};

/// The directory service of the network. Where it has no provider, nothing can be bound.
struct Directory {
    bool present = false;
    std::vector<DirectoryAnswer> answers;

    bool operator==(const Directory&) const = default;
};

/// What a call of the directory fails with: a COM result, and words where the service has its own.
struct DirectoryFailure {
    std::uint32_t number = 0;
    String description{};
};

/// An object that was bound: a user on a computer or in a domain.
struct DirectoryUser {
    String name;
    String user;
};

// Each of these raises DirectoryFailure. An answer that was told in advance comes ahead of the truth.

/// Binds "WinNT://NAME/user,user". Fails with kSyntax without a provider or for another path, with 53 when
/// nobody answers under that name and with 2221 when there is no such user there.
DirectoryUser BindDirectoryUser(Network& network, StringView path);

/// A member's value, out of the account and its policy. A password without a greatest age has no date.
Variant DirectoryValue(Network& network, Moment now, const DirectoryUser& user, std::string_view member);

/// The user's change of the password, refused as the network API refuses it.
void ChangeDirectoryPassword(Network& network, Moment now, const DirectoryUser& user, StringView old_password,
                             StringView new_password);

} // namespace kestrelmoor::practice
