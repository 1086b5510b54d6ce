#include "platform/message_box.h"
#include "platform/windows/door.h"

#include <windows.h>

namespace {

using namespace kestrelmoor;

/// Not noexcept, so that what is thrown here is nobody's.
void ThrowWhatNobodyTakes() {
    throw 1;
}

int ShowBox(const String& arguments) {
    if (arguments == u"error")
        platform::BehindDoor([] { RaiseError(error_number::kFileNotFound); });
    if (arguments == u"fault")
        ThrowWhatNobodyTakes();
    return platform::MessageBoxW(u"Carry on?", MB_YESNO | platform::kBoxInformation, u"A question");
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return ShowBox(platform::CommandLineArguments());
}
