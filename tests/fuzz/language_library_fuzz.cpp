#include "localization/ILocalization.h"
#include "runtime/errors.h"
#include "tests/fuzz/support.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <utility>

extern "C" {
std::int32_t DllGetClassObject(const kestrelmoor::abi::Guid* clsid, const kestrelmoor::abi::Guid* iid,
                               void** out);
std::int32_t DllCanUnloadNow(void);

/// In place of the finished library's own, which can't be written: the library reads it under this name.
alignas(4) std::uint8_t kTextArea[32768];
}

namespace kestrelmoor::fuzz {

namespace {

constexpr std::size_t kAreaSize = sizeof kTextArea;
constexpr std::size_t kMagicSize = 16;
constexpr std::uint64_t kHeadSize = 76;
constexpr std::uint64_t kPluralTableSize = 200;
constexpr std::uint16_t kMessage = 0xFFFF;
constexpr std::int32_t kWindows2000 = 0x25000000;
constexpr std::int32_t kWindowsNT4 = 0x24000000;

std::uint32_t Word(std::uint64_t at) {
    std::uint32_t word = 0;
    std::memcpy(&word, kTextArea + at, sizeof word);
    return word;
}

std::uint16_t HalfWord(std::uint64_t at) {
    std::uint16_t word = 0;
    std::memcpy(&word, kTextArea + at, sizeof word);
    return word;
}

/// The parts of the area, as languages/text_area.h tells them.
struct Area {
    std::uint64_t used = Word(24);
    std::uint16_t language_count = HalfWord(28);
    std::uint16_t flags = HalfWord(30);
    std::uint64_t languages = Word(32);
    std::uint32_t charset = Word(36);
    std::uint64_t plurals = Word(40);
    std::uint64_t record_count = Word(44);
    std::uint64_t records = Word(48);

