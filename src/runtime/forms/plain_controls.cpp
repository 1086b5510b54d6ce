#include "runtime/errors.h"
#include "runtime/forms/form.h"

namespace kestrelmoor {

Label::Label(Form& form, const ControlDesign& design)
    : Control(form, design), mLinkTimeout(design.link_timeout), mAutoSize(design.auto_size),
      mTransparent(design.transparent) {}

void Label::Reworded() {
    Twips width = 0;
    Twips height = 0;
    if (mAutoSize && Peer() && Peer()->MeasureCaption(width, height))
        Move(Left(), Top(), width, height);
}

Timer::Timer(Form& form, const ControlDesign& design) : Control(form, design), mInterval(design.interval) {}

void Timer::SetInterval(int milliseconds) {
    if (milliseconds < 0)
        RaiseError(error_number::kInvalidPropertyValue);
    mInterval = milliseconds;
    Show(Property::Interval);
}

void Timer::Elapsed() {
    if (Running())
        Raise(Tick);
}

void PictureBox::PaintRequested() {
    Raise(Paint);
}

void PictureBox::Clear() {
    if (Peer())
        Peer()->Clear();
}

std::uintptr_t PictureBox::DeviceContext() const {
    return Peer() ? Peer()->DeviceContext() : 0;
}

} // namespace kestrelmoor
