#include "account/mAD.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "shell/log.h"
#include "shell/program_state.h"

#include <cmath>
#include <limits>
#include <optional>

namespace kestrelmoor {

namespace {

constexpr std::int32_t kSecondsOfHour = 3600;
constexpr std::int32_t kSecondsOfDay = 86400;
constexpr double kHoursOfDay = 24;

/// What the number of a failed bind tells of the password; `PasswordStatusOK`: the account is restricted.
/// None: it tells nothing, and the network API may know more.
std::optional<PasswordStatus> StatusOfNumber(std::int32_t nError) {
    switch (static_cast<std::uint32_t>(nError)) {
    case 0x8007052F: // account restriction
    case 0x80070530: // invalid logon hours
    case 0x80070531: // invalid workstation
    case 0x80070533: // account disabled
    case 0x80070557: // invalid logon type
    case 0x80070564: // logon not granted
    case 0x80070569: // logon type not granted
    case 0x80070701: // account expired
    case 0x80070775: // account locked out
        return PasswordStatusOK;
    case 0x80070532: // password expired
    case 0x80070773: // password must change
    case 0x800708C2: // password expired, in the network's own numbers
        return PasswordStatusExpired;
    case 0x80070056: // invalid password
    case 0x8007052E: // logon failure
    case error_number::kPermissionDenied:
        return PasswordStatusInvalid;
    default:
        return std::nullopt;
    }
}

/// The status of a target that could not be bound.
PasswordStatus StatusOfFailedBind(String& sReport, const String& sTarget, std::int32_t nError) {
    const std::optional<PasswordStatus> status = StatusOfNumber(nError);
    if (!status)
        return PasswordStatusNotBound;
    if (*status == PasswordStatusOK) {
        LogPasswordStatus(u"Account disabled, locked or otherwise restricted");
        AddReportLine(sReport, report_message::kRestricted, sTarget);
    } else {
        LogPasswordStatus(*status == PasswordStatusExpired ? u"Expired" : u"Invalid");
        AddRefusalLine(sReport, *status, sTarget);
    }
    return *status;
}

std::int32_t ReadFlags(const platform::OwnedDirectoryObject& user) {
    LogCall(u"IADsUser.Get", u"UserFlags");
    const std::int32_t flags = ToInteger32(platform::GetAttribute(user, u"UserFlags"));
    LogInformation(u"UserFlags = &H", HexText(static_cast<std::uint32_t>(flags)));
    return flags;
}

/// Whether the password has expired; the account's flags know it, or an attribute of its own.
bool HasExpired(const platform::OwnedDirectoryObject& user, std::int32_t nFlags) {
    if ((nFlags & account_flag::kPasswordExpired) == 0) {
        if (!ToBoolean(platform::GetAttribute(user, u"PasswordExpired"))) {
            LogPasswordStatus(u"OK");
            return false;
        }
        LogCall(u"IADsUser.Get", u"PasswordExpired");
    }
    LogPasswordStatus(u"Expired");
    return true;
}

/// The reminder's lead time in days, of whole hours that have to fit in 16 bits.
double ReminderSpan() {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::int32_t hours = gReminderTime / kSecondsOfHour;
    if (hours < Limits::min() || hours > Limits::max())
        RaiseError(error_number::kOverflow);
    return hours / kHoursOfDay;
}

/// The status by the date of expiry, of an account whose password can expire.
PasswordStatus StatusByDate(const platform::OwnedDirectoryObject& user, String& sReport,
                            const String& sTarget) {
    const double expiry = ToDouble(platform::GetProperty(user, u"PasswordExpirationDate"));
    const double days_left = expiry - platform::Now();
    LogInformation(u"Days before password expiration = ", SingleText(static_cast<float>(days_left)));
    if (days_left < 0) {
        AddReportLine(sReport, report_message::kExpired, sTarget);
        LogPasswordStatus(u"Expired");
        return PasswordStatusExpired;
    }
    if (!(ReminderSpan() > days_left))
        return PasswordStatusOK;
    // Dates are told apart by the second: a moment ahead of midnight counts as midnight.
    const auto seconds = static_cast<std::int32_t>(std::floor(days_left * kSecondsOfDay + 0.5));
    AddExpiringLine(sReport, sTarget, seconds);
    return PasswordStatusExpiring;
}

PasswordStatus StatusOfUser(const platform::OwnedDirectoryObject& user, String& sReport,
                            const String& sTarget) {
    const std::int32_t flags = ReadFlags(user);
    PasswordStatus status = HasExpired(user, flags) ? PasswordStatusExpired : PasswordStatusOK;
    if (CannotBeServed(flags))
        status = PasswordStatusOK;
    if (AddRefusalLine(sReport, status, sTarget))
        return status;
    if ((flags & account_flag::kNeverExpires) != 0) {
        LogPasswordStatus(u"Never expires");
        return status;
    }
    return StatusByDate(user, sReport, sTarget);
}

} // namespace

PasswordStatus ADCheckPasswordStatus(String& sReport, const String& sTarget) {
    std::int32_t number = 0;
    String discarded;
    const auto user = ADInitUser(sTarget, gUserName, number, discarded);
    return user ? StatusOfUser(user, sReport, sTarget) : StatusOfFailedBind(sReport, sTarget, number);
}

} // namespace kestrelmoor
