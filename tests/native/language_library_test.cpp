// The language library, reached as the program reaches it: loaded from its file, through its two exports.
#include "language_library_files.h"
#include "tests/native/support/loaded_library.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

namespace {

using namespace kestrelmoor::language_library;

constexpr std::size_t Slot(std::size_t offset) {
    return offset / sizeof(void*);
}

static_assert(Slot(offsetof(ILocalizationTable, Initialize)) == 7);
static_assert(Slot(offsetof(ILocalizationTable, GetPluralText)) == 8);
static_assert(Slot(offsetof(ILocalizationTable, GetText)) == 9);
static_assert(Slot(offsetof(ILocalizationTable, LanguageID)) == 10);
static_assert(Slot(offsetof(ILocalizationTable, Languages)) == 11);
static_assert(Slot(offsetof(ILocalizationTable, FontName)) == 13);
static_assert(Slot(offsetof(ILocalizationTable, FontCharset)) == 14);
static_assert(Slot(offsetof(ILocalizationTable, HelpFile)) == 15);
class LanguageLibrary : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(mLibrary.get_class_object, nullptr);
        ASSERT_NE(mLibrary.can_unload_now, nullptr);
        mObject = mLibrary.NewObject();
        ASSERT_NE(mObject, nullptr);
    }

    void TearDown() override {
        EXPECT_EQ(mObject->table->Release(mObject), 0u);
        EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_OK);
    }

    std::int32_t Initialize(std::int16_t language, std::int32_t version = kWindows2000) {
        return mObject->table->Initialize(mObject, version, language);
    }

    std::u16string TextOf(std::int16_t number) {
        LocText text = nullptr;
        EXPECT_EQ(mObject->table->GetText(mObject, number, &text), LOC_S_OK) << number;
        return Taken(text);
    }

    std::u16string Noun(std::int16_t number, std::int32_t count) {
        LocText text = nullptr;
        EXPECT_EQ(mObject->table->GetPluralText(mObject, number, count, &text), LOC_S_OK) << number;
        return Taken(text);
    }

    Library mLibrary{KESTRELMOOR_DEFAULT_LOC};
    ILocalization* mObject = nullptr;
};

TEST_F(LanguageLibrary, RefusesAnotherClass) {
    Guid other = kClsidLocalization;
    other.data4[7] ^= 1;
    void* out = this;
    EXPECT_EQ(mLibrary.get_class_object(&other, &kIidClassFactory, &out), LOC_CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
}

TEST_F(LanguageLibrary, FactoryRefusesAnotherInterfaceAndNullPlaces) {
    void* out = this;
    EXPECT_EQ(mLibrary.get_class_object(&kClsidLocalization, &kIidDispatch, &out), LOC_E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(mLibrary.get_class_object(&kClsidLocalization, &kIidClassFactory, nullptr), LOC_E_POINTER);
    EXPECT_EQ(mLibrary.get_class_object(nullptr, &kIidClassFactory, &out), LOC_E_POINTER);
    EXPECT_EQ(mLibrary.get_class_object(&kClsidLocalization, nullptr, &out), LOC_E_POINTER);
}

TEST_F(LanguageLibrary, FactoryRefusesAggregation) {
    IClassFactory* factory = mLibrary.Factory();
    void* out = this;
    EXPECT_EQ(factory->table->CreateInstance(factory, mObject, &kIidUnknown, &out),
              LOC_CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->table->CreateInstance(factory, nullptr, &kIidUnknown, nullptr), LOC_E_POINTER);
    factory->table->Release(factory);
}

TEST_F(LanguageLibrary, AnObjectOfAnUnknownInterfaceIsNotLeftBehind) {
    IClassFactory* factory = mLibrary.Factory();
    void* out = this;
    EXPECT_EQ(factory->table->CreateInstance(factory, nullptr, &kIidClassFactory, &out), LOC_E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    factory->table->Release(factory);
}

TEST_F(LanguageLibrary, AnswersTheSameObjectForItsThreeInterfaces) {
    for (const Guid* iid : {&kIidUnknown, &kIidDispatch, &kIidLocalization}) {
        void* out = nullptr;
        EXPECT_EQ(mObject->table->QueryInterface(mObject, iid, &out), LOC_S_OK);
        EXPECT_EQ(out, mObject);
        EXPECT_EQ(mObject->table->Release(mObject), 1u);
    }
    void* out = this;
    EXPECT_EQ(mObject->table->QueryInterface(mObject, &kIidClassFactory, &out), LOC_E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(mObject->table->QueryInterface(mObject, &kIidUnknown, nullptr), LOC_E_POINTER);
}

TEST_F(LanguageLibrary, CannotBeUnloadedWhileAnObjectAFactoryOrALockIsLeft) {
    Library fresh(KESTRELMOOR_DEFAULT_LOC);
    EXPECT_EQ(fresh.can_unload_now(), LOC_S_FALSE) << "the object of this test is alive";
    EXPECT_EQ(mObject->table->AddRef(mObject), 2u);
    EXPECT_EQ(mObject->table->Release(mObject), 1u);
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_FALSE);
    mObject->table->Release(mObject);
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_OK);

    IClassFactory* factory = mLibrary.Factory();
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_FALSE);
    factory->table->LockServer(factory, 1);
    factory->table->Release(factory);
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_FALSE);
    factory->table->LockServer(factory, 0);
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_OK);
    factory->table->LockServer(factory, 0);
    EXPECT_EQ(mLibrary.can_unload_now(), LOC_S_OK);

    mObject = mLibrary.NewObject();
}

