#pragma once

#include "platform/windows/last_error_kept.h"
#include "runtime/owned.h"

#include <windows.h>

namespace kestrelmoor::platform {

struct FontTraits {
    using Value = HFONT;
    static constexpr Value kNone = nullptr;
    static void Release(Value font) noexcept {
        const LastErrorKept kept;
        ::DeleteObject(font);
    }
};
using OwnedFont = Owned<FontTraits>;

struct BrushTraits {
    using Value = HBRUSH;
    static constexpr Value kNone = nullptr;
    static void Release(Value brush) noexcept {
        const LastErrorKept kept;
        ::DeleteObject(brush);
    }
};
using OwnedBrush = Owned<BrushTraits>;

/// A top-level window. Its children go with it.
struct WindowTraits {
    using Value = HWND;
    static constexpr Value kNone = nullptr;
    static void Release(Value window) noexcept {
        const LastErrorKept kept;
        ::DestroyWindow(window);
    }
};
using OwnedWindow = Owned<WindowTraits>;

} // namespace kestrelmoor::platform
