#include "forms/about/mouse_over.h"

#include "platform/mouse_pointer.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"

namespace kestrelmoor {

namespace {

/// On the form, in its pixels.
platform::PixelRectangle PixelPlaceOf(const Control& control, const Form& form) {
    const Place place = control.Bounds();
    platform::PixelRectangle pixels;
    pixels.left = RoundToInteger32(form.PixelsX(place.left));
    pixels.top = RoundToInteger32(form.PixelsY(place.top));
    pixels.right = RoundToInteger32(static_cast<double>(pixels.left) + form.PixelsX(place.width));
    pixels.bottom = RoundToInteger32(static_cast<double>(pixels.top) + form.PixelsY(place.height));
    return pixels;
}

} // namespace

bool GetControlScreenRect(const Control& control, platform::PixelRectangle& rectangle, const Form& form) {
    try {
        rectangle = PixelPlaceOf(control, form);
    } catch (const RuntimeError&) {
        return false;
    }
    platform::ScreenPoint corner{rectangle.left, rectangle.top};
    platform::ScreenPoint opposite{rectangle.right, rectangle.bottom};
    if (!platform::ClientToScreen(form.Window(), corner) ||
        !platform::ClientToScreen(form.Window(), opposite))
        return false;
    rectangle = {corner.x, corner.y, opposite.x, opposite.y};
    return true;
}

bool IsMouseOver(const Control& control, const Form& form) {
    platform::PixelRectangle rectangle;
    platform::ScreenPoint mouse;
    return GetControlScreenRect(control, rectangle, form) && platform::GetCursorPos(mouse) &&
           platform::PtInRect(rectangle, mouse);
}

} // namespace kestrelmoor
