#pragma once

#include "languages/localization_abi.h"
#include "runtime/array.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// An object of a library, counted by the library itself.
template <class Interface>
struct ComTraits {
    using Value = Interface*;
    static constexpr Value kNone = nullptr;
    static void Release(Value object) noexcept { object->table->Release(object); }
};

using OwnedClassFactory = Owned<ComTraits<abi::IClassFactory>>;

/// The object of a language library: the only source of visible words, of the font and of the help file's
/// name. Every operation raises the library's failure as an error.
class ILocalization {
  public:
    /// Makes the library's one object. Raises the factory's failure as an error.
    explicit ILocalization(const OwnedClassFactory& factory);

    /// Binds the object to a language. `nWinVersion` is `gWinVersion`, `nLangID` never 0. Fails when the
    /// library doesn't serve that language.
    void Initialize(std::int32_t nWinVersion, std::int16_t nLangID);

    /// The noun of a number in the form that fits the count.
    String GetPluralText(std::int16_t nNumber, std::int32_t nCount) const;

    /// The text of a message number, placeholders unfilled.
    String GetText(std::int16_t nNumber) const;

    /// The language that the object now serves.
    std::int16_t LanguageID() const;

    /// The languages held by the file, from the first index that the library gives them.
    Array<std::int16_t> Languages() const;

    /// The font for all controls in this language, and its character set in the platform's numbers.
    String FontName() const;
    std::int16_t FontCharset() const;

    /// The name of the help file, relative to the program's folder.
    String HelpFile() const;

  private:
    using Table = abi::ILocalizationTable;
    using OwnedObject = Owned<ComTraits<abi::ILocalization>>;
    String TextFrom(std::int32_t (LOC_CALL* Table::*operation)(abi::ILocalization*, abi::LocText*)) const;
    std::int16_t NumberFrom(std::int32_t (LOC_CALL* Table::*operation)(abi::ILocalization*,
                                                                       std::int16_t*)) const;

    OwnedObject mObject;
};

} // namespace kestrelmoor
