#include "runtime/text.h"

#include <algorithm>

namespace kestrelmoor {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

void AppendUtf16(String& out, char32_t code) {
    if (code < 0x10000) {
        out.push_back(static_cast<char16_t>(code));
        return;
    }
    code -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
}

struct Decoded {
    char32_t code = kReplacement;
    std::size_t length = 1; ///< bytes used up
};

/// The sequence at the front of `bytes`; overlong forms, surrogates and numbers beyond U+10FFFF are not
/// well-formed.
Decoded DecodeUtf8(std::string_view bytes) {
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = byte(0);
    if (first < 0x80)
        return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length)
        return {};
    char32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80)
            return {};
        code = (code << 6) | (byte(i) & 0x3FU);
    }
    const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return {};
    return {code, length};
}

} // namespace

std::string ToUtf8(StringView text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            ++i;
            AppendUtf8(out, 0x10000U + ((static_cast<char32_t>(unit) - 0xD800U) << 10U) +
                                (static_cast<char32_t>(text[i]) - 0xDC00U));
        } else {
            AppendUtf8(out, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : unit);
        }
    }
    return out;
}

String FromUtf8(std::string_view bytes) {
    String out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded decoded = DecodeUtf8(bytes);
        AppendUtf16(out, decoded.code);
        bytes.remove_prefix(decoded.length);
    }
    return out;
}

StringView TrimBlanks(StringView text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == StringView::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

String LowerAscii(StringView text) {
    String lower(text);
    for (char16_t& unit : lower)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    return lower;
}

String TrimAtNul(StringView text) {
    return String(text.substr(0, text.find(u'\0')));
}

String AddBackslash(StringView sPath) {
    String path(sPath);
    if (path.empty() || path.back() != u'\\')
        path.push_back(u'\\');
    return path;
}

StringList Split(StringView text, char16_t separator) {
    StringList pieces;
    pieces.reserve(static_cast<std::size_t>(std::ranges::count(text, separator)) + 1);
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == StringView::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

String Join(const StringList& pieces, char16_t separator) {
    std::size_t length = pieces.size();
    for (const String& piece : pieces)
        length += piece.size();
    String joined;
    joined.reserve(length);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i != 0)
            joined.push_back(separator);
        joined += pieces[i];
    }
    return joined;
}

String Quoted(StringView text) {
    String quoted(1, u'"');
    quoted += text;
    quoted.push_back(u'"');
    return quoted;
}

} // namespace kestrelmoor
