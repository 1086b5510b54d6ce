#include "platform/shell_namespace.h"
#include "platform/windows/bound_library.h"
#include "platform/windows/common_controls.h"
#include "platform/windows/component_library.h"
#include "platform/windows/door.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <shlobj.h>

namespace kestrelmoor::platform {
namespace {

using namespace browse_message;
static_assert(kInitialized == BFFM_INITIALIZED && kSelectionChanged == BFFM_SELCHANGED);
static_assert(kEnableOk == BFFM_ENABLEOK && kSetSelectionW == BFFM_SETSELECTIONW);

/// Of the one dialog that is open.
BrowseCallbackProcedure gCallback = nullptr;

int CALLBACK CallbackDoor(HWND window, UINT message, LPARAM parameter, LPARAM data) noexcept {
    return BehindDoor(
        [&] { return gCallback(reinterpret_cast<WindowHandle>(window), message, parameter, data); });
}

} // namespace

std::uint8_t* SHBrowseForFolderW(BrowseInfo& info) {
    static BoundEntry<decltype(::SHBrowseForFolderW)> entry{Shell32(), "SHBrowseForFolderW"};
    const auto call = entry.Get();
    LoadCommonControls();
    NeedComponents();
    BROWSEINFOW record{};
    record.hwndOwner = reinterpret_cast<HWND>(info.hwndOwner);
    record.pidlRoot = reinterpret_cast<PCIDLIST_ABSOLUTE>(info.pidlRoot);
    record.pszDisplayName = info.pszDisplayName ? WideBuffer(*info.pszDisplayName) : nullptr;
    record.lpszTitle = info.lpszTitle ? Wide(info.lpszTitle) : nullptr;
    record.ulFlags = info.ulFlags;
    record.lpfn = info.lpfn ? CallbackDoor : nullptr;
    record.lParam = info.lParam;
    record.iImage = info.iImage;
    gCallback = info.lpfn;
    auto* const picked = reinterpret_cast<std::uint8_t*>(call(&record));
    info.iImage = record.iImage;
    return picked;
}

} // namespace kestrelmoor::platform
