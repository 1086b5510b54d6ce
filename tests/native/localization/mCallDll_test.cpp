#include "localization/mCallDll.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kDefaultFile[] = u"C:\\Program Files\\Kestrelmoor\\default.loc";
constexpr char16_t kFile[] = u"C:\\Lang\\test.loc";

constexpr abi::Guid kOtherClass{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

class LibraryHost : public ProgramTest {
  protected:
    practice::Library& Put(practice::LibraryKind kind) {
        practice::Library library;
        library.path = kFile;
        library.kind = kind;
        library.script.languages = {1033};
        return world.libraries.Put(library);
    }

    OwnedClassFactory Factory(const String& sPath) {
        return GetClassObjectFromDll(sPath, abi::kClsidLocalization, gLocLibHandle);
    }

    std::uint32_t Refusal(const String& sPath) {
        return static_cast<std::uint32_t>(RaisedNumber([&] { Factory(sPath); }));
    }
};

TEST_F(LibraryHost, TheLibraryIsLoadedAndItsFactoryHandedOut) {
    const OwnedClassFactory factory = Factory(kDefaultFile);
    EXPECT_TRUE(factory);
    EXPECT_NE(gLocLibHandle, 0U);
    EXPECT_EQ(CallsOf({"LoadLibraryExW", "GetProcAddress"}),
              (Lines{R"(LoadLibraryExW("C:\Program Files\Kestrelmoor\default.loc", "0"))",
                     R"(GetProcAddress("DllGetClassObject"))"}));
}

TEST_F(LibraryHost, TheEnglishLibraryOffersItsOperationsThroughTheTable) {
    ILocalization language(Factory(kDefaultFile));
    EXPECT_EQ(language.Languages(), Array<std::int16_t>(1, {1033}));
    language.Initialize(0x25010000, 1033);
    EXPECT_EQ(language.LanguageID(), 1033);
    EXPECT_EQ(language.GetPluralText(5, 1), u"day");
    EXPECT_EQ(language.GetPluralText(5, 2), u"days");
    EXPECT_EQ(language.GetText(15), u"Error %1: %2");
    EXPECT_FALSE(language.FontName().empty());
    EXPECT_FALSE(language.HelpFile().empty());
    EXPECT_LT(RaisedNumber([&] { static_cast<void>(language.GetText(9999)); }), 0);
    EXPECT_LT(RaisedNumber([&] { language.Initialize(0x25010000, 1049); }), 0);
}

TEST_F(LibraryHost, AHandleThatIsThereIsUsedAsItIsAndThePathNotLookedAt) {
    EXPECT_TRUE(Factory(kDefaultFile));
    const platform::ModuleHandle handle = gLocLibHandle;
    EXPECT_TRUE(Factory(u"C:\\Missing\\x.loc"));
    EXPECT_EQ(gLocLibHandle, handle);
    EXPECT_EQ(world.calls.Count("LoadLibraryExW"), 1U);
}

TEST_F(LibraryHost, AMissingFileFailsWithTheSystemsError) {
    EXPECT_EQ(Refusal(u"C:\\Missing\\x.loc"), 0x8007007EU);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, AFileThatIsNoLibraryFailsWithTheSystemsError) {
    Put(practice::LibraryKind::Broken);
    EXPECT_EQ(Refusal(kFile), 0x800700C1U);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, AnOrdinaryLibraryFailsAtItsExportAndStaysLoaded) {
    Put(practice::LibraryKind::Messages);
    EXPECT_EQ(Refusal(kFile), 0x8007007FU);
    EXPECT_NE(gLocLibHandle, 0U);
    EXPECT_EQ(world.calls.Count("FreeLibrary"), 0U);
}

TEST_F(LibraryHost, ALibraryThatLacksTheExportFailsAtIt) {
    Put(practice::LibraryKind::Scripted).lacks = {"DllGetClassObject"};
    EXPECT_EQ(Refusal(kFile), 0x8007007FU);
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, ALibraryWithoutTheClassFailsWithItsOwnResult) {
    EXPECT_EQ(static_cast<std::uint32_t>(
                  RaisedNumber([&] { GetClassObjectFromDll(kDefaultFile, kOtherClass, gLocLibHandle); })),
              0x80040111U);
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, AnExportThatDeniesAccessIsAPermissionError) {
    Put(practice::LibraryKind::Scripted).script.class_result = static_cast<std::int32_t>(0x80070005);
    EXPECT_EQ(Refusal(kFile), 70U);
}

TEST_F(LibraryHost, AFactoryThatMakesNoObjectRaisesItsResultAndLeavesNothingAlive) {
    Put(practice::LibraryKind::Scripted).script.create_result = static_cast<std::int32_t>(0x80004005);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([&] { const ILocalization object(Factory(kFile)); })),
              0x80004005U);
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, AnExportThatSucceedsAndGivesNoFactoryIsAnObjectThatIsNotSet) {
    Put(practice::LibraryKind::Scripted).script.class_result = LOC_S_FALSE;
    EXPECT_EQ(Refusal(kFile), 91U);
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, AFactoryThatSucceedsAndGivesNoObjectIsAnObjectThatIsNotSet) {
    Put(practice::LibraryKind::Scripted).script.create_result = LOC_S_FALSE;
    EXPECT_EQ(RaisedNumber([&] { const ILocalization object(Factory(kFile)); }), 91);
}

