#include "localization/language_resolution.h"
#include "localization/library_files.h"
#include "localization/mCallDll.h"
#include "runtime/errors.h"
#include "shell/mRegistry.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "tests/fuzz/support.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kestrelmoor::fuzz {

namespace {

namespace type = platform::registry_type;

constexpr char16_t kSettings[] = u"Software\\Orvane\\Kestrelmoor";
constexpr char16_t kRunKey[] = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char16_t kLanguage[] = u"1031";
constexpr std::uint32_t kReadAndWrite = platform::kKeyRead | platform::kKeyWrite;
constexpr std::size_t kExpandedLength = 260;
constexpr std::int32_t kListTooShort = error_number::kInvalidArgument;

/// Where the program reads a value: five settings, the start at logon, a language's file.
struct Place {
    std::uint32_t hive;
    const char16_t* key;
    const char16_t* name;
};

constexpr std::array<Place, 7> kPlaces{{
    {platform::kCurrentUser, kSettings, u"Servers"},
    {platform::kCurrentUser, kSettings, u"Active"},
    {platform::kCurrentUser, kSettings, u"ReminderTime"},
    {platform::kCurrentUser, kSettings, u"Options"},
    {platform::kCurrentUser, kSettings, u"LangID"},
    {platform::kCurrentUser, kRunKey, u"Kestrelmoor"},
    {platform::kLocalMachine, kLocFiles, kLanguage},
}};

struct Stored {
    const Place* place = nullptr;
    std::uint32_t type = 0;
    std::vector<std::uint8_t> data;
};

String PathOf(const Place& place) {
    return practice::RegistryTree::HiveName(place.hive) + u"\\" + place.key;
}

practice::RegistryKey& KeyOf(const Place& place) {
    return *practice::TheWorld().registry.Find(PathOf(place));
}

/// Each of the places without its value, so that it can be opened.
practice::RegistryTree EmptyKeys() {
    practice::RegistryTree keys;
    for (const Place& place : kPlaces)
        keys.Create(PathOf(place));
    return keys;
}

/// Of each place the value that comes last.
std::vector<Stored> ValuesIn(Input input) {
    std::vector<Stored> values;
    while (!input.AtEnd()) {
        Stored value;
        value.place = &kPlaces[input.Byte() % kPlaces.size()];
        value.type = input.Byte();
        const InputBytes data = input.Take(input.Number16());
        value.data.assign(data.begin(), data.end());
        std::erase_if(values, [&](const Stored& other) { return other.place == value.place; });
        values.push_back(std::move(value));
    }
    return values;
}

void Store(const std::vector<Stored>& values) {
    static const practice::RegistryTree empty_keys = EmptyKeys();
    practice::TheWorld().registry = empty_keys;
    for (const Stored& value : values)
        KeyOf(*value.place).Set(value.place->name, value.type, value.data);
}

bool IsText(std::uint32_t nType) {
    return nType == type::kString || nType == type::kExpandString || nType == type::kMultiString;
}

/// A list without room for its own terminators.
bool IsTooShort(const Stored& stored) {
    return stored.type == type::kMultiString && stored.data.size() / sizeof(char16_t) == 1;
}

bool HasKind(std::uint32_t nType) {
    return IsText(nType) || nType == type::kBinary || nType == type::kDword;
}

/// Nothing where the layer raises.
std::optional<RegistryValue> Read(const OwnedRegistryKey& key, const String& name) {
    try {
        return GetRegistryKeyValue(key, name);
    } catch (const RuntimeError& error) {
        Require(error.number() == kListTooShort);
        return std::nullopt;
    }
}

void CheckText(const Stored& stored, const RegistryValue& value) {
    const String whole = Utf16(stored.data);
    const StringView text = StringView(whole).substr(0, whole.size() - 1);
    if (const auto* list = std::get_if<Array<String>>(&value)) {
        Require(stored.type == type::kMultiString && (!list->HasStorage() || list->LowerBound() == 0));
        Require(Join(list->Elements(), u'\0') == text.substr(0, text.size() - 1));
    } else if (stored.type == type::kString) {
        Require(std::get<String>(value) == text);
    } else {
        const auto& expanded = std::get<String>(value);
        Require(expanded.size() <= kExpandedLength && expanded.find(u'\0') == String::npos);
        Require(text.find(u'%') != StringView::npos ||
                expanded == TrimAtNul(text.substr(0, kExpandedLength)));
    }
}

void CheckValue(const Stored& stored, const RegistryValue& value) {
    const auto* integer = std::get_if<std::int32_t>(&value);
    const auto* bytes = std::get_if<Bytes>(&value);
    const std::size_t size = stored.data.size();
    const std::size_t least = IsText(stored.type) ? sizeof(char16_t) : 1;
    const bool too_long = stored.type == type::kDword && size > sizeof(std::int32_t);
    if (!HasKind(stored.type) || size < least || too_long) {
        Require(std::holds_alternative<std::monostate>(value));
    } else if (IsText(stored.type)) {
        CheckText(stored, value);
    } else if (stored.type == type::kDword) {
        std::uint32_t number = 0;
        for (std::size_t i = size; i > 0; --i)
            number = number << 8 | stored.data[i - 1];
        Require(integer != nullptr && *integer == static_cast<std::int32_t>(number));
    } else {
        Require(bytes != nullptr && bytes->Elements() == stored.data && bytes->LowerBound() == 0);
    }
}

/// What has been read is the same when it is written and read once more.
void CheckRoundTrip(const RegistryValue& value) {
    std::uint32_t disposition = 0;
    const OwnedRegistryKey key =
        OpenRegistryKey(platform::kCurrentUser, u"Software\\Other", kReadAndWrite, true, disposition);
    LetRegistryKeyValue(key, u"Value", value);
    Require(GetRegistryKeyValue(key, u"Value") == value);
}

void CheckEach(const std::vector<Stored>& values) {
    for (const Stored& stored : values) {
        const OwnedRegistryKey key =
            OpenRegistryKey(stored.place->hive, stored.place->key, platform::kKeyRead);
        const std::optional<RegistryValue> value = Read(key, stored.place->name);
        Require(value.has_value() != IsTooShort(stored));
        if (value) {
            CheckValue(stored, *value);
            CheckRoundTrip(*value);
        }
    }
}

/// All names of a key but the first, each with the kind that its value is read as.
void CheckNames() {
    const OwnedRegistryKey key = OpenRegistryKey(platform::kCurrentUser, kSettings, platform::kKeyRead);
    const auto& values = KeyOf(kPlaces[0]).values;
    Array<RegistryKind> kinds;
    const Array<String> names = EnumRegistryValues(key, &kinds);
    Require(names.Elements().size() == std::max<std::size_t>(values.size(), 1) - 1);
    Require(kinds.Elements().size() == names.Elements().size());
    for (std::size_t i = 1; i < values.size(); ++i) {
        const auto index = static_cast<std::int32_t>(i);
        Require(names[index] == values[i].name);
        Require((kinds[index] == RegistryKind::kError) != HasKind(values[i].type));
    }
}

/// The settings as they are in memory; the bits only as far as they belong to a server.
struct Settings {
    std::vector<String> servers;
    std::vector<bool> active;
    std::int32_t reminder;
    bool sync_local;
    bool auto_start;
    std::int16_t language;

