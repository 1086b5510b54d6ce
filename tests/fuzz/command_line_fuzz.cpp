#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/command_line.h"
#include "shell/program_state.h"
#include "tests/fuzz/support.h"
#include "tests/native/support/test_language.h"

#include <algorithm>
#include <optional>

namespace kestrelmoor::fuzz {

namespace {

constexpr std::int16_t kStoredLanguage = 1031;
constexpr std::uint32_t kExclamation = 48;

/// No blank but those at its head stands outside of a pair of quotes, or of a quote that is never closed.
bool IsOneToken(const String& token) {
    bool in_quotes = false;
    bool at_head = true;
    for (const char16_t unit : token) {
        if (unit == u' ' && !in_quotes && !at_head)
            return false;
        if (unit == u'"')
            in_quotes = !in_quotes;
        at_head = at_head && unit == u' ';
    }
    return true;
}

/// Blanks are all that is between tokens, and the last one takes a blank at the line's end with it.
void CheckTokens(const String& line, const StringList& tokens) {
    if (line.empty()) {
        Require(tokens.empty());
        return;
    }
    const String joined = Join(tokens, u' ');
    Require(joined == line || joined + u' ' == line);
    for (const String& token : tokens) {
        const bool closes = std::count(token.begin(), token.end(), u'"') % 2 == 0;
        Require(IsOneToken(token) && (closes || &token == &tokens.back()));
    }
}

void CheckQuotes(const String& token) {
    const String stripped = StripQuotes(token);
    if (!token.starts_with(u'"')) {
        Require(stripped == token);
        return;
    }
    const std::size_t behind = stripped.size() + 1;
    Require(stripped.find(u'"') == String::npos && token.compare(1, stripped.size(), stripped) == 0);
    Require(behind == token.size() || token[behind] == u'"');
}

/// '?', 'f', 'd' or 'l' for a switch.
std::optional<char16_t> SwitchIn(const String& token) {
    if (token.size() != 2 || (token[0] != u'/' && token[0] != u'-'))
        return std::nullopt;
    const char16_t letter = token[1] < 128 ? LowerAscii(token)[1] : u'\0';
    return StringView(u"?fdl").find(letter) == StringView::npos ? std::nullopt : std::optional(letter);
}

std::optional<std::int16_t> NumberIn(const String& token) {
    try {
        return ToInteger16(token);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// What a line means, found by looking at each token with the one ahead of it.
struct Meaning {
    bool usage = false;
    bool force = false;
    bool logging = false;
    String log_file;
    std::int16_t language = kStoredLanguage;
    std::optional<String> bad;
};

/// False: the token is bad.
bool Note(Meaning& meaning, std::optional<char16_t> ahead, const String& token) {
    if (ahead == u'd') {
        meaning.log_file = StripQuotes(token);
        return true;
    }
    const std::optional<std::int16_t> number = ahead == u'l' ? NumberIn(token) : std::nullopt;
    meaning.language = number.value_or(meaning.language);
    return number.has_value();
}

Meaning MeaningOf(const StringList& tokens) {
    Meaning meaning;
    bool language_waits = false;
    std::optional<char16_t> ahead;
    for (const String& given : tokens) {
        const String token(TrimBlanks(given));
        const std::optional<char16_t> letter = SwitchIn(token);
        meaning.usage |= letter == u'?';
        meaning.force |= letter == u'f';
        meaning.logging |= letter == u'd';
        if (letter == u'l')
            language_waits = true;
        else if (!letter && !token.empty() && ahead == u'l')
            language_waits = false;
        if (!letter && !token.empty() && !Note(meaning, ahead, token)) {
            meaning.bad = token;
            return meaning;
        }
        ahead = letter;
    }
    if (language_waits)
        meaning.language = 0;
    return meaning;
}

void CheckParsing(const String& line, const Meaning& meaning) {
    Run run;
    tests::SpeakTestLanguage();
    run.world.machine.command_line = line;
    std::int16_t language = kStoredLanguage;
    const bool bad = ParseCommandLine(language);
    Require(bad == meaning.bad.has_value());
    Require(gShowUsage == meaning.usage && gForceWindow == meaning.force && gLogging == meaning.logging);
    Require(gLogFileName == meaning.log_file && language == meaning.language);
    const auto& boxes = run.world.boxes.All();
    Require(boxes.size() == (bad ? 1 : 0));
    Require(!bad || (boxes[0].text == u"message 10: " + *meaning.bad && boxes[0].style == kExclamation));
}

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are the argument text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor;
    const String line = fuzz::TextFor({data, size});
    const StringList tokens = SplitCommandLine(line);
    fuzz::CheckTokens(line, tokens);
    for (const String& token : tokens)
        fuzz::CheckQuotes(token);
    fuzz::CheckParsing(line, fuzz::MeaningOf(tokens));
    return 0;
}
