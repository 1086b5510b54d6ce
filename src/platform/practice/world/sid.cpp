#include "platform/practice/world/sid.h"

#include <charconv>

namespace kestrelmoor::practice {

namespace {

constexpr std::size_t kMostSubAuthorities = 15;
constexpr std::uint64_t kGreatestAuthority = 0xFFFFFFFFFFFF;

template <class Number>
std::optional<Number> WholeNumber(StringView text) {
    const std::string digits = ToUtf8(text);
    Number number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

} // namespace

std::optional<SidBytes> SidOfText(StringView text) {
    const StringList pieces = Split(text, u'-');
    constexpr std::size_t kPiecesAhead = 3; // S, the revision, the authority
    if (pieces.size() < kPiecesAhead || pieces.size() > kPiecesAhead + kMostSubAuthorities ||
        pieces[0] != u"S" || pieces[1] != u"1")
        return std::nullopt;
    const auto authority = WholeNumber<std::uint64_t>(pieces[2]);
    if (!authority || *authority > kGreatestAuthority)
        return std::nullopt;

    SidBytes sid{1, static_cast<std::uint8_t>(pieces.size() - kPiecesAhead)};
    for (int shift = 40; shift >= 0; shift -= 8)
        sid.push_back(static_cast<std::uint8_t>(*authority >> shift));
    for (std::size_t i = kPiecesAhead; i < pieces.size(); ++i) {
        const auto number = WholeNumber<std::uint32_t>(pieces[i]);
        if (!number)
            return std::nullopt;
        for (int shift = 0; shift < 32; shift += 8)
            sid.push_back(static_cast<std::uint8_t>(*number >> shift));
    }
    return sid;
}

std::size_t SidSize(const void* sid) {
    const auto* const bytes = static_cast<const std::uint8_t*>(sid);
    return kSidSubAuthoritiesOffset + std::size_t{4} * bytes[kSidCountOffset];
}

} // namespace kestrelmoor::practice
