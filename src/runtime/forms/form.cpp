#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "runtime/forms/make_by_design.h"
#include "runtime/forms/user_control.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor {

namespace {

constexpr Twips kTwipsPerPixel = 15; ///< where there is no desktop

bool IsInTabOrder(const Control& control) {
    return control.TabIndex() >= 0 && control.Kind() != ControlKind::UserControl;
}

/// A constituent stands at the place of its user control.
std::pair<int, int> TabPlace(const Control& control) {
    const Control* const host = control.Host();
    return host != nullptr ? std::pair(host->TabIndex(), control.TabIndex())
                           : std::pair(control.TabIndex(), 0);
}

bool ComesFirst(const Control* a, const Control* b) {
    return TabPlace(*a) < TabPlace(*b);
}

} // namespace

Form::Form(const FormDesign& design)
    : mName(design.name), mTag(design.tag), mClientWidth(design.client_width),
      mClientHeight(design.client_height), mKeyPreview(design.key_preview),
      mShownInTaskBar(design.shown_in_task_bar), mCentredOnOwner(design.centred_on_owner) {
    mFont.FontChanged = [this] { ShowProperty(Property::Font); };
    MakeControls(design);
}

Form::~Form() = default;

void Form::MakeControls(const FormDesign& design) {
    for (const ControlDesign& control : design.controls)
        mControls.push_back(MakeByDesign(*this, control));
    for (const auto& control : mControls) {
        mAllControls.push_back(control.get());
        if (const auto* const user_control = dynamic_cast<UserControl*>(control.get()))
            for (const auto& constituent : user_control->Constituents())
                mAllControls.push_back(constituent.get());
    }
    for (Control* const control : mAllControls)
        if (IsInTabOrder(*control))
            mTabOrder.insert(std::upper_bound(mTabOrder.begin(), mTabOrder.end(), control, ComesFirst),
                             control);
}

Control& Form::Find(StringView name) const {
    for (const auto& control : mControls)
        if (control->Name() == name)
            return *control;
    RaiseError(error_number::kInvalidArgument);
}

CommandButton* Form::DefaultButton() const {
    return FindButton(&CommandButton::Default);
}

CommandButton* Form::CancelButton() const {
    return FindButton(&CommandButton::Cancel);
}

CommandButton* Form::FindButton(bool (CommandButton::*role)() const) const {
    for (const auto& control : mControls)
        if (auto* const button = dynamic_cast<CommandButton*>(control.get()); button && (button->*role)())
            return button;
    return nullptr;
}

void Form::SetCaption(const String& caption) {
    mCaption = caption;
    ShowProperty(Property::Caption);
}

void Form::SetMousePointer(int pointer) {
    mMousePointer = pointer;
    ShowProperty(Property::MousePointer);
}

void Form::SetForeColor(Colour colour) {
    mForeColor = colour;
    ShowProperty(Property::Colours);
}

void Form::SetBackColor(Colour colour) {
    mBackColor = colour;
    ShowProperty(Property::Colours);
}

Twips Form::Width() const {
    return mClientWidth + (mPeer ? mPeer->FrameWidth() : 0);
}

Twips Form::Height() const {
    return mClientHeight + (mPeer ? mPeer->FrameHeight() : 0);
}

float Form::PixelsX(Twips length) const {
    const Desktop* const desktop = Application::Current().CurrentDesktop();
    return length / (desktop ? desktop->TwipsPerPixelX() : kTwipsPerPixel);
}

float Form::PixelsY(Twips length) const {
    const Desktop* const desktop = Application::Current().CurrentDesktop();
    return length / (desktop ? desktop->TwipsPerPixelY() : kTwipsPerPixel);
}

void Form::SetHeight(Twips outer_height) {
    mClientHeight = std::max(outer_height - (mPeer ? mPeer->FrameHeight() : 0), Twips{0});
    ShowProperty(Property::Place);
}

void Form::ShowProperty(Property what) {
    if (mPeer)
        mPeer->Show(what);
}

} // namespace kestrelmoor