    bool Inside(std::uint64_t offset, std::uint64_t size, std::uint64_t alignment) const {
        return offset >= kHeadSize && offset + size <= used && offset % alignment == 0;
    }
    bool IsText(std::uint64_t place) const {
        return Inside(Word(place), std::uint64_t{Word(place + 4)} * 2, 2);
    }
    bool RecordsAreSound() const {
        if (!Inside(records, record_count * 12, 4))
            return false;
        std::optional<std::pair<std::uint16_t, std::uint16_t>> last;
        for (std::uint64_t at = records; at < records + record_count * 12; at += 12) {
            const std::pair key(HalfWord(at), HalfWord(at + 2));
            if ((last && key <= *last) || !IsText(at + 4))
                return false;
            last = key;
        }
        return true;
    }
    bool IsSound() const {
        return Word(16) == kAreaSize && Word(20) == 1 && used <= kAreaSize && language_count > 0 &&
               Inside(languages, language_count * std::uint64_t{2}, 2) &&
               Inside(plurals, kPluralTableSize, 1) && IsText(52) && IsText(60) && IsText(68) &&
               RecordsAreSound();
    }
};

String TextAt(std::uint64_t place) {
    return Utf16({kTextArea + Word(place), std::size_t{Word(place + 4)} * 2});
}

ILocalization NewObject() {
    void* factory = nullptr;
    RaiseIfFailed(DllGetClassObject(&abi::kClsidLocalization, &abi::kIidClassFactory, &factory));
    return ILocalization(OwnedClassFactory(static_cast<abi::IClassFactory*>(factory)));
}

/// The number of the error that it raises, 0 for none.
template <class Ask>
std::int32_t Raised(Ask ask) {
    try {
        ask();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number();
    }
}

using Texts = std::map<std::pair<std::uint16_t, std::uint16_t>, String>;

Texts TextsOf(const Area& area) {
    Texts texts;
    for (std::uint64_t at = area.records; at < area.records + area.record_count * 12; at += 12)
        texts.emplace(std::pair(HalfWord(at), HalfWord(at + 2)), TextAt(at + 4));
    return texts;
}

template <class Ask>
void CheckText(const Texts& texts, std::pair<std::uint16_t, std::uint16_t> key, std::int32_t failure,
               Ask ask) {
    String text;
    const std::int32_t raised = Raised([&] { text = ask(); });
    const auto found = texts.find(key);
    Require(raised == (found == texts.end() ? failure : 0));
    Require(found == texts.end() || text == found->second);
}

void CheckTexts(const ILocalization& library, const Area& area, const Texts& texts) {
    for (const auto& [key, text] : texts) {
        const auto number = static_cast<std::int16_t>(key.first);
        CheckText(texts, {key.first, kMessage}, LOC_E_NO_SUCH_TEXT, [&] { return library.GetText(number); });
        for (const std::int32_t count : {0, 1, 2, 5, 21, 199, 200, 1999, -1, INT32_MAX, INT32_MIN}) {
            const std::int64_t amount = std::abs(std::int64_t{count});
            const std::uint8_t form =
                kTextArea[area.plurals +
                          static_cast<std::uint64_t>(amount < 200 ? amount : 100 + amount % 100)];
            CheckText(texts, {key.first, form}, LOC_E_NO_SUCH_NOUN,
                      [&] { return library.GetPluralText(number, count); });
        }
    }
}

std::vector<std::int16_t> LanguagesOf(const Area& area) {
    std::vector<std::int16_t> languages(area.language_count);
    std::memcpy(languages.data(), kTextArea + area.languages, languages.size() * sizeof(std::int16_t));
    return languages;
}

bool Serves(const Area& area, const std::vector<std::int16_t>& languages, std::int16_t language) {
    const bool relative = (area.flags & 1) != 0 && ((languages.front() ^ language) & 0x3FF) == 0;
    return relative || std::find(languages.begin(), languages.end(), language) != languages.end();
}

void CheckSound(const Area& area, std::int16_t wanted) {
    ILocalization library = NewObject();
    const std::vector<std::int16_t> languages = LanguagesOf(area);
    Require(library.Languages() == Array<std::int16_t>(1, languages));
    const bool serves = Serves(area, languages, wanted);
    Require(Raised([&] { library.Initialize(kWindows2000, wanted); }) == (serves ? 0 : LOC_E_FAIL));
    Require(Raised([&] { library.LanguageID(); }) == (serves ? 0 : LOC_E_NOT_INITIALIZED));
    library.Initialize(kWindows2000, languages.back());
    Require(library.LanguageID() == languages.back() && library.FontName() == TextAt(52));
    Require(library.FontCharset() == static_cast<std::int16_t>(area.charset));
    Require(library.HelpFile() == TextAt(68));
    CheckTexts(library, area, TextsOf(area));
    library.Initialize(kWindowsNT4, languages.back());
    Require(library.FontName() == TextAt(60));
}

void CheckDamaged(std::int16_t wanted) {
    ILocalization library = NewObject();
    Require(Raised([&] { library.Initialize(kWindows2000, wanted); }) == LOC_E_DAMAGED);
    Require(Raised([&] { library.Languages(); }) == LOC_E_DAMAGED);
    Require(Raised([&] { library.GetText(1); }) == LOC_E_NOT_INITIALIZED);
}

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are a language number, and the text area of a library behind its magic.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor::fuzz;
    Input input({data, size});
    const auto wanted = static_cast<std::int16_t>(input.Number16());
    const InputBytes bytes = input.Take(kAreaSize - kMagicSize);
    std::fill(std::begin(kTextArea), std::end(kTextArea), std::uint8_t{0});
    std::copy(bytes.begin(), bytes.end(), kTextArea + kMagicSize);
    const Area area;
    if (area.IsSound())
        CheckSound(area, wanted);
    else
        CheckDamaged(wanted);
    Require(DllCanUnloadNow() == LOC_S_OK);
    return 0;
}
