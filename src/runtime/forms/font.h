#pragma once

#include "runtime/text.h"

#include <functional>

namespace kestrelmoor {

/// The font of a form or control. It is changed in place, never replaced; each change tells its holder.
class Font {
  public:
    const String& Name() const { return mName; }
    int Charset() const { return mCharset; }
    float Size() const { return mSize; } ///< points
    bool Bold() const { return mBold; }
    bool Italic() const { return mItalic; }
    bool Underline() const { return mUnderline; }

    void SetName(const String& name);
    void SetCharset(int charset);
    void SetSize(float points);
    void SetBold(bool on);
    void SetItalic(bool on);
    void SetUnderline(bool on);

    /// Takes over the values of another font.
    void Assign(const Font& other);

    /// Run after each change of a value.
    std::function<void()> FontChanged;

  private:
    template <class T>
    void Set(T& field, const T& value);

    String mName = u"MS Shell Dlg";
    int mCharset = 1;
    float mSize = 8.25F;
    bool mBold = false;
    bool mItalic = false;
    bool mUnderline = false;
};

} // namespace kestrelmoor
