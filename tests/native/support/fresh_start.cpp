#include "tests/native/support/fresh_start.h"

#include "platform/modules.h"
#include "platform/practice/hooks.h"
#include "runtime/forms/application.h"
#include "shell/log.h"
#include "shell/program_state.h"
#include "window_services/keyboard_cues.h"

namespace kestrelmoor::tests {

void ResetProgramState() {
    gWinVersion = 0;
    gLogging = gForceWindow = gShowUsage = false;
    gLogFileName.clear();
    gLangID = 0;
    gLocalizer.reset();
    gLocLibHandle = 0;
    gHelpFile.clear();
    gServers = {};
    gServerCount = 0;
    gActiveBits = {};
    gSyncLocal = gAutoStart = gTargetsNarrowed = false;
    gReminderTime = 0;
    gUserName.clear();
    gDomainMember = false;
    gDomainName.clear();
    gThemed = gThemeApiPresent = false;
    gPasswordChar.clear();
    gKeyboardCues = false;
    gPassFormCount = 0;
    gMsgBoxHook = 0;
}

practice::World& LastingWorld() {
    static practice::ScopedWorld world;
    return world;
}

void ForgetCuePoint() {
    InstallCueHooks();
    for (const platform::ScreenPoint& point : {platform::ScreenPoint{1000, 1000}, platform::ScreenPoint{}})
        practice::RunMouseHook(practice::mouse_message::kMove, point);
    RemoveCueHooks();
}

void PutBack(practice::World& world, const practice::World& start) {
    world.clock = start.clock;
    world.pump_milliseconds = start.pump_milliseconds;
    world.network = start.network;
    world.registry = start.registry;
    world.files = start.files;
    world.libraries = start.libraries;
    world.machine = start.machine;
    world.shell = start.shell;
    world.calls = {};
    world.handles = {};
    world.boxes = {};
    world.browser = {};
    world.actions = {};
    world.key_states = {};
    world.mutexes.clear();
    world.session_ends.clear();
    world.shell_executions.clear();
    world.mouse = {};
}

void GiveBackAll() {
    Application::Current().UnloadAll();
    StartLogging(u"", log_mode::kOff);
    gLocalizer.reset();
    if (gLocLibHandle != 0)
        platform::FreeLibrary(gLocLibHandle);
    ResetProgramState();
}

} // namespace kestrelmoor::tests
