#include "languages/localization_abi.h"
#include "platform/automation.h"
#include "platform/modules.h"
#include "platform/practice/world/world.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using practice::Library;
using practice::LibraryKind;

constexpr char16_t kStockLibrary[] = u"C:\\Program Files\\Kestrelmoor\\default.loc";

Library Scripted(const String& path, practice::LanguageScript script) {
    Library library;
    library.path = path;
    library.kind = LibraryKind::Scripted;
    library.script = std::move(script);
    return library;
}

abi::IClassFactory* FactoryOf(platform::ModuleHandle module) {
    const auto entry = platform::GetProcAddress(module, LOC_GET_CLASS_OBJECT_NAME);
    void* factory = nullptr;
    reinterpret_cast<abi::DllGetClassObjectCall>(entry.value)(&abi::kClsidLocalization,
                                                              &abi::kIidClassFactory, &factory);
    return static_cast<abi::IClassFactory*>(factory);
}

abi::ILocalization* ObjectOf(platform::ModuleHandle module) {
    abi::IClassFactory* const factory = FactoryOf(module);
    void* object = nullptr;
    factory->table->CreateInstance(factory, nullptr, &abi::kIidLocalization, &object);
    factory->table->Release(factory);
    return static_cast<abi::ILocalization*>(object);
}

std::int32_t CanUnload(platform::ModuleHandle module) {
    const auto entry = platform::GetProcAddress(module, LOC_CAN_UNLOAD_NOW_NAME);
    return reinterpret_cast<abi::DllCanUnloadNowCall>(entry.value)();
}

TEST(PracticeModules, LibraryOfThisComputerStandsBehindAPathOfTheWorld) {
    practice::ScopedWorld world;
    const platform::OwnedModule module(platform::LoadLibraryExW(kStockLibrary, 0).value);
    ASSERT_TRUE(module);
    abi::ILocalization* const object = ObjectOf(module.Get());
    EXPECT_EQ(object->table->Initialize(object, 0x25010000, 1033), LOC_S_OK);
    EXPECT_EQ(CanUnload(module.Get()), LOC_S_FALSE);
    object->table->Release(object);
    EXPECT_EQ(CanUnload(module.Get()), LOC_S_OK);
}

