#include "tests/native/support/test_language.h"

#include "languages/localization_abi.h"
#include "localization/ILocalization.h"
#include "runtime/conversions.h"
#include "shell/program_state.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

namespace kestrelmoor::tests {

namespace {

TestTexts& Texts() {
    static TestTexts texts;
    return texts;
}

abi::LocText NewText(const String& text) {
    const auto size = static_cast<std::uint32_t>(text.size() * sizeof(char16_t));
    auto* const block = static_cast<std::uint32_t*>(std::malloc(sizeof size + size + sizeof(char16_t)));
    *block = size;
    std::memcpy(block + 1, text.c_str(), size + sizeof(char16_t));
    return reinterpret_cast<abi::LocText>(block + 1);
}

std::int32_t GetText(abi::ILocalization*, std::int16_t nNumber, abi::LocText* out) {
    *out = nullptr;
    const auto found = Texts().find(nNumber);
    if (found == Texts().end())
        return LOC_E_NO_SUCH_TEXT;
    *out = NewText(found->second);
    return LOC_S_OK;
}

std::int32_t GetPluralText(abi::ILocalization*, std::int16_t nNumber, std::int32_t nCount,
                           abi::LocText* out) {
    *out = NewText(u"noun " + DecimalText(nNumber) + u" of " + DecimalText(nCount));
    return LOC_S_OK;
}

std::int32_t LanguageID(abi::ILocalization*, std::int16_t* out) {
    *out = 1033;
    return LOC_S_OK;
}

std::int32_t FontName(abi::ILocalization*, abi::LocText* out) {
    *out = NewText(u"Test Sans");
    return LOC_S_OK;
}

std::int32_t FontCharset(abi::ILocalization*, std::int16_t* out) {
    *out = 238;
    return LOC_S_OK;
}

template <class Interface>
std::uint32_t Count(Interface*) {
    return 1;
}

std::int32_t QueryInterface(abi::ILocalization* self, const abi::Guid*, void** out) {
    *out = self;
    return LOC_S_OK;
}

std::int32_t CreateInstance(abi::IClassFactory*, void*, const abi::Guid*, void** out) {
    static const abi::ILocalizationTable table = [] {
        abi::ILocalizationTable entries{};
        entries.QueryInterface = QueryInterface;
        entries.AddRef = Count<abi::ILocalization>;
        entries.Release = Count<abi::ILocalization>;
        entries.GetPluralText = GetPluralText;
        entries.GetText = GetText;
        entries.LanguageID = LanguageID;
        entries.FontName = FontName;
        entries.FontCharset = FontCharset;
        return entries;
    }();
    static abi::ILocalization language{&table};
    *out = &language;
    return LOC_S_OK;
}

} // namespace

TestTexts StandardTexts() {
    return {
        {10, u"message 10: %1"},     {11, u"message 11: %1"}, {12, u"message 12: %1, %2, %3"},
        {15, u"message 15: %1, %2"}, {101, u"message 101"},   {102, u"message 102: %1"},
    };
}

void SpeakTestLanguage(TestTexts texts) {
    static const abi::IClassFactoryTable table{nullptr, Count<abi::IClassFactory>, Count<abi::IClassFactory>,
                                               CreateInstance, nullptr};
    static abi::IClassFactory factory{&table};
    Texts() = std::move(texts);
    gLocalizer = std::make_unique<ILocalization>(OwnedClassFactory(&factory));
}

} // namespace kestrelmoor::tests
