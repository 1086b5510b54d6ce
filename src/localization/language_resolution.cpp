#include "localization/language_resolution.h"

#include "localization/library_files.h"
#include "localization/mCallDll.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/process.h"
#include "platform/user_language.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/mRegistry.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::int16_t kEnglish = 0x409;

// The only words that are fixed in the program: no library may be there to give others.
constexpr char16_t kNotFound[] = u"Localization library not found.";
constexpr char16_t kLoadFailed[] = u"Error loading localization library.";
constexpr char16_t kInitializeFailed[] = u"Error initializing localization library.";

bool Fail(const char16_t* sText) {
    platform::MessageBoxW(sText, platform::kBoxExclamation, platform::kProgramTitle);
    return true;
}

std::int16_t AutomaticLanguage() {
    const std::uint16_t language = gWinVersion >= kWindows2000
                                       ? platform::GetUserDefaultUILanguage()
                                       : static_cast<std::uint16_t>(platform::GetThreadLocale() & 0xFFFF);
    return language == 0 ? kEnglish : static_cast<std::int16_t>(language);
}

String LibraryFileOf(std::int16_t nLang) {
    const String number = DecimalText(nLang);
    RegistryValue configured;
    if (OwnedRegistryKey key = OpenRegistryKey(platform::kLocalMachine, kLocFiles, platform::kKeyRead))
        configured = GetRegistryKeyValue(key, number);
    const auto* name = std::get_if<String>(&configured);
    const String file = name != nullptr ? *name : number + u".loc";
    return file.find(u'\\') == String::npos ? InProgramFolder(file) : file;
}

void BringUp(const String& sFile) {
    try {
        if (gLocLibHandle != 0) {
            UnloadDll(gLocLibHandle);
            gLocLibHandle = 0;
        }
    } catch (const RuntimeError&) {
        // A library that can't be asked stays in the process, unreachable and harmless.
        gLocLibHandle = 0;
    }
    try {
        const OwnedClassFactory factory =
            GetClassObjectFromDll(sFile, abi::kClsidLocalization, gLocLibHandle);
        gLocalizer = std::make_unique<ILocalization>(factory);
    } catch (const RuntimeError&) {
        gLocalizer = nullptr;
    }
}

bool Initialized(std::int16_t nLang) {
    try {
        gLocalizer->Initialize(gWinVersion, nLang);
        return true;
    } catch (const RuntimeError&) {
        gLocalizer = nullptr;
        return false;
    }
}

} // namespace

bool LoadLocalization(std::int16_t nLang) {
    const bool automatic = nLang == 0;
    if (automatic)
        nLang = AutomaticLanguage();
    String file = LibraryFileOf(nLang);
    if (!IsFile(file)) {
        file = InProgramFolder(kDefaultLibrary);
        if (!IsFile(file))
            return Fail(kNotFound);
    }
    BringUp(file);
    if (gLocalizer == nullptr)
        return Fail(kLoadFailed);
    if (Initialized(nLang))
        return false;
    if (nLang == kEnglish)
        return Fail(kInitializeFailed);
    return LoadLocalization(automatic ? kEnglish : std::int16_t{0});
}

void FindHelpFile() {
    gHelpFile = InProgramFolder(gLocalizer->HelpFile());
    try {
        platform::GetFileAttributesW(gHelpFile);
    } catch (const RuntimeError&) {
        gHelpFile.clear();
    }
}

} // namespace kestrelmoor
