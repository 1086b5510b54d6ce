#pragma once

#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

/// The screen as a window's client area shows it.
class PixelsShown {
  public:
    explicit PixelsShown(HWND window) : mWindow(window), mContext(::GetDC(window)) { ::UpdateWindow(window); }
    ~PixelsShown() { ::ReleaseDC(mWindow, mContext); }
    PixelsShown(const PixelsShown&) = delete;
    PixelsShown& operator=(const PixelsShown&) = delete;

    COLORREF At(int x, int y) const { return ::GetPixel(mContext, x, y); }

    /// The pixel two steps from the right edge and from the bottom, where no text stands.
    COLORREF InCorner() const {
        RECT client{};
        ::GetClientRect(mWindow, &client);
        return At(static_cast<int>(client.right) - 3, static_cast<int>(client.bottom) - 3);
    }

    /// The first column from `from` on in which a row of pixels between `top` and `bottom` is dark; -1: none.
    int FirstInk(int from, int top, int bottom) const {
        RECT client{};
        ::GetClientRect(mWindow, &client);
        for (int x = from; x < client.right; ++x)
            for (int y = top; y < bottom; ++y)
                if (IsDark(At(x, y)))
                    return x;
        return -1;
    }

  private:
    static bool IsDark(COLORREF colour) {
        constexpr int kDark = 3 * 96;
        return GetRValue(colour) + GetGValue(colour) + GetBValue(colour) < kDark;
    }

    HWND mWindow;
    HDC mContext;
};

} // namespace kestrelmoor::tests
