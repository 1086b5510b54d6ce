#pragma once

#include "localization/ILocalization.h"
#include "platform/input_hooks.h"
#include "platform/modules.h"
#include "runtime/array.h"
#include "runtime/text.h"

#include <cstdint>
#include <memory>

namespace kestrelmoor {

class IRedirect;

// The state of the whole program. It lives as long as the process and belongs to no object; everything
// starts false, 0, empty or null.

/// The packed Windows version: from the top platform id (4 bits), major (4), minor (8) and build (16). It is
/// compared as a signed number with the gates below.
extern std::int32_t gWinVersion;
inline constexpr std::int32_t kWindowsNT4 = 0x24000000;
inline constexpr std::int32_t kWindows2000 = 0x25000000;
inline constexpr std::int32_t kWindowsXP = 0x25010000;

extern bool gLogging;     ///< diagnostics asked for: every log line is written only under this flag
extern bool gForceWindow; ///< open the password window at once, without evaluating expiry
extern bool gShowUsage;   ///< show the usage box and end
extern String gLogFileName;

extern std::int16_t gLangID;                      ///< language number chosen by the user, 0: automatic
extern std::unique_ptr<ILocalization> gLocalizer; ///< null while no library is loaded
extern platform::ModuleHandle gLocLibHandle;      ///< the library behind it, 0: none
extern String gHelpFile;                          ///< full path, empty: there is none

extern Array<String> gServers; ///< configured targets, first index 1
extern std::int16_t gServerCount;
extern Array<std::uint8_t> gActiveBits; ///< first index 1; bit i-1 belongs to server i
extern bool gSyncLocal;                 ///< the local computer's password is a target
extern std::int32_t gReminderTime;      ///< lead time of the reminder in seconds
extern bool gAutoStart;                 ///< the program starts at logon
extern bool gTargetsNarrowed;           ///< the targets were narrowed in memory and must not be saved

extern String gUserName;
extern bool gDomainMember; ///< the computer belongs to a domain and the user's account comes from it
extern String gDomainName; ///< that domain, empty otherwise

extern bool gThemed;          ///< the program's windows are drawn with a visual style
extern bool gThemeApiPresent; ///< the theme library could be called
extern String gPasswordChar;  ///< the mask of password boxes

extern bool gKeyboardCues;          ///< keyboard cues are always shown
extern std::int16_t gPassFormCount; ///< live password windows
extern platform::HookHandle gMouseHook;
extern platform::HookHandle gKeyboardHook;
extern platform::HookHandle gMsgBoxHook; ///< the hook around the reminder's box
extern IRedirect* gRedirectTarget;       ///< the form that receives the window messages, null for none

} // namespace kestrelmoor
