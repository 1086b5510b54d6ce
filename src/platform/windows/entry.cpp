#include "platform/form_peer.h"
#include "platform/windows/bound_library.h"
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
    Application::Current().UnloadAll();
}

/// From here on what libraries need comes from the system's folder and never from the program's. Older
/// systems know no such setting; there each library is loaded by its full path all the same.
void TrustOnlyTheSystemFolder() {
    constexpr DWORD kSearchSystem32 = 0x800;
    static platform::BoundEntry<BOOL WINAPI(DWORD)> set_default{platform::Kernel32(),
                                                                "SetDefaultDllDirectories"};
    if (auto* const call = set_default.Find())
        call(kSearchSystem32);
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // A drive without a disk, or a file that is no library, is a failed call and no box of the system's.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    TrustOnlyTheSystemFolder();
    platform::BehindDoor(RunProgram);
    return 0;
}