TEST_F(LanguageLibrary, RefusesWordsAheadOfInitialize) {
    LocText text = nullptr;
    std::int16_t number = 7;
    EXPECT_EQ(mObject->table->GetText(mObject, 1001, &text), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(mObject->table->GetPluralText(mObject, 5, 1, &text), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(mObject->table->FontName(mObject, &text), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(mObject->table->HelpFile(mObject, &text), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(mObject->table->LanguageID(mObject, &number), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(mObject->table->FontCharset(mObject, &number), LOC_E_NOT_INITIALIZED);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(number, 7);
}

TEST_F(LanguageLibrary, ServesAnyEnglishUnderTheNumberAskedFor) {
    for (std::int16_t language : {std::int16_t{1033}, std::int16_t{2057}, std::int16_t{3081}}) {
        EXPECT_EQ(Initialize(language), LOC_S_OK);
        std::int16_t served = 0;
        EXPECT_EQ(mObject->table->LanguageID(mObject, &served), LOC_S_OK);
        EXPECT_EQ(served, language);
        EXPECT_EQ(TextOf(1002), u"Cancel");
    }
}

TEST_F(LanguageLibrary, RefusesOtherLanguagesAndKeepsTheOneItHad) {
    ASSERT_EQ(Initialize(2057), LOC_S_OK);
    for (std::int16_t language :
         {std::int16_t{1049}, std::int16_t{1031}, std::int16_t{0}, std::int16_t{-1}}) {
        EXPECT_EQ(Initialize(language), LOC_E_FAIL) << language;
    }
    std::int16_t served = 0;
    EXPECT_EQ(mObject->table->LanguageID(mObject, &served), LOC_S_OK);
    EXPECT_EQ(served, 2057);
}

TEST_F(LanguageLibrary, HoldsOneLanguageAndSaysSoAheadOfInitialize) {
    LocArray* array = nullptr;
    ASSERT_EQ(mObject->table->Languages(mObject, &array), LOC_S_OK);
    EXPECT_EQ(array->dimensions, 1);
    EXPECT_EQ(array->element_size, 2u);
    EXPECT_EQ(array->lower_bound, 1);
    ASSERT_EQ(array->count, 1u);
    EXPECT_EQ(static_cast<std::int16_t*>(array->data)[0], kEnglish);
    LocFreeArray(array);
}

TEST_F(LanguageLibrary, GivesTextsWithTheirPlaceholders) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    EXPECT_EQ(TextOf(1001), u"OK");
    EXPECT_EQ(TextOf(4), u"Your password for %1 expires in %2 %4 and %3 %5.");
    EXPECT_EQ(TextOf(301), u"&Old password:");
    EXPECT_EQ(TextOf(421), u"%1 Settings");
}

TEST_F(LanguageLibrary, EndsLinesAsThePlatformDoes) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    std::u16string usage = TextOf(17);
    for (const char16_t* option : {u"\r\n/f\t", u"\r\n/d file\t", u"\r\n/l code\t", u"\r\n/?\t"}) {
        EXPECT_NE(usage.find(option), std::u16string::npos);
    }
    const std::u16string bad_token = TextOf(10);
    ASSERT_NE(bad_token.find(u'\r'), std::u16string::npos);
    EXPECT_EQ(bad_token.find(u"\r\n\r\n%1\r\n\r\n"), bad_token.find(u'\r'));
}

TEST_F(LanguageLibrary, TextsCarryTheirLengthAndEndWithANul) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    LocText text = nullptr;
    ASSERT_EQ(mObject->table->GetText(mObject, 1002, &text), LOC_S_OK);
    std::uint32_t size = 0;
    std::memcpy(&size, reinterpret_cast<const char*>(text) - sizeof size, sizeof size);
    EXPECT_EQ(size, 12u);
    EXPECT_EQ(text[6], u'\0');
    LocFreeText(text);
}

TEST_F(LanguageLibrary, TheTranslatorsTextsAreEmptyInEnglish) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    for (std::int16_t number : {std::int16_t{204}, std::int16_t{205}, std::int16_t{206}}) {
        EXPECT_EQ(TextOf(number), u"");
    }
}

TEST_F(LanguageLibrary, RefusesNumbersThatItHasNoTextFor) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    for (std::int16_t number : {std::int16_t{0}, std::int16_t{5}, std::int16_t{22}, std::int16_t{1004},
                                std::int16_t{32767}, std::int16_t{-1}}) {
        LocChar junk[] = u"x";
        LocText text = junk;
        EXPECT_EQ(mObject->table->GetText(mObject, number, &text), LOC_E_NO_SUCH_TEXT) << number;
        EXPECT_EQ(text, nullptr);
    }
}

