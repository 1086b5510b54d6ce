#include "platform/practice/world/directory_json.h"

#include "platform/practice/world/json_writer.h"

#include <array>

namespace kestrelmoor::practice {

namespace {

/// The kinds of a value, in the order of Variant.
enum class Kind : std::size_t { Empty, Null, Boolean, Integer, Double, Date, Text, Foreign };

constexpr std::array<std::pair<const char*, Kind>, 8> kKinds{{
    {"empty", Kind::Empty},
    {"null", Kind::Null},
    {"boolean", Kind::Boolean},
    {"integer", Kind::Integer},
    {"double", Kind::Double},
    {"date", Kind::Date},
    {"text", Kind::Text},
    {"foreign", Kind::Foreign},
}};

template <class Value>
Variant Required(JsonReader& reader) {
    Value value{};
    reader.Required("value", value);
    return value;
}

Variant ReadValue(JsonReader& reader, Kind kind) {
    switch (kind) {
    case Kind::Empty:
        return {};
    case Kind::Null:
        return NullValue{};
    case Kind::Boolean:
        return Required<bool>(reader);
    case Kind::Integer:
        return Required<std::int32_t>(reader);
    case Kind::Double:
        return Required<double>(reader);
    case Kind::Date:
        return DateValue{std::get<double>(Required<double>(reader))};
    case Kind::Text:
        return Required<String>(reader);
    case Kind::Foreign:
        return ForeignValue{};
    }
    return {};
}

/// Null for a kind that has no value.
struct ValueWriter {
    Json operator()(std::monostate) const { return {}; }
    Json operator()(NullValue) const { return {}; }
    Json operator()(ForeignValue) const { return {}; }
    Json operator()(DateValue value) const { return value.date; }
    Json operator()(const String& value) const { return JsonOfText(value); }
    Json operator()(std::integral auto value) const { return value; }
    Json operator()(double value) const { return value; }
};

} // namespace

void ReadJson(const JsonPlace& place, DirectoryAnswer& answer) {
    JsonReader reader(place);
    reader.Required("name", answer.name);
    reader.Required("member", answer.member);
    if (place.Node().contains("number")) {
        reader.Required("number", answer.number);
        reader.Optional("description", answer.description);
    } else {
        Kind kind = Kind::Empty;
        reader.Choice("kind", kind, kKinds);
        answer.value = ReadValue(reader, kind);
    }
    reader.Finish();
}

Json WriteJson(const DirectoryAnswer& answer) {
    JsonWriter writer;
    writer.Required("name", answer.name);
    writer.Required("member", answer.member);
    if (answer.number != 0) {
        writer.Required("number", answer.number);
        writer.Optional("description", answer.description);
        return writer.Take();
    }
    writer.Choice("kind", static_cast<Kind>(answer.value.index()), kKinds);
    Json object = writer.Take();
    if (Json value = std::visit(ValueWriter(), answer.value); !value.is_null())
        object["value"] = std::move(value);
    return object;
}

} // namespace kestrelmoor::practice
