#include "platform/practice/world/registry_json.h"

#include "platform/practice/world/json_writer.h"
#include "platform/practice/world/names.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kestrelmoor::practice {

namespace {

constexpr std::array<std::pair<const char*, std::uint32_t>, 8> kTypes{{
    {"REG_NONE", 0},
    {"REG_SZ", 1},
    {"REG_EXPAND_SZ", 2},
    {"REG_BINARY", 3},
    {"REG_DWORD", 4},
    {"REG_DWORD_BIG_ENDIAN", 5},
    {"REG_LINK", 6},
    {"REG_MULTI_SZ", 7},
}};

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kDword = 4;
constexpr std::uint32_t kMultiString = 7;

std::string HexOf(const Bytes& data) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : data) {
        text += text.empty() ? "" : " ";
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

struct HexBytes {
    Bytes data;
};

void ReadJson(const JsonPlace& place, HexBytes& bytes) {
    const String text = place.Text();
    bytes.data.clear();
    if (text.empty())
        return;
    for (const String& piece : Split(text, u' ')) {
        const std::string digits = ToUtf8(piece);
        std::uint8_t byte = 0;
        const char* const end = digits.data() + digits.size();
        const auto [stop, failure] = std::from_chars(digits.data(), end, byte, 16);
        if (digits.size() != 2 || failure != std::errc() || stop != end)
            place.Refuse("bytes such as \"0A FF\" are needed here");
        bytes.data.push_back(byte);
    }
}

String WholeTextIn(const Bytes& data) {
    String text;
    for (std::size_t i = 0; i + 1 < data.size(); i += 2)
        text.push_back(static_cast<char16_t>(data[i] | data[i + 1] << 8));
    return text;
}

/// The friendly form of the data, where putting it back gives the same bytes.
void WriteData(const RegistryValue& value, Json& object) {
    const String text = WholeTextIn(value.data);
    if ((value.type == kString || value.type == kExpandString) && TextData(TrimAtNul(text)) == value.data)
        object["text"] = JsonOfText(TrimAtNul(text));
    else if (value.type == kDword && value.data.size() == 4)
        object["number"] = text[0] | static_cast<std::uint32_t>(text[1]) << 16;
    else if (value.type == kMultiString && text.size() >= 2 &&
             TextsData(Split(text.substr(0, text.size() - 2), 0)) == value.data)
        object["texts"] = WriteJson(Split(text.substr(0, text.size() - 2), 0));
    else
        object["bytes"] = HexOf(value.data);
}

Bytes ReadData(JsonReader& reader, const JsonPlace& place, std::uint32_t type) {
    if (place.Node().contains("bytes")) {
        HexBytes bytes;
        reader.Required("bytes", bytes);
        return bytes.data;
    }
    if (type == kString || type == kExpandString) {
        String text;
        reader.Required("text", text);
        return TextData(text);
    }
    if (type == kDword) {
        std::uint32_t number = 0;
        reader.Required("number", number);
        return NumberData(number);
    }
    if (type == kMultiString) {
        StringList texts;
        reader.Required("texts", texts);
        return TextsData(texts);
    }
    place.Refuse("the member \"bytes\" is missing");
}

bool OnlyLeadsOn(const RegistryTree& tree, const RegistryKey& key) {
    if (!key.values.empty() || key.refuses_reading || key.refuses_writing)
        return false;
    const String head = FoldName(key.path) + u"\\";
    return std::any_of(tree.Keys().begin(), tree.Keys().end(),
                       [&](const auto& entry) { return entry.first.starts_with(head); });
}

} // namespace

void ReadJson(const JsonPlace& place, RegistryValue& value) {
    JsonReader reader(place);
    reader.Required("name", value.name);
    reader.Choice("type", value.type, kTypes);
    value.data = ReadData(reader, place, value.type);
    reader.Finish();
}

Json WriteJson(const RegistryValue& value) {
    JsonWriter writer;
    writer.Required("name", value.name);
    writer.Choice("type", value.type, kTypes);
    Json object = writer.Take();
    WriteData(value, object);
    return object;
}

void ReadJson(const JsonPlace& place, RegistryTree& tree) {
    place.NeedArray();
    for (std::size_t i = 0; i < place.Node().size(); ++i) {
        const JsonPlace element = place.Element(i);
        JsonReader reader(element);
        String path;
        reader.Required("key", path);
        RegistryKey& key = tree.Create(path);
        reader.Optional("refuses_reading", key.refuses_reading);
        reader.Optional("refuses_writing", key.refuses_writing);
        reader.Optional("values", key.values);
        reader.Finish();
    }
}

Json WriteJson(const RegistryTree& tree) {
    Json list = Json::array();
    for (const auto& [name, key] : tree.Keys()) {
        if (OnlyLeadsOn(tree, key))
            continue;
        JsonWriter writer;
        writer.Required("key", key.path);
        writer.Optional("refuses_reading", key.refuses_reading);
        writer.Optional("refuses_writing", key.refuses_writing);
        writer.Optional("values", key.values);
        list.push_back(writer.Take());
    }
    return list;
}

} // namespace kestrelmoor::practice
