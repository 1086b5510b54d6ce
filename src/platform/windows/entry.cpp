#include "platform/form_peer.h"
#include "platform/windows/door.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"

#include <windows.h>

namespace {

using namespace kestrelmoor;

void RunProgram() {
    Application::Current().SetDesktop(&platform::TheDesktop());
    Main();
    Application::Current().Run();
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) noexcept {
    // A drive without a disk, or a file that is no library, is a failed call and no box of the system's.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    platform::BehindDoor(RunProgram);
    return 0;
}
