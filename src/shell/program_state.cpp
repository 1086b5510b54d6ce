#include "shell/program_state.h"

namespace kestrelmoor {

std::int32_t gWinVersion = 0;
bool gLogging = false;
bool gForceWindow = false;
bool gShowUsage = false;
String gLogFileName;
std::int16_t gLangID = 0;
std::unique_ptr<ILocalization> gLocalizer;
platform::ModuleHandle gLocLibHandle = 0;
String gHelpFile;
Array<String> gServers;
std::int16_t gServerCount = 0;
Array<std::uint8_t> gActiveBits;
bool gSyncLocal = false;
std::int32_t gReminderTime = 0;
bool gAutoStart = false;
bool gTargetsNarrowed = false;
String gUserName;
bool gDomainMember = false;
String gDomainName;
bool gThemed = false;
bool gThemeApiPresent = false;
String gPasswordChar;
bool gKeyboardCues = false;
std::int16_t gPassFormCount = 0;
platform::HookHandle gMouseHook = 0;
platform::HookHandle gKeyboardHook = 0;
platform::HookHandle gMsgBoxHook = 0;
IRedirect* gRedirectTarget = nullptr;

} // namespace kestrelmoor
