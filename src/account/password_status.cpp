#include "account/password_status.h"

#include "runtime/conversions.h"
#include "shell/log.h"
#include "shell/messages.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::int32_t kSecondsOfDay = 86400;
constexpr std::int32_t kSecondsOfHour = 3600;
constexpr std::int16_t kExpiringMessage = 4;
constexpr std::int16_t kDayNoun = 5;
constexpr std::int16_t kHourNoun = 6;
constexpr std::int16_t kThisComputer = 7;
constexpr std::int16_t kComputer = 8;
constexpr std::int16_t kDomain = 9;

void AddLine(String& sReport, std::int16_t nMessage, const StringList& aArgs) {
    sReport += LoadMessage(nMessage, aArgs) + u"\r\n";
}

} // namespace

void LogPasswordStatus(StringView sState) {
    LogInformation(u"Password status = ", sState);
}

bool CannotBeServed(std::int32_t nFlags) {
    if ((nFlags & account_flag::kCannotBeServed) == 0)
        return false;
    LogPasswordStatus(u"Account disabled, locked or user can't change password");
    return true;
}

String DescribeTarget(const String& sTarget) {
    if (sTarget.empty())
        return LoadMessage(kThisComputer, {});
    return LoadMessage(sTarget.starts_with(u"\\\\") ? kComputer : kDomain, {sTarget});
}

void AddReportLine(String& sReport, std::int16_t nMessage, const String& sTarget) {
    AddLine(sReport, nMessage, {DescribeTarget(sTarget)});
}

bool AddRefusalLine(String& sReport, PasswordStatus nStatus, const String& sTarget) {
    if (nStatus != PasswordStatusExpired && nStatus != PasswordStatusInvalid)
        return false;
    const bool expired = nStatus == PasswordStatusExpired;
    AddReportLine(sReport, expired ? report_message::kExpired : report_message::kInvalid, sTarget);
    return true;
}

void AddExpiringLine(String& sReport, const String& sTarget, std::int32_t nSeconds) {
    const std::int32_t days = nSeconds / kSecondsOfDay;
    const std::int32_t hours = nSeconds % kSecondsOfDay / kSecondsOfHour;
    AddLine(sReport, kExpiringMessage,
            {DescribeTarget(sTarget), PaddedText(days, 1), PaddedText(hours, 2),
             gLocalizer->GetPluralText(kDayNoun, days), gLocalizer->GetPluralText(kHourNoun, hours)});
    LogPasswordStatus(u"Expiring after days/hours = " + DecimalText(days) + u"/" + DecimalText(hours));
}

} // namespace kestrelmoor
