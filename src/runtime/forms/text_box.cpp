#include "runtime/forms/form.h"

#include <algorithm>

namespace kestrelmoor {

TextBox::TextBox(Form& form, const ControlDesign& design)
    : Control(form, design), mText(design.text), mPasswordChar(design.password_char), mLocked(design.locked),
      mMultiLine(design.multi_line), mImeOff(design.ime_off), mBorderStyle(design.border ? 1 : 0),
      mScrollBars(design.scroll_bars) {}

void TextBox::SetText(const String& text) {
    if (mText == text)
        return;
    mText = text;
    mSelStart = 0;
    mSelLength = 0;
    Show(Property::Text);
    Raise(Change);
}

int TextBox::SelStart() const {
    ReadSelection();
    return mSelStart;
}

int TextBox::SelLength() const {
    ReadSelection();
    return mSelLength;
}

void TextBox::SetSelStart(int start) {
    mSelStart = Within(start);
    mSelLength = 0;
    Show(Property::Selection);
}

void TextBox::SetSelLength(int length) {
    ReadSelection();
    mSelLength = std::clamp(length, 0, static_cast<int>(mText.size()) - mSelStart);
    Show(Property::Selection);
}

void TextBox::SetSelText(const String& text) {
    ReadSelection();
    const auto start = static_cast<std::size_t>(mSelStart);
    const auto length = static_cast<std::size_t>(mSelLength);
    const bool changed = StringView(mText).substr(start, length) != text;
    mText.replace(start, length, text);
    mSelStart += static_cast<int>(text.size());
    mSelLength = 0;
    if (Peer() != nullptr)
        Peer()->ReplaceSelection(text);
    if (changed)
        Raise(Change);
}

void TextBox::SetPasswordChar(const String& mask) {
    mPasswordChar = mask;
    Show(Property::PasswordChar);
}

void TextBox::SetBorderStyle(int style) {
    if (mBorderStyle == style)
        return;
    mBorderStyle = style;
    Show(Property::BorderStyle);
}

void TextBox::Edited(const String& text) {
    if (mText == text)
        return;
    mText = text;
    mSelStart = Within(mSelStart);
    mSelLength = std::min(mSelLength, static_cast<int>(mText.size()) - mSelStart);
    Raise(Change);
}

void TextBox::Edited(const String& text, int caret) {
    mSelStart = std::clamp(caret, 0, static_cast<int>(text.size()));
    mSelLength = 0;
    Edited(text);
}

void TextBox::ReadSelection() const {
    int start = 0;
    int length = 0;
    if (Peer() == nullptr || !Peer()->ReadSelection(start, length))
        return;
    mSelStart = Within(start);
    mSelLength = std::clamp(length, 0, static_cast<int>(mText.size()) - mSelStart);
}

int TextBox::Within(int position) const {
    return std::clamp(position, 0, static_cast<int>(mText.size()));
}

} // namespace kestrelmoor