TEST(PracticeModules, SameFileTwiceIsCountedOnceMore) {
    practice::ScopedWorld world;
    const auto first = platform::LoadLibraryExW(kStockLibrary, 0);
    const auto second = platform::LoadLibraryExW(u"c:\\program files\\kestrelmoor\\DEFAULT.LOC", 0);
    EXPECT_EQ(first.value, second.value);
    platform::FreeLibrary(first.value);
    EXPECT_EQ(world.OutstandingHandles(), 1U);
    platform::FreeLibrary(second.value);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST(PracticeModules, MissingLibraryAndFileThatIsNoneAreDifferentErrors) {
    practice::ScopedWorld world;
    EXPECT_EQ(platform::LoadLibraryExW(u"C:\\none.loc", 0).last_error, 126U);
    EXPECT_EQ(platform::LoadLibraryExW(u"C:\\Program Files\\Kestrelmoor\\Moorlink.exe", 0).last_error, 193U);
    Library broken;
    broken.path = u"C:\\broken.loc";
    broken.kind = LibraryKind::Broken;
    world.libraries.Put(broken);
    const auto loaded = platform::LoadLibraryExW(u"C:\\broken.loc", 0);
    EXPECT_EQ(loaded.value, 0U);
    EXPECT_EQ(loaded.last_error, 193U);
}

TEST(PracticeModules, ExportThatIsLackedHasNoAddress) {
    practice::ScopedWorld world;
    Library library = Scripted(u"C:\\x.loc", {});
    library.lacks = {LOC_GET_CLASS_OBJECT_NAME};
    world.libraries.Put(library);
    const platform::OwnedModule module(platform::LoadLibraryExW(u"C:\\x.loc", 0).value);
    const auto entry = platform::GetProcAddress(module.Get(), LOC_GET_CLASS_OBJECT_NAME);
    EXPECT_EQ(entry.value, nullptr);
    EXPECT_EQ(entry.last_error, 127U);
    EXPECT_NE(platform::GetProcAddress(module.Get(), LOC_CAN_UNLOAD_NOW_NAME).value, nullptr);
}

TEST(PracticeModules, ScriptedLibraryServesItsLanguagesAndAnswersAsTold) {
    practice::ScopedWorld world;
    practice::LanguageScript script;
    script.languages = {1031, 1049};
    script.answers = 1049;
    world.libraries.Put(Scripted(u"C:\\x.loc", script));
    const platform::OwnedModule module(platform::LoadLibraryExW(u"C:\\x.loc", 0).value);
    abi::ILocalization* const object = ObjectOf(module.Get());
    EXPECT_LT(object->table->Initialize(object, 0, 1033), 0);
    EXPECT_EQ(object->table->Initialize(object, 0, 1031), LOC_S_OK);
    std::int16_t language = 0;
    object->table->LanguageID(object, &language);
    EXPECT_EQ(language, 1049);
    abi::LocArray* languages = nullptr;
    object->table->Languages(object, &languages);
    EXPECT_EQ(platform::TakeNumbers(languages), Array<std::int16_t>(1, {1031, 1049}));
    abi::LocText text = nullptr;
    object->table->GetText(object, 303, &text);
    EXPECT_EQ(platform::TakeText(text), u"text 303");
    EXPECT_EQ(CanUnload(module.Get()), LOC_S_FALSE);
    object->table->Release(object);
    EXPECT_EQ(CanUnload(module.Get()), LOC_S_OK);
}

TEST(PracticeModules, ScriptedLibraryFailsWhereItIsTold) {
    practice::ScopedWorld world;
    practice::LanguageScript script;
    script.create_result = LOC_E_OUTOFMEMORY;
    world.libraries.Put(Scripted(u"C:\\create.loc", script));
    script.class_result = LOC_E_FAIL;
    world.libraries.Put(Scripted(u"C:\\class.loc", script));
    const platform::OwnedModule create(platform::LoadLibraryExW(u"C:\\create.loc", 0).value);
    EXPECT_EQ(ObjectOf(create.Get()), nullptr);
    const platform::OwnedModule no_class(platform::LoadLibraryExW(u"C:\\class.loc", 0).value);
    EXPECT_EQ(FactoryOf(no_class.Get()), nullptr);
}

TEST(PracticeModules, ScriptedLibraryGivesNothingWhereItIsTold) {
    practice::ScopedWorld world;
    practice::LanguageScript script;
    script.interface_result = LOC_S_FALSE;
    world.libraries.Put(Scripted(u"C:\\x.loc", script));
    const platform::OwnedModule module(platform::LoadLibraryExW(u"C:\\x.loc", 0).value);
    abi::IClassFactory* const factory = FactoryOf(module.Get());
    void* unknown = nullptr;
    ASSERT_EQ(factory->table->CreateInstance(factory, nullptr, &abi::kIidUnknown, &unknown), LOC_S_OK);
    factory->table->Release(factory);
    auto* const object = static_cast<abi::ILocalization*>(unknown);
    void* place = &world;
    EXPECT_EQ(object->table->QueryInterface(object, &abi::kIidLocalization, &place), LOC_S_FALSE);
    EXPECT_EQ(place, &world);
    EXPECT_EQ(object->table->Release(object), 0U);
}

TEST(PracticeModules, NullTextAndArrayAreEmpty) {
    EXPECT_EQ(platform::TakeText(nullptr), u"");
    EXPECT_FALSE(platform::TakeNumbers(nullptr).HasStorage());
}

} // namespace
} // namespace kestrelmoor
