#include "platform/windows/colours.h"

#include "platform/windows/gui_handles.h"

#include <map>

namespace kestrelmoor::platform {

namespace {

constexpr Colour kReferenceBit = 0x80000000;
constexpr Colour kIndexMask = 0xFF;

bool IsReference(Colour colour) {
    return (colour & kReferenceBit) != 0;
}

int SystemIndex(Colour colour) {
    return static_cast<int>(colour & kIndexMask);
}

} // namespace

COLORREF PlainColour(Colour colour) {
    return IsReference(colour) ? ::GetSysColor(SystemIndex(colour)) : colour;
}

HBRUSH BrushOf(Colour colour) {
    if (IsReference(colour))
        return ::GetSysColorBrush(SystemIndex(colour));
    static std::map<Colour, OwnedBrush> brushes;
    OwnedBrush& held = brushes[colour];
    if (!held)
        held.Reset(::CreateSolidBrush(colour));
    return held.Get();
}

} // namespace kestrelmoor::platform
