#include "platform/message_box.h"

#include "platform/windows/common_controls.h"
#include "platform/windows/wide_text.h"
#include "runtime/forms/application.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

static_assert(kBoxExclamation == MB_ICONEXCLAMATION && kBoxInformation == MB_ICONINFORMATION);
static_assert(kBoxYesNo == MB_YESNO && kBoxSystemModal == MB_SYSTEMMODAL &&
              kBoxSetForeground == MB_SETFOREGROUND);
static_assert(kBoxOk == IDOK && kBoxYes == IDYES && kBoxNo == IDNO);

HWND OwnerWindow() {
    const Form* const form = Application::Current().ActiveForm();
    return form ? reinterpret_cast<HWND>(form->Window()) : nullptr;
}

} // namespace

int MessageBoxW(const String& sText, std::uint32_t nStyle, const String& sTitle) {
    LoadCommonControls();
    return ::MessageBoxW(OwnerWindow(), Wide(sText), Wide(sTitle), nStyle);
}

} // namespace kestrelmoor::platform
