#include "platform/practice/world/row_order.h"

#include "platform/practice/world/names.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace kestrelmoor::practice {

namespace {

/// Blanks, punctuation and symbols in their order.
constexpr StringView kMarks =
    u" \u00A0\t\n\v\f\r!\"#$%&()*,./:;?@[\\]^_`{|}~\u00A1\u00A6\u00A8\u00AF\u00B4\u00B8"
    u"\u00BF\u00A2\u00A3\u00A4\u00A5+<=>\u00B1\u00AB\u00BB\u00D7\u00F7\u00A7\u00A9"
    u"\u00AC\u00AE\u00B0\u00B5\u00B6\u00B7";

/// The plain letters of U+00DF to U+00FF, where there are any.
constexpr StringView kPlainLetters = u"saaaaaaaceeeeiiiidnooooo\u00F7ouuuuyty";

/// Letters with an accent; of two with the same plain letter the earlier goes first.
constexpr StringView kAccented =
    u"\u00E1\u00E0\u00E2\u00E4\u00E3\u00E5\u00E6\u00E7\u00F0\u00E9\u00E8\u00EA\u00EB"
    u"\u00ED\u00EC\u00EE\u00EF\u00F1\u00F3\u00F2\u00F4\u00F6\u00F5\u00F8\u00DF\u00FE"
    u"\u00FA\u00F9\u00FB\u00FC\u00FD\u00FF";

constexpr std::uint32_t kDigits = 0x1000;
constexpr std::uint32_t kLetters = 0x2000;

bool DecidesLast(char16_t c) {
    return c == u'-' || c == u'\'' || c == 0x00AD || (c >= 0x2010 && c <= 0x2012);
}

/// What an expanded letter stands for, behind its first part.
char16_t SecondLetter(char16_t small) {
    switch (small) {
    case 0x00DF:
        return u's';
    case 0x00E6:
        return u'e';
    case 0x00FE:
        return u'h';
    default:
        return 0;
    }
}

struct Weights {
    std::vector<std::uint32_t> places;          ///< what counts first
    std::vector<std::size_t> accents;           ///< where places are the same; 0: none
    std::vector<std::pair<int, char16_t>> late; ///< hyphens and apostrophes, the later place the lesser
};

std::uint32_t PlaceOf(char16_t c) {
    if (const std::size_t mark = kMarks.find(c); mark != StringView::npos)
        return static_cast<std::uint32_t>(mark + 1);
    if (c >= u'0' && c <= u'9')
        return kDigits + c;
    return kLetters + c;
}

std::size_t AccentOf(char16_t small) {
    return kAccented.find(small) + 1; // npos and 1 make 0
}

Weights WeightsOf(StringView text) {
    Weights weights;
    for (const char16_t c : text) {
        const char16_t small = SmallLetter(c);
        if (DecidesLast(c)) {
            weights.late.emplace_back(-static_cast<int>(weights.places.size()), c);
            continue;
        }
        const std::size_t accent = AccentOf(small);
        weights.places.push_back(PlaceOf(accent != 0 ? kPlainLetters[small - 0x00DFU] : small));
        const char16_t second = SecondLetter(small);
        // A letter of two is the same as the two.
        weights.accents.push_back(second != 0 ? 0 : accent);
        if (second != 0) {
            weights.places.push_back(PlaceOf(second));
            weights.accents.push_back(0);
        }
    }
    return weights;
}

template <class List>
int Compare(const List& a, const List& b) {
    if (a == b)
        return 0;
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end()) ? -1 : 1;
}

/// Two units for a number; the numbers are small.
void Append(String& key, std::uint32_t number) {
    key.push_back(static_cast<char16_t>(number >> 16));
    key.push_back(static_cast<char16_t>(number & 0xFFFF));
}

} // namespace

String RowOrderKey(StringView text) {
    const Weights weights = WeightsOf(text);
    String key;
    Append(key, static_cast<std::uint32_t>(weights.places.size()));
    for (const std::uint32_t place : weights.places)
        Append(key, place);
    for (const std::size_t accent : weights.accents)
        Append(key, static_cast<std::uint32_t>(accent));
    for (const auto& [place, mark] : weights.late) {
        Append(key, static_cast<std::uint32_t>(-place));
        key.push_back(mark);
    }
    return key;
}

int CompareInRowOrder(StringView a, StringView b) {
    const Weights first = WeightsOf(a);
    const Weights second = WeightsOf(b);
    if (const int order = Compare(first.places, second.places))
        return order;
    if (const int order = Compare(first.accents, second.accents))
        return order;
    return Compare(first.late, second.late);
}

} // namespace kestrelmoor::practice
