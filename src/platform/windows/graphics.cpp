#include "platform/windows/graphics.h"

#include "platform/windows/colours.h"
#include "platform/windows/pixels.h"
#include "runtime/forms/form.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

constexpr Twips kLineWidth = 15;

bool Contains(const Control& outer, const Control& inner) {
    const RECT around = PixelPlace(outer);
    const RECT within = PixelPlace(inner);
    return within.left >= around.left && within.top >= around.top && within.right <= around.right &&
           within.bottom <= around.bottom;
}

RECT PlaceOf(const Control& graphic) {
    RECT place = PixelPlace(graphic);
    if (graphic.Kind() == ControlKind::Line) {
        place.right = std::max<LONG>(place.right, place.left + std::max(1, PixelX(kLineWidth)));
        place.bottom = std::max<LONG>(place.bottom, place.top + std::max(1, PixelY(kLineWidth)));
    }
    return place;
}

void Draw(HDC context, const Control& graphic) {
    const RECT place = PlaceOf(graphic);
    const bool is_line = graphic.Kind() == ControlKind::Line;
    ::FillRect(context, &place, BrushOf(is_line ? graphic.ForeColor() : graphic.BackColor()));
}

} // namespace

void GraphicPeer::Show(Property what) {
    if (what == Property::Place || what == Property::Visible || what == Property::Colours)
        ::InvalidateRect(mForm.Handle(), nullptr, TRUE);
}

void DrawGraphics(HDC context, const Form& form) {
    const auto& controls = form.Controls();
    for (auto place = controls.rbegin(); place != controls.rend(); ++place) {
        const Control& control = **place;
        const ControlKind kind = control.Kind();
        if (control.Visible() && (kind == ControlKind::Line || kind == ControlKind::Shape))
            Draw(context, control);
    }
}

Colour ColourBehind(const Label& label) {
    const Form& form = label.Parent();
    for (const auto& control : form.Controls())
        if (control->Kind() == ControlKind::Shape && control->Visible() && Contains(*control, label))
            return control->BackColor();
    return form.BackColor();
}

} // namespace kestrelmoor::platform
