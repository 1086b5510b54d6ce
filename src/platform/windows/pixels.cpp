#include "platform/windows/pixels.h"

#include <cmath>

namespace kestrelmoor::platform {

namespace {

constexpr Twips kTwipsPerInch = 1440;

Resolution ReadResolution() {
    const HDC screen = ::GetDC(nullptr);
    const Resolution resolution{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
    ::ReleaseDC(nullptr, screen);
    return resolution;
}

POINT OriginOfContainer(const Control& control) {
    Twips left = 0;
    Twips top = 0;
    for (const Control* holder = control.Container(); holder; holder = holder->Container()) {
        left += holder->Left();
        top += holder->Top();
    }
    return {PixelX(left), PixelY(top)};
}

Place PlaceOnForm(const Control& control) {
    Place place{control.Left(), control.Top(), control.Width(), control.Height()};
    for (const Control* holder = control.Container(); holder; holder = holder->Container()) {
        place.left += holder->Left();
        place.top += holder->Top();
    }
    return place;
}

} // namespace

const Resolution& DisplayResolution() {
    static const Resolution resolution = ReadResolution();
    return resolution;
}

Twips TwipsPerPixelX() {
    return kTwipsPerInch / static_cast<Twips>(DisplayResolution().x);
}

Twips TwipsPerPixelY() {
    return kTwipsPerInch / static_cast<Twips>(DisplayResolution().y);
}

int PixelX(Twips x) {
    return static_cast<int>(std::lround(x / TwipsPerPixelX()));
}

int PixelY(Twips y) {
    return static_cast<int>(std::lround(y / TwipsPerPixelY()));
}

RECT PixelPlace(const Control& control) {
    const POINT origin = OriginOfContainer(control);
    const Place place = PlaceOnForm(control);
    return {PixelX(place.left) - origin.x, PixelY(place.top) - origin.y,
            PixelX(place.left + place.width) - origin.x, PixelY(place.top + place.height) - origin.y};
}

} // namespace kestrelmoor::platform
