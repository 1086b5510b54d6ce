#include "forms/settings/frmSettings.h"

#include "localization/library_files.h"
#include "localization/mCallDll.h"
#include "platform/files.h"
#include "platform/user_language.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/mRegistry.h"
#include "shell/messages.h"
#include "shell/program_state.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace kestrelmoor {

namespace {

using Numbers = Array<std::int16_t>;

constexpr char16_t kLibraryPattern[] = u"*.loc"; ///< without a folder: in the current directory
constexpr std::size_t kExtensionLength = 4;
constexpr std::int32_t kFirstListed = 1; ///< index of the first number that the window lists

/// 0 for a text that is no number of a language.
std::int16_t NumberOf(StringView sText) {
    try {
        return ToInteger16(sText);
    } catch (const RuntimeError&) {
        return 0;
    }
}

void AddNumber(Numbers& numbers, std::int16_t number) {
    const auto& present = numbers.Elements();
    if (number == 0 || std::find(present.begin(), present.end(), number) != present.end())
        return;
    numbers.Redim(numbers.LowerBound(), numbers.UpperBound() + 1);
    numbers[numbers.UpperBound()] = number;
}

/// What a library tells of itself, with its lower bound. Of what is listed each number stands once, and the
/// automatic choice isn't there; what isn't listed keeps its place.
Numbers Distinct(const Numbers& told) {
    if (!told.HasStorage())
        return told;
    const std::vector<std::int16_t>& all = told.Elements();
    const std::ptrdiff_t unlisted =
        std::clamp<std::ptrdiff_t>(kFirstListed - std::ptrdiff_t{told.LowerBound()}, 0, std::ssize(all));
    std::vector<std::int16_t> kept(all.begin(), all.begin() + unlisted);
    for (const std::int16_t number : std::span(all).subspan(static_cast<std::size_t>(unlisted)))
        if (number != 0 && std::find(kept.begin() + unlisted, kept.end(), number) == kept.end())
            kept.push_back(number);
    return kept.empty() ? Numbers() : Numbers(told.LowerBound(), std::move(kept));
}

void AddLibraryFiles(Numbers& numbers) {
    platform::FoundFile found;
    const platform::OwnedFileSearch search = platform::FindFirstFileW(kLibraryPattern, found);
    for (bool more = static_cast<bool>(search); more; more = platform::FindNextFileW(search, found))
        if ((found.attributes & platform::kDirectoryAttribute) == 0)
            AddNumber(numbers,
                      NumberOf(StringView(found.name).substr(0, found.name.size() - kExtensionLength)));
}

/// A key with fewer than two values gives a list without storage, whose bounds can't be read.
void AddConfiguredFiles(Numbers& numbers) {
    OwnedRegistryKey key = OpenRegistryKey(platform::kLocalMachine, kLocFiles, platform::kKeyRead);
    if (!key)
        return;
    const Array<String> names = EnumRegistryValues(key);
    CloseRegistryKey(key);
    for (std::int32_t i = names.LowerBound(); i <= names.UpperBound(); ++i)
        AddNumber(numbers, NumberOf(names[i]));
}

/// Ignores every error of a library.
template <class Call>
void Attempt(const Call& call) {
    try {
        call();
    } catch (const RuntimeError&) {
        // What it doesn't tell is not listed.
    }
}

} // namespace

void frmSettings::FillLanguages() {
    const Numbers numbers = GetLanguageList();
    for (std::int32_t i = kFirstListed; i <= numbers.UpperBound(); ++i) {
        cbLang.AddItem(GetLanguageName(numbers[i]));
        const int row = cbLang.NewIndex();
        cbLang.SetItemData(row, numbers[i]);
        if (numbers[i] == gLangID)
            cbLang.SetListIndex(row);
    }
}

void frmSettings::cbLang_Click() {
    if (cbLang.ItemData(cbLang.ListIndex()) != gLangID)
        cmdOK.SetEnabled(true);
}

String frmSettings::GetLanguageName(std::int16_t nLangID) {
    // The leading blank sorts the automatic choice first.
    if (nLangID == 0)
        return u" " + LoadMessage(403, {});
    const auto locale = static_cast<std::uint32_t>(std::int32_t{nLangID});
    const int length = platform::GetLocaleInfoW(locale, platform::kLanguageName, {});
    if (length == 0)
        return LoadMessage(404, {DecimalText(nLangID)});
    String name(static_cast<std::size_t>(length), u'\0');
    platform::GetLocaleInfoW(locale, platform::kLanguageName, name);
    name.pop_back();
    return name;
}

Array<std::int16_t> frmSettings::GetLanguageList() {
    Numbers numbers = Distinct(GetDefaultLibLanguages());
    const bool filled = numbers.HasStorage();
    const std::int32_t first = filled ? numbers.LowerBound() : 0;
    // The new element at the end is the automatic choice.
    numbers.Redim(first, (filled ? numbers.UpperBound() : 0) + 1);
    AddLibraryFiles(numbers);
    AddConfiguredFiles(numbers);
    return numbers;
}

Array<std::int16_t> frmSettings::GetDefaultLibLanguages() {
    const String path = InProgramFolder(kDefaultLibrary);
    Numbers numbers;
    if (!IsFile(path))
        return numbers;
    platform::ModuleHandle module = 0;
    Attempt([&] {
        const ILocalization library(GetClassObjectFromDll(path, abi::kClsidLocalization, module));
        numbers = library.Languages();
    });
    Attempt([&] { UnloadDll(module); });
    return numbers;
}

} // namespace kestrelmoor
