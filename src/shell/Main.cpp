#include "shell/Main.h"

#include "account/identity.h"
#include "forms/password/frmPass.h"
#include "localization/language_resolution.h"
#include "localization/mCallDll.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/process.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "shell/command_line.h"
#include "shell/log.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "shell/special_folder.h"
#include "watch/expiry_watch.h"

namespace kestrelmoor {

namespace {

constexpr char kMutexName[] = "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}";
constexpr std::int32_t kDocumentsFolder = 5;

/// Exchanges the library for the one of the chosen language. False: none could be brought up.
bool ReconcileLanguage() {
    if (gLocalizer->LanguageID() != gLangID) {
        gLocalizer = nullptr;
        UnloadDll(gLocLibHandle);
        gLocLibHandle = 0;
        if (LoadLocalization(gLangID)) {
            gLocalizer = nullptr;
            return false;
        }
    }
    // The library that was found may not hold that language: the one that runs is kept, and the choice is
    // automatic again.
    if (gLocalizer->LanguageID() != gLangID)
        gLangID = 0;
    return true;
}

void StartLog() {
    if (gLogFileName.empty())
        gLogFileName =
            AddBackslash(GetSpecialFolder(kDocumentsFolder)) + platform::ProgramBaseName() + u".log";
    try {
        StartLogging(gLogFileName, log_mode::kFile);
        LogEvent(LoadMessage(18, {platform::DateText(platform::Now())}), log_event::kInformation);
    } catch (const RuntimeError&) {
        platform::MessageBoxW(LoadMessage(16, {gLogFileName}), platform::kBoxExclamation,
                              platform::kProgramTitle);
        StartLogging(u"", log_mode::kOff);
    }
}

/// Who the user is and where the account lives. Returns why the name is unknown.
String Identify() {
    String sError;
    gUserName = GetCurrentUser(sError);
    String discarded;
    gDomainMember = IsDomainMember(discarded);
    if (gDomainMember)
        gDomainName = GetDomainName(discarded);
    // A domain user's local password is never a target; the stored option stays as it is.
    gSyncLocal = gSyncLocal && !gDomainMember;
    return sError;
}

void OpenWindowOrWatch(const String& sError) {
    if (!gUserName.empty()) {
        if (gForceWindow)
            Application::Current().Make<frmPass>()->Show();
        else
            RunExpiryWatch(true);
    } else if (gForceWindow) {
        platform::MessageBoxW(sError, platform::kBoxExclamation, platform::kProgramTitle);
    }
}

} // namespace

void Main() {
    gWinVersion = GetWinVersion();
    platform::CreateMutexA(kMutexName);
    if (LoadLocalization(0)) {
        gLocalizer = nullptr;
        return;
    }
    gLangID = LoadLangID();
    if (ParseCommandLine(gLangID))
        return;
    if (gLangID != 0 && !ReconcileLanguage())
        return;
    if (gWinVersion < kWindowsNT4) {
        platform::MessageBoxW(LoadMessage(1, {}), platform::kBoxExclamation, platform::kProgramTitle);
        return;
    }
    if (gShowUsage) {
        platform::MessageBoxW(LoadMessage(17, {}), platform::kBoxInformation, platform::kProgramTitle);
        return;
    }
    if (gLogging)
        StartLog();
    LoadSettings();
    OpenWindowOrWatch(Identify());
}

std::int32_t GetWinVersion() {
    const platform::OsVersion version = platform::GetVersionExA();
    return static_cast<std::int32_t>((version.platform_id & 15) << 28 | (version.major_version & 15) << 24 |
                                     (version.minor_version & 255) << 16 | (version.build_number & 65535));
}

} // namespace kestrelmoor
