#include "platform/windows/caption_windows.h"

#include "platform/windows/colours.h"
#include "platform/windows/fonts.h"
#include "platform/windows/graphics.h"
#include "platform/windows/pixels.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::platform {

namespace {

DWORD TypeOf(const CommandButton& button) {
    return button.LooksDefault() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
}

DWORD WrapOf(const Label& label) {
    return label.AutoSize() ? SS_LEFTNOWORDWRAP : SS_LEFT;
}

bool IsBox(const Control& control) {
    switch (control.Kind()) {
    case ControlKind::TextBox:
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::CommandButton:
    case ControlKind::CheckBox:
        return true;
    default:
        return false;
    }
}

void EndAt(const RECT& box, RECT& label) {
    RECT shared{};
    if (::IntersectRect(&shared, &box, &label) && box.left > label.left)
        label.right = box.left;
}

} // namespace

LabelWindow::LabelWindow(FormWindow& form, Label& label)
    : ControlWindow(form, label, {L"STATIC", SS_NOTIFY | WrapOf(label)}) {
    LabelWindow::ShowPlace();
}

void LabelWindow::ShowPlace() {
    RECT place = PixelPlace(Model());
    for (const Control* const other : Model().Parent().AllControls())
        if (IsBox(*other) && other->Visible() && other->Container() == Model().Container())
            EndAt(PixelPlace(*other), place);
    RECT before{};
    ::GetWindowRect(Handle(), &before);
    PutAt(place);
    // Words that were broken at the old width would stay on the screen.
    if (before.right - before.left != place.right - place.left)
        Repaint();
}

HBRUSH LabelWindow::Colours(HDC context, UINT question) const {
    const HBRUSH own = ControlWindow::Colours(context, question);
    if (!static_cast<const Label&>(Model()).Transparent())
        return own;
    ::SetBkMode(context, TRANSPARENT);
    return BrushOf(ColourBehind(static_cast<const Label&>(Model())));
}

bool LabelWindow::MeasureCaption(Twips& width, Twips& height) const {
    const SIZE extent = CaptionExtent(SystemFont(std::as_const(Model()).Font()), Model().Caption());
    width = static_cast<Twips>(extent.cx) * TwipsPerPixelX();
    height = static_cast<Twips>(extent.cy) * TwipsPerPixelY();
    return true;
}

ButtonWindow::ButtonWindow(FormWindow& form, CommandButton& button)
    : ControlWindow(form, button, {L"BUTTON", WS_TABSTOP | TypeOf(button)}) {}

void ButtonWindow::Show(Property what) {
    if (what == Property::Default)
        Send(BM_SETSTYLE, TypeOf(static_cast<CommandButton&>(Model())), TRUE);
    else
        ControlWindow::Show(what);
}

void ButtonWindow::Notified(int) {
    static_cast<CommandButton&>(Model()).Pressed();
}

CheckWindow::CheckWindow(FormWindow& form, CheckBox& box)
    : ControlWindow(form, box, {L"BUTTON", WS_TABSTOP | BS_CHECKBOX}) {
    CheckWindow::Show(Property::Value);
}

void CheckWindow::Show(Property what) {
    if (what == Property::Value)
        Send(BM_SETCHECK, static_cast<CheckBox&>(Model()).Value() ? BST_CHECKED : BST_UNCHECKED);
    else
        ControlWindow::Show(what);
}

void CheckWindow::Notified(int) {
    static_cast<CheckBox&>(Model()).Pressed();
}

} // namespace kestrelmoor::platform
