#include "platform/windows/fonts.h"

#include "platform/windows/gui_handles.h"
#include "platform/windows/pixels.h"
#include "platform/windows/wide_text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace kestrelmoor::platform {

namespace {

using FontKey = std::tuple<String, int, int, bool, bool, bool>;

constexpr float kPointsPerInch = 72;
constexpr int kOverhangShare = 6; ///< the last letter may lean out of its box by this part of the height

int PixelHeight(const Font& font) {
    return static_cast<int>(
        std::lround(font.Size() * static_cast<float>(DisplayResolution().y) / kPointsPerInch));
}

OwnedFont MakeFont(const Font& font) {
    LOGFONTW wanted{};
    wanted.lfHeight = -PixelHeight(font);
    wanted.lfWeight = font.Bold() ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.Italic();
    wanted.lfUnderline = font.Underline();
    wanted.lfCharSet = static_cast<BYTE>(font.Charset());
    const std::size_t length = std::min<std::size_t>(font.Name().size(), LF_FACESIZE - 1);
    std::copy_n(font.Name().begin(), length, wanted.lfFaceName);
    return OwnedFont(::CreateFontIndirectW(&wanted));
}

} // namespace

HFONT SystemFont(const Font& font) {
    static std::map<FontKey, OwnedFont> fonts;
    const FontKey key{font.Name(), font.Charset(), PixelHeight(font),
                      font.Bold(), font.Italic(),  font.Underline()};
    OwnedFont& held = fonts[key];
    if (!held)
        held = MakeFont(font);
    return held.Get();
}

namespace {

/// What `measure` tells of the screen with the font on it.
template <class Measure>
SIZE MeasuredIn(HFONT font, const Measure& measure) {
    const HDC screen = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(screen, font);
    const SIZE extent = measure(screen);
    ::SelectObject(screen, before);
    ::ReleaseDC(nullptr, screen);
    return extent;
}

} // namespace

SIZE TextExtent(HFONT font, StringView text) {
    return MeasuredIn(font, [&](HDC screen) {
        SIZE extent{};
        ::GetTextExtentPoint32W(screen, Wide(text.data()), static_cast<int>(text.size()), &extent);
        return extent;
    });
}

SIZE CaptionExtent(HFONT font, StringView caption) {
    return MeasuredIn(font, [&](HDC screen) {
        RECT place{};
        const int line =
            ::DrawTextW(screen, Wide(caption.data()), static_cast<int>(caption.size()), &place, DT_CALCRECT);
        return SIZE{place.right + (place.right > 0 ? line / kOverhangShare : 0), place.bottom};
    });
}

} // namespace kestrelmoor::platform