    bool operator==(const Settings&) const = default;
};

Settings Loaded() {
    gLangID = LoadLangID();
    LoadSettings();
    Settings settings{{}, {}, gReminderTime, gSyncLocal, gAutoStart, gLangID};
    Require(gServerCount >= 0);
    if (gServerCount > 0) {
        Require(gServers.LowerBound() == 1 && gServers.UpperBound() == gServerCount);
        Require(gActiveBits.LowerBound() == 1 && gActiveBits.UpperBound() == gServerCount);
        settings.servers = gServers.Elements();
    }
    for (std::int32_t i = 0; i < gServerCount; ++i)
        settings.active.push_back(GetBit(i));
    return settings;
}

void CheckSettings(bool any_too_short) {
    try {
        const Settings settings = Loaded();
        SaveSettings();
        gServers = {};
        gServerCount = 0;
        gActiveBits = {};
        Require(Loaded() == settings);
    } catch (const RuntimeError& error) {
        Require(error.number() == kListTooShort && any_too_short);
    }
}

/// A language library beside the program that needs no file of this computer.
void PutLibrary() {
    practice::Library library;
    library.path = u"C:\\Program Files\\Kestrelmoor\\default.loc";
    library.kind = practice::LibraryKind::Scripted;
    library.script.accepts_any = true;
    practice::TheWorld().libraries.Put(std::move(library));
}

/// Whatever names the language's file, the program has a language or has told that it has none.
void CheckLanguage(bool too_short) {
    PutLibrary();
    gLocalizer = nullptr;
    practice::World& world = practice::TheWorld();
    world.boxes = {};
    bool told = false;
    try {
        told = LoadLocalization(1031);
    } catch (const RuntimeError& error) {
        Require(error.number() == kListTooShort && too_short);
    }
    Require(told == (world.boxes.All().size() == 1));
    Require(told || too_short || gLocalizer != nullptr);
    gLocalizer = nullptr;
    UnloadDll(gLocLibHandle);
}

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are values: place, type, two bytes of length, data.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor::fuzz;
    Run run;
    const std::vector<Stored> values = ValuesIn(Input({data, size}));
    Store(values);
    CheckEach(values);
    CheckNames();
    for (const Stored& stored : values)
        if (stored.place == &kPlaces.back())
            CheckLanguage(IsTooShort(stored));
    CheckSettings(std::any_of(values.begin(), values.end(), IsTooShort));
    return 0;
}
