#include "account/mAD.h"

#include "account/identity.h"
#include "runtime/conversions.h"
#include "shell/log.h"
#include "shell/messages.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::uint32_t kCodeMask = 0xFFFF;
constexpr std::uint32_t kSystemCodes = 0x80070000;

String PathOf(StringView target, const String& sUser) {
    if (target.starts_with(u"\\\\"))
        target.remove_prefix(2);
    return u"WinNT://" + String(target) + u"/" + sUser + u",user";
}

/// What is done while a failed call is still trapped: a further failure is no matter.
template <class Action>
void WhileTrapped(const Action& action) {
    try {
        action();
    } catch (const RuntimeError&) {
        return;
    }
}

} // namespace

platform::OwnedDirectoryObject ADInitUser(String sTarget, const String& sUser, std::int32_t& nError,
                                          String& sError) {
    if (sTarget.empty()) {
        String discarded;
        sTarget = GetCompName(discarded);
    }
    const String path = PathOf(sTarget, sUser);
    LogCall(u"GetObject", path);
    nError = 0;
    try {
        return platform::BindObject(path);
    } catch (const RuntimeError& failure) {
        nError = failure.number();
        WhileTrapped([&] { sError = FormatADError(failure, u"GetObject"); });
        WhileTrapped([&] { LogError(sError); });
    }
    return {};
}

std::int16_t ADGetMinPwdLength(const String& sTarget, std::int32_t& nMinLen) {
    std::int32_t discarded_number = 0;
    String discarded;
    const auto user = ADInitUser(sTarget, gUserName, discarded_number, discarded);
    if (!user)
        return kNoDirectoryObject;
    LogInformation(u"-> IADsUser.PasswordMinimumLength");
    nMinLen = ToInteger32(platform::GetProperty(user, u"PasswordMinimumLength"));
    LogInformation(u"Min PWD Length = ", DecimalText(nMinLen));
    return 0;
}

std::int32_t ADChangePassword(const String& sOldPass, const String& sNewPass, const String& sTarget,
                              String& sError) {
    std::int32_t number = 0;
    const auto user = ADInitUser(sTarget, gUserName, number, sError);
    if (!user)
        return kNoDirectoryObject;
    LogInformation(u"-> IADsUser.ChangePassword");
    try {
        platform::ChangePassword(user, sOldPass, sNewPass);
    } catch (const RuntimeError& failure) {
        number = failure.number();
        WhileTrapped([&] { sError = FormatADError(failure, u"IADsUser.ChangePassword"); });
    }
    if (number != 0)
        LogError(sError);
    else
        LogInformation(u"Password changed");
    return number;
}

String FormatADError(const RuntimeError& oErr, const String& sApiName) {
    const String number_text = DecimalText(oErr.number());
    const auto number = static_cast<std::uint32_t>(oErr.number());
    const bool of_system = (number & ~kCodeMask) == kSystemCodes;
    const String text = of_system ? GetSystemErrorText(number & kCodeMask) : oErr.description();
    return gLogging ? LoadMessage(12, {number_text, sApiName, text})
                    : LoadMessage(15, {number_text, oErr.description()});
}

} // namespace kestrelmoor
