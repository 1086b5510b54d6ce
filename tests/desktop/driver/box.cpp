#include "commands.h"
#include "process_memory.h"

namespace kestrelmoor::driver {

namespace {

struct BoxIcon {
    DWORD resource;
    const char* name;
};
constexpr BoxIcon kIcons[] = {
    {32513, "error"}, {32514, "question"}, {32515, "warning"}, {32516, "information"}};

HWND IconControl(HWND box) {
    for (HWND child = nullptr; (child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr;)
        if ((GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            return child;
    return nullptr;
}

} // namespace

// Stock icons are shared within a process: asked there, loading one gives the handle that its boxes show.
Answer ReadBoxIcon(const Arguments& arguments) {
    HWND box = WindowArgument(arguments, 0);
    HWND control = IconControl(box);
    const DWORD shown = control != nullptr ? static_cast<DWORD>(Ask(control, STM_GETICON, 0, 0)) : 0;
    std::string name = "none";
    if (shown != 0) {
        const OpenedProcess process(box);
        for (const BoxIcon& icon : kIcons)
            if (process.Call(L"user32.dll", "LoadIconW", {0, icon.resource}) == shown)
                name = icon.name;
    }
    return {Record().Add(name)};
}

} // namespace kestrelmoor::driver
