#include "runtime/errors.h"
#include "runtime/forms/application.h"

#include <algorithm>

namespace kestrelmoor {

namespace {

std::unique_ptr<Control> MakeControl(Form& form, const ControlDesign& design) {
    switch (design.kind) {
    case ControlKind::Label:
        return std::make_unique<Label>(form, design);
    case ControlKind::TextBox:
        return std::make_unique<TextBox>(form, design);
    case ControlKind::CommandButton:
        return std::make_unique<CommandButton>(form, design);
    case ControlKind::CheckBox:
        return std::make_unique<CheckBox>(form, design);
    case ControlKind::ListBox:
        return std::make_unique<ListBox>(form, design);
    case ControlKind::ComboBox:
        return std::make_unique<ComboBox>(form, design);
    case ControlKind::Frame:
        return std::make_unique<Frame>(form, design);
    case ControlKind::Timer:
        return std::make_unique<Timer>(form, design);
    case ControlKind::PictureBox:
        return std::make_unique<PictureBox>(form, design);
    case ControlKind::Line:
        return std::make_unique<Line>(form, design);
    case ControlKind::Shape:
        return std::make_unique<Shape>(form, design);
    }
    RaiseError(error_number::kInvalidArgument);
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
    for (const ControlDesign& control : design.controls) {
        mControls.push_back(MakeControl(*this, control));
        if (control.tab_index >= 0)
            mTabOrder.push_back(mControls.back().get());
    }
    std::stable_sort(mTabOrder.begin(), mTabOrder.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
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

void Form::SetHeight(Twips outer_height) {
    mClientHeight = std::max(outer_height - (mPeer ? mPeer->FrameHeight() : 0), Twips{0});
    ShowProperty(Property::Place);
}

void Form::ShowProperty(Property what) {
    if (mPeer)
        mPeer->Show(what);
}

} // namespace kestrelmoor
