#include "platform/message_box.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

int MessageBoxW(const String& sText, std::uint32_t nStyle, const String& sTitle) {
    practice::World& world = practice::TheWorld();
    if (const auto fault = world.calls.Enter("MessageBoxW", {sText, nStyle, sTitle}))
        return static_cast<int>(*fault);
    return world.boxes.Show(sText, nStyle, sTitle);
}

} // namespace kestrelmoor::platform
