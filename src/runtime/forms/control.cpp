#include "runtime/forms/control.h"

#include "runtime/errors.h"
#include "runtime/forms/form.h"

#include <utility>

namespace kestrelmoor {

Control::Control(Form& form, const ControlDesign& design)
    : mForm(form), mName(design.name), mKind(design.kind), mTabIndex(design.tab_index), mPlace(design.place),
      mVisible(design.visible), mEnabled(design.enabled), mTag(design.tag), mForeColor(design.fore_colour),
      mBackColor(design.back_colour), mToolTipText(design.tool_tip), mMousePointer(design.pointer),
      mDesignMouseIcon(design.mouse_icon) {
    if (design.container != nullptr)
        mContainer = &form.Find(design.container);
    if (HasCaption())
        mCaption = design.text;
    mFont.SetSize(design.font_size);
    mFont.SetBold(design.bold);
    mFont.SetItalic(design.italic);
    mFont.FontChanged = [this] {
        Show(Property::Font);
        Reworded();
    };
}

Control::~Control() = default;

Control* Control::Host() const {
    return mContainer != nullptr && mContainer->mKind == ControlKind::UserControl ? mContainer : nullptr;
}

void Control::SetLeft(Twips left) {
    Move(left, mPlace.top, mPlace.width, mPlace.height);
}

void Control::SetTop(Twips top) {
    Move(mPlace.left, top, mPlace.width, mPlace.height);
}

void Control::SetWidth(Twips width) {
    Move(mPlace.left, mPlace.top, width, mPlace.height);
}

void Control::SetHeight(Twips height) {
    Move(mPlace.left, mPlace.top, mPlace.width, height);
}

void Control::Move(Twips left, Twips top, Twips width, Twips height) {
    const Place before = std::exchange(mPlace, {left, top, width, height});
    Show(Property::Place);
    Moved(before);
}

void Control::SetVisible(bool on) {
    if (mVisible == on)
        return;
    mVisible = on;
    Show(Property::Visible);
    if (!on)
        mForm.TellHidden(this);
    mForm.LeaveIfUnable();
}

Place Control::Bounds() const {
    if (mKind == ControlKind::Timer || mKind == ControlKind::Line)
        RaiseError(error_number::kNoSuchMember);
    return mPlace;
}

bool Control::HasEnabled() const {
    return mKind != ControlKind::Line && mKind != ControlKind::Shape;
}

void Control::SetEnabled(bool on) {
    if (!HasEnabled())
        RaiseError(error_number::kNoSuchMember);
    if (mEnabled == on)
        return;
    mEnabled = on;
    Show(Property::Enabled);
    mForm.LeaveIfUnable();
}

bool Control::HasCaption() const {
    return mKind == ControlKind::Label || mKind == ControlKind::CommandButton ||
           mKind == ControlKind::CheckBox || mKind == ControlKind::Frame;
}

void Control::SetCaption(const String& caption) {
    if (!HasCaption())
        RaiseError(error_number::kNoSuchMember);
    mCaption = caption;
    Show(Property::Caption);
    Reworded();
}

void Control::SetToolTipText(const String& text) {
    mToolTipText = text;
    Show(Property::ToolTip);
}

void Control::SetMouseIcon(SharedPicture icon) {
    mMouseIcon = std::move(icon);
    Show(Property::MousePointer);
}

bool Control::HasFont() const {
    return mKind != ControlKind::Timer && mKind != ControlKind::Line && mKind != ControlKind::Shape;
}

void Control::SetForeColor(Colour colour) {
    mForeColor = colour;
    Show(Property::Colours);
}

void Control::SetBackColor(Colour colour) {
    mBackColor = colour;
    Show(Property::Colours);
}

void Control::SetFocus() {
    if (mForm.IsUnloaded())
        return;
    Control* const target = FocusTarget();
    if (target == nullptr)
        RaiseError(error_number::kInvalidArgument);
    mForm.ChangeFocus(target, true);
}

Control* Control::FocusTarget() {
    return CanTakeFocus() ? this : nullptr;
}

bool Control::IsUsable() const {
    for (const Control* part = this; part != nullptr; part = part->mContainer)
        if (!part->mVisible || !part->mEnabled)
            return false;
    return true;
}

bool Control::CanTakeFocus() const {
    switch (mKind) {
    case ControlKind::TextBox:
    case ControlKind::CommandButton:
    case ControlKind::CheckBox:
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
        return mForm.Visible() && IsUsable();
    default:
        return false;
    }
}

bool Control::IsStop() const {
    const Control* const host = Host();
    return mTabStop && (host == nullptr || host->mTabStop) && CanTakeFocus();
}

void Control::MouseMoved(int button, int shift, float x, float y) {
    if (IsUsable())
        Raise(MouseMove, button, shift, x, y);
}

void Control::MousePressed(int button, int shift, float x, float y) {
    if (IsUsable())
        Raise(MouseDown, button, shift, x, y);
}

void Control::Show(Property what) {
    if (mPeer)
        mPeer->Show(what);
}

} // namespace kestrelmoor
