#include "platform/message_box.h"

#include "platform/practice/hooks.h"
#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

/// A box's window, which goes with its answer.
struct BoxWindowTraits {
    using Value = WindowHandle;
    static constexpr Value kNone = 0;
    static void Release(Value window) noexcept { practice::Windows::Current().Remove(window); }
};

} // namespace

int MessageBoxW(const String& sText, std::uint32_t nStyle, const String& sTitle) {
    practice::World& world = practice::TheWorld();
    if (const auto fault = world.calls.Enter("MessageBoxW", {sText, nStyle, sTitle}))
        return static_cast<int>(*fault);
    const Owned<BoxWindowTraits> window(practice::Windows::Current().AddBox());
    practice::RunActivationHook(window.Get());
    return world.boxes.Show(sText, nStyle, sTitle, window.Get());
}

} // namespace kestrelmoor::platform
