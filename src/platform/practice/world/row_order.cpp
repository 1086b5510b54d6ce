#include "platform/practice/world/row_order.h"

#include "platform/practice/world/names.h"

#include <algorithm>
#include <array>
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

constexpr char16_t kFirstAccented = 0x00DF;

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

/// What of a character counts first, and its accent where that is the same; no accent: 0.
struct Weight {
    std::uint32_t place = 0;
    std::size_t accent = 0;
};

/// Hyphens and apostrophes with their places, of which the later is the lesser.
using LateMarks = std::vector<std::pair<int, char16_t>>;

constexpr std::size_t kMarksEnd = 0x100;

/// The order of the marks by character; 0: none.
constexpr auto kMarkPlaces = [] {
    std::array<std::uint8_t, kMarksEnd> places{};
    for (std::size_t index = 0; index < kMarks.size(); ++index)
        places.at(kMarks[index]) = static_cast<std::uint8_t>(index + 1);
    return places;
}();

std::uint32_t PlaceOf(char16_t c) {
    if (c < kMarksEnd && kMarkPlaces[c] != 0)
        return kMarkPlaces[c];
    return (c >= u'0' && c <= u'9' ? kDigits : kLetters) + c;
}

std::size_t AccentOf(char16_t small) {
    return small < kFirstAccented || small >= kMarksEnd ? 0 : kAccented.find(small) + 1; // npos and 1 make 0
}

/// Goes through the weights of a text, past its hyphens and apostrophes.
class WeightReader {
  public:
    explicit WeightReader(StringView text) : mText(text) {}

    /// False: the text has ended.
    bool Next(Weight& weight) {
        if (const char16_t second = std::exchange(mSecond, u'\0')) {
            weight = {PlaceOf(second), 0};
            return true;
        }
        while (mNext < mText.size() && DecidesLast(mText[mNext]))
            ++mNext;
        if (mNext == mText.size())
            return false;
        weight = Take(SmallLetter(mText[mNext++]));
        return true;
    }

  private:
    Weight Take(char16_t small) {
        const std::size_t accent = AccentOf(small);
        mSecond = SecondLetter(small);
        const char16_t plain = accent != 0 ? kPlainLetters[small - kFirstAccented] : small;
        // A letter of two is the same as the two.
        return {PlaceOf(plain), mSecond != 0 ? 0 : accent};
    }

    StringView mText;
    std::size_t mNext = 0;
    char16_t mSecond = 0;
};

LateMarks LateMarksOf(StringView text) {
    LateMarks marks;
    int place = 0;
    for (const char16_t c : text) {
        if (DecidesLast(c))
            marks.emplace_back(-place, c);
        else
            place += SecondLetter(SmallLetter(c)) != 0 ? 2 : 1;
    }
    return marks;
}

template <class Value>
int Compare(const Value& a, const Value& b) {
    if (a == b)
        return 0;
    return a < b ? -1 : 1;
}

/// Two units for a number; the numbers are small.
void Append(String& key, std::uint32_t number) {
    key.push_back(static_cast<char16_t>(number >> 16));
    key.push_back(static_cast<char16_t>(number & 0xFFFF));
}

int CompareRests(StringView a, StringView b) {
    WeightReader first(a);
    WeightReader second(b);
    int accents = 0;
    while (true) {
        Weight left;
        Weight right;
        const bool more_left = first.Next(left);
        const bool more_right = second.Next(right);
        if (!more_left && !more_right)
            break;
        if (more_left != more_right)
            return more_left ? 1 : -1;
        if (const int order = Compare(left.place, right.place))
            return order;
        if (accents == 0)
            accents = Compare(left.accent, right.accent);
    }
    return accents != 0 ? accents : Compare(LateMarksOf(a), LateMarksOf(b));
}

} // namespace

String RowOrderKey(StringView text) {
    const std::size_t most = 4 * text.size(); // a character has two letters at most, a letter two units
    String places;
    String accents;
    places.reserve(most);
    accents.reserve(most);
    WeightReader reader(text);
    for (Weight weight; reader.Next(weight);) {
        Append(places, weight.place);
        Append(accents, static_cast<std::uint32_t>(weight.accent));
    }
    String key;
    key.reserve(2 + 2 * places.size() + 3 * text.size());
    Append(key, static_cast<std::uint32_t>(places.size()));
    key += places;
    key += accents;
    for (const auto& [place, mark] : LateMarksOf(text)) {
        Append(key, static_cast<std::uint32_t>(-place));
        key.push_back(mark);
    }
    return key;
}

// What the two begin with alike decides nothing; names of servers often share much of it.
int CompareInRowOrder(StringView a, StringView b) {
    const auto [rest_a, rest_b] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return CompareRests({rest_a, a.end()}, {rest_b, b.end()});
}

} // namespace kestrelmoor::practice
