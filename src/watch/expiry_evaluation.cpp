#include "watch/expiry_evaluation.h"

#include "account/mAD.h"
#include "account/password_policy.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"

#include <optional>

namespace kestrelmoor {

namespace {

constexpr std::int16_t kExpiringTitle = 13;
constexpr std::int16_t kExpiredTitle = 14;
constexpr std::int16_t kInvalidTitle = 20;

/// The target of a number; none: it is skipped.
std::optional<String> TargetOf(std::int32_t nNumber) {
    if (nNumber == 0)
        return String();
    if (!GetBit(nNumber - 1) || gServers[nNumber].empty())
        return std::nullopt;
    return gServers[nNumber];
}

PasswordStatus StatusOf(String& sReport, const String& sTarget) {
    const PasswordStatus status = ADCheckPasswordStatus(sReport, sTarget);
    return status == PasswordStatusNotBound ? CheckPasswordStatus(sReport, sTarget) : status;
}

std::int16_t TitleOf(PasswordStatus aggregate) {
    if ((aggregate & PasswordStatusExpired) != 0)
        return kExpiredTitle;
    return (aggregate & PasswordStatusInvalid) != 0 ? kInvalidTitle : kExpiringTitle;
}

} // namespace

PasswordStatus EvaluateTargets(String& sReport, String& sTitle, Array<PasswordStatus>& aStatus) {
    const std::int32_t first = gSyncLocal ? 0 : 1;
    if (first > gServerCount)
        return PasswordStatusOK;
    aStatus.Redim(first, gServerCount);
    PasswordStatus aggregate = PasswordStatusOK;
    for (std::int32_t number = first; number <= gServerCount; ++number) {
        const std::optional<String> target = TargetOf(number);
        if (!target)
            continue;
        aStatus[number] = StatusOf(sReport, *target);
        aggregate |= aStatus[number];
    }
    if (aggregate != PasswordStatusOK)
        sTitle = LoadMessage(TitleOf(aggregate), {});
    return aggregate;
}

} // namespace kestrelmoor
