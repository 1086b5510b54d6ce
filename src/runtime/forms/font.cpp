#include "runtime/forms/font.h"

namespace kestrelmoor {

template <class T>
void Font::Set(T& field, const T& value) {
    if (field == value)
        return;
    field = value;
    if (FontChanged)
        FontChanged();
}

void Font::Assign(const Font& other) {
    SetName(other.mName);
    SetCharset(other.mCharset);
    SetSize(other.mSize);
    SetBold(other.mBold);
    SetItalic(other.mItalic);
    SetUnderline(other.mUnderline);
}

void Font::SetName(const String& name) {
    Set(mName, name);
}

void Font::SetCharset(int charset) {
    Set(mCharset, charset);
}

void Font::SetSize(float points) {
    Set(mSize, points);
}

void Font::SetBold(bool on) {
    Set(mBold, on);
}

void Font::SetItalic(bool on) {
    Set(mItalic, on);
}

void Font::SetUnderline(bool on) {
    Set(mUnderline, on);
}

} // namespace kestrelmoor