TEST_F(LibraryHost, AnObjectThatSucceedsAndGivesNoInterfaceIsAnObjectThatIsNotSet) {
    Put(practice::LibraryKind::Scripted).script.interface_result = LOC_S_FALSE;
    EXPECT_EQ(RaisedNumber([&] { const ILocalization object(Factory(kFile)); }), 91);
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(gLocLibHandle, 0U) << "the object was released";
}

TEST_F(LibraryHost, ALibraryThatCanGoIsFreedAndItsHandleCleared) {
    EXPECT_TRUE(Factory(kDefaultFile));
    world.calls.Clear();
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(gLocLibHandle, 0U);
    EXPECT_EQ(CallsOf({"GetProcAddress", "FreeLibrary"}),
              (Lines{R"(GetProcAddress("DllCanUnloadNow"))", "FreeLibrary()"}));
}

TEST_F(LibraryHost, ALibraryWithLiveObjectsStaysLoaded) {
    Put(practice::LibraryKind::Scripted);
    {
        const ILocalization object(Factory(kFile));
        UnloadDll(gLocLibHandle);
        EXPECT_NE(gLocLibHandle, 0U);
        EXPECT_EQ(world.calls.Count("FreeLibrary"), 0U);
    }
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, TheEnglishLibraryWithALiveObjectStaysLoaded) {
    {
        const ILocalization object(Factory(kDefaultFile));
        UnloadDll(gLocLibHandle);
        EXPECT_NE(gLocLibHandle, 0U);
    }
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, NoHandleIsNothingToUnload) {
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(LibraryHost, ALibraryThatCannotBeAskedWhetherItCanGoRaisesTheSystemsError) {
    Put(practice::LibraryKind::Scripted).lacks = {"DllCanUnloadNow"};
    EXPECT_TRUE(Factory(kFile));
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([] { UnloadDll(gLocLibHandle); })), 0x8007007FU);
    EXPECT_NE(gLocLibHandle, 0U);
}

TEST_F(LibraryHost, TheSameFileLoadedTwiceIsCountedAndLeavesWithTheLast) {
    EXPECT_TRUE(Factory(kDefaultFile));
    platform::ModuleHandle second = 0;
    EXPECT_TRUE(GetClassObjectFromDll(kDefaultFile, abi::kClsidLocalization, second));
    UnloadDll(second);
    EXPECT_EQ(second, 0U);
    EXPECT_TRUE(Factory(u""));
    UnloadDll(gLocLibHandle);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Module), 0U);
}

} // namespace

} // namespace kestrelmoor::tests
