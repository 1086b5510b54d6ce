#include "platform/practice/window_places.h"

#include <algorithm>
#include <cmath>

namespace kestrelmoor::practice {

namespace {

constexpr int kBorder = 2;
constexpr int kScrollBar = 17;
constexpr platform::ScreenPoint kFormCorner{300, 200};

int Pixels(Twips length) {
    return static_cast<int>(std::lround(length / kTwipsPerPixel));
}

int BorderOf(const Control& control) {
    const auto* const box = dynamic_cast<const TextBox*>(&control);
    const bool has_border = control.Kind() == ControlKind::ListBox || (box && box->BorderStyle() != 0);
    return has_border ? kBorder : 0;
}

int InnerHeight(const Control& control) {
    return std::max(0, Pixels(control.Height()) - 2 * BorderOf(control));
}

int BarOf(const Control& control) {
    const auto* const list = dynamic_cast<const ListBox*>(&control);
    return list && list->ListCount() > RowsShown(*list) ? kScrollBar : 0;
}

} // namespace

int RowsShown(const ListBox& list) {
    return std::max(1, InnerHeight(list) / kRowHeight);
}

platform::PixelRectangle ClientArea(const Form& form) {
    return {0, 0, Pixels(form.ClientWidth()), Pixels(form.ClientHeight())};
}

platform::PixelRectangle ClientArea(const Control& control) {
    const int width = Pixels(control.Width()) - 2 * BorderOf(control) - BarOf(control);
    return {0, 0, std::max(0, width), InnerHeight(control)};
}

platform::ScreenPoint Corner(const Form&) {
    return kFormCorner;
}

platform::ScreenPoint Corner(const Control& control) {
    Twips left = 0;
    Twips top = 0;
    for (const Control* part = &control; part; part = part->Container()) {
        left += part->Left();
        top += part->Top();
    }
    const platform::ScreenPoint form = Corner(control.Parent());
    return {form.x + Pixels(left) + BorderOf(control), form.y + Pixels(top) + BorderOf(control)};
}

namespace {

bool CanBeHit(const Control& control) {
    const ControlKind kind = control.Kind();
    return kind != ControlKind::Timer && kind != ControlKind::Line && kind != ControlKind::Shape &&
           control.IsUsable();
}

bool Covers(const Control& control, const platform::ScreenPoint& point) {
    const platform::ScreenPoint corner = Corner(control);
    return point.x >= corner.x && point.x < corner.x + Pixels(control.Width()) && point.y >= corner.y &&
           point.y < corner.y + Pixels(control.Height());
}

/// What stands in a frame lies on it; of neighbours the one that is first in tab order lies on top.
bool LiesOn(const Control& control, const Control& other) {
    if (&other == control.Container() || &control == other.Container())
        return &other == control.Container();
    return control.TabIndex() < other.TabIndex();
}

} // namespace

Control* ControlAt(const Form& form, const platform::ScreenPoint& point) {
    Control* top = nullptr;
    for (Control* const control : form.AllControls())
        if (CanBeHit(*control) && Covers(*control, point) && (!top || LiesOn(*control, *top)))
            top = control;
    return top;
}

platform::ScreenPoint Middle(const Control& control) {
    const platform::ScreenPoint corner = Corner(control);
    const platform::PixelRectangle client = ClientArea(control);
    return {corner.x + client.right / 2, corner.y + client.bottom / 2};
}

} // namespace kestrelmoor::practice
