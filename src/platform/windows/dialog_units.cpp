#include "platform/windows/dialog_units.h"

#include "platform/windows/fonts.h"
#include "platform/windows/pixels.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

/// A quarter of the average width in the font of the designs, which is six pixels at 96 dots per inch.
constexpr Twips kTwipsPerDialogUnit = 22.5F;

/// The edge of a list at 96 dots per inch. Elsewhere the edge keeps its pixels, and what lies over the list
/// is placed from its outside.
constexpr Twips kEdge = 30;

/// A list counts in quarters of its own font's average width.
constexpr int kUnitsPerCharacter = 4;

/// That width as lists take it: over all letters, rounded.
int AverageWidth(HWND list) {
    static constexpr char16_t kLetters[] = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kCount = 52;
    auto* const font = reinterpret_cast<HFONT>(::SendMessageW(list, WM_GETFONT, 0, 0));
    const SIZE extent = TextExtent(font, kLetters);
    return std::max(1, static_cast<int>((extent.cx / (kCount / 2) + 1) / 2));
}

} // namespace

std::vector<int> StopsForFont(HWND list, const std::vector<int>& stops) {
    const int width = AverageWidth(list);
    std::vector<int> units;
    for (const int stop : stops) {
        const int from_outside = PixelX(static_cast<Twips>(stop) * kTwipsPerDialogUnit + kEdge);
        units.push_back(::MulDiv(from_outside - ::GetSystemMetrics(SM_CXEDGE), kUnitsPerCharacter, width));
    }
    return units;
}

} // namespace kestrelmoor::platform
