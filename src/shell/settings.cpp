#include "shell/settings.h"

#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/mRegistry.h"
#include "shell/program_state.h"

#include <limits>
#include <utility>

namespace kestrelmoor {

namespace {

constexpr char16_t kSettingsKey[] = u"Software\\Orvane\\Kestrelmoor";
constexpr char16_t kRunKey[] = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char16_t kRunValue[] = u"Kestrelmoor";
constexpr std::int32_t kSyncLocalOption = 2;

OwnedRegistryKey OpenForReading(const char16_t* sSubKey) {
    return OpenRegistryKey(platform::kCurrentUser, sSubKey, platform::kKeyRead);
}

OwnedRegistryKey OpenForWriting(const char16_t* sSubKey) {
    std::uint32_t disposition = 0;
    return OpenRegistryKey(platform::kCurrentUser, sSubKey, platform::kKeyWrite, true, disposition);
}

std::int32_t IntegerOr(const RegistryValue& value, std::int32_t fallback) {
    const auto* integer = std::get_if<std::int32_t>(&value);
    return integer != nullptr ? *integer : fallback;
}

void LoadServers(const OwnedRegistryKey& key) {
    RegistryValue value = GetRegistryKeyValue(key, u"Servers");
    auto* list = std::get_if<Array<String>>(&value);
    if (list == nullptr)
        return;
    if (!list->HasStorage()) {
        gServerCount = 0;
        return;
    }
    gServers = Array<String>(1, std::move(*list).Elements());
    gServerCount = Integer16(gServers.UpperBound());
}

void LoadActiveBits(const OwnedRegistryKey& key) {
    if (gServerCount == 0)
        return;
    const RegistryValue value = GetRegistryKeyValue(key, u"Active");
    const auto* bytes = std::get_if<Bytes>(&value);
    gActiveBits = bytes != nullptr ? Bytes(1, bytes->Elements()) : Bytes();
    gActiveBits.Redim(1, gServerCount);
}

/// One statement of the saving: what it can't write is told, and the next one goes on.
template <class Value>
void Store(const OwnedRegistryKey& key, const String& sName, const Value& value) {
    try {
        LetRegistryKeyValue(key, sName, value);
    } catch (const RuntimeError& error) {
        platform::MessageBoxW(error.description(), platform::kBoxExclamation, platform::kProgramTitle);
    }
}

RegistryValue IntegerUnless(bool is_default, std::int32_t value) {
    return is_default ? RegistryValue() : RegistryValue(value);
}

void StoreSettings(const OwnedRegistryKey& key) {
    const bool any = gServerCount != 0;
    if (any)
        Store(key, u"Servers", gServers);
    else
        Store(key, u"Servers", RegistryValue());
    Store(key, u"Active", any ? RegistryValue(gActiveBits) : RegistryValue());
    Store(key, u"ReminderTime", IntegerUnless(gReminderTime == kDefaultReminderTime, gReminderTime));
    Store(key, u"Options", IntegerUnless(gSyncLocal, 0));
    Store(key, u"LangID", IntegerUnless(gLangID == 0, gLangID));
}

} // namespace

std::int16_t LoadLangID() {
    const OwnedRegistryKey key = OpenForReading(kSettingsKey);
    if (!key)
        return 0;
    const std::int32_t number = IntegerOr(GetRegistryKeyValue(key, u"LangID"), 0);
    const bool fits = number >= std::numeric_limits<std::int16_t>::min() &&
                      number <= std::numeric_limits<std::int16_t>::max();
    return fits ? static_cast<std::int16_t>(number) : std::int16_t{0};
}

void LoadSettings() {
    if (OwnedRegistryKey key = OpenForReading(kSettingsKey)) {
        LoadServers(key);
        LoadActiveBits(key);
        gReminderTime = IntegerOr(GetRegistryKeyValue(key, u"ReminderTime"), kDefaultReminderTime);
        gSyncLocal =
            (IntegerOr(GetRegistryKeyValue(key, u"Options"), kSyncLocalOption) & kSyncLocalOption) != 0;
        CloseRegistryKey(key);
    } else {
        gReminderTime = kDefaultReminderTime;
        gSyncLocal = true;
    }
    const OwnedRegistryKey run_key = OpenForReading(kRunKey);
    gAutoStart = run_key && std::holds_alternative<String>(GetRegistryKeyValue(run_key, kRunValue));
}

void SaveSettings() {
    if (const OwnedRegistryKey key = OpenForWriting(kSettingsKey))
        StoreSettings(key);
    const OwnedRegistryKey run_key = OpenForWriting(kRunKey);
    if (!run_key)
        return;
    const String program = AddBackslash(platform::ProgramFolder()) + platform::ProgramBaseName() + u".exe";
    Store(run_key, kRunValue, gAutoStart ? RegistryValue(program) : RegistryValue());
}

bool GetBit(std::int32_t nIndex) {
    return (gActiveBits[nIndex / 8 + 1] >> (nIndex % 8) & 1) != 0;
}

void SetBit(std::int32_t nIndex, bool bValue) {
    std::uint8_t& byte = gActiveBits[nIndex / 8 + 1];
    const auto mask = static_cast<std::uint8_t>(1U << (nIndex % 8));
    byte = static_cast<std::uint8_t>(bValue ? byte | mask : byte & ~mask);
}

} // namespace kestrelmoor