TEST_F(LanguageLibrary, RefusesNumbersThatAreNoNouns) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    for (std::int16_t number : {std::int16_t{1}, std::int16_t{0}, std::int16_t{413}, std::int16_t{-1}}) {
        LocText text = nullptr;
        EXPECT_EQ(mObject->table->GetPluralText(mObject, number, 1, &text), LOC_E_NO_SUCH_NOUN) << number;
        EXPECT_EQ(text, nullptr);
    }
}

TEST_F(LanguageLibrary, NounsFollowTheCountWhateverItsSign) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    EXPECT_EQ(Noun(5, 1), u"day");
    EXPECT_EQ(Noun(5, -1), u"day");
    EXPECT_EQ(Noun(6, 1), u"hour");
    EXPECT_EQ(Noun(329, 1), u"character");
    EXPECT_EQ(Noun(412, 1), u"day");
    for (std::int32_t count :
         {0, 2, 99, 100, 101, 199, 200, 201, 1001, 1000001, -2, std::numeric_limits<std::int32_t>::max(),
          std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(Noun(5, count), u"days") << count;
        EXPECT_EQ(Noun(329, count), u"characters") << count;
    }
}

TEST_F(LanguageLibrary, TheFontFitsTheSystem) {
    LocText font = nullptr;
    ASSERT_EQ(Initialize(kEnglish, kNt4), LOC_S_OK);
    ASSERT_EQ(mObject->table->FontName(mObject, &font), LOC_S_OK);
    EXPECT_EQ(Taken(font), u"MS Shell Dlg");
    ASSERT_EQ(Initialize(kEnglish, 0x25000000), LOC_S_OK);
    ASSERT_EQ(mObject->table->FontName(mObject, &font), LOC_S_OK);
    EXPECT_EQ(Taken(font), u"MS Shell Dlg 2");
    std::int16_t charset = 0;
    EXPECT_EQ(mObject->table->FontCharset(mObject, &charset), LOC_S_OK);
    EXPECT_EQ(charset, 1);
}

TEST_F(LanguageLibrary, NamesItsHelpFileWithoutAFolder) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    LocText help = nullptr;
    ASSERT_EQ(mObject->table->HelpFile(mObject, &help), LOC_S_OK);
    EXPECT_EQ(Taken(help), u"Help-1033.html");
}

TEST_F(LanguageLibrary, RefusesNullPlaces) {
    ASSERT_EQ(Initialize(kEnglish), LOC_S_OK);
    const ILocalizationTable& table = *mObject->table;
    EXPECT_EQ(table.GetText(mObject, 1, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.GetPluralText(mObject, 5, 1, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.LanguageID(mObject, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.Languages(mObject, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.FontName(mObject, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.FontCharset(mObject, nullptr), LOC_E_POINTER);
    EXPECT_EQ(table.HelpFile(mObject, nullptr), LOC_E_POINTER);
}

TEST_F(LanguageLibrary, OffersNoNamesAndNoTypeInformation) {
    const ILocalizationTable& table = *mObject->table;
    std::uint32_t count = 9;
    EXPECT_EQ(table.GetTypeInfoCount(mObject, &count), LOC_S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(table.GetTypeInfoCount(mObject, nullptr), LOC_E_POINTER);
    void* information = this;
    EXPECT_EQ(table.GetTypeInfo(mObject, 0, 0, &information), LOC_DISP_E_BADINDEX);
    EXPECT_EQ(information, nullptr);
    LocChar name[] = u"GetText";
    LocChar* names[] = {name};
    std::int32_t member = 9;
    EXPECT_EQ(table.GetIDsOfNames(mObject, &kIidUnknown, names, 1, 0, &member), LOC_DISP_E_UNKNOWNNAME);
    EXPECT_EQ(member, -1);
    EXPECT_EQ(table.Invoke(mObject, 1, &kIidUnknown, 0, 1, nullptr, nullptr, nullptr, nullptr),
              LOC_DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(table.Reserved(mObject), LOC_E_NOTIMPL);
}

} // namespace
