#pragma once

#include "platform/practice/world/clock.h"
#include "platform/practice/world/json_reader.h"

namespace kestrelmoor::practice {

inline Json WriteJson(const String& value) {
    return JsonOfText(value);
}
inline Json WriteJson(const std::string& value) {
    return value;
}
inline Json WriteJson(const std::set<std::string>& values) {
    return values;
}
template <std::integral Number>
Json WriteJson(Number value) {
    return value;
}

template <class Value>
Json WriteJson(const std::optional<Value>& value) {
    return value ? WriteJson(*value) : Json();
}

template <class Value>
Json WriteJson(const std::vector<Value>& values) {
    Json list = Json::array();
    for (const Value& value : values)
        list.push_back(WriteJson(value));
    return list;
}

inline std::string MemberName(const String& name) {
    return ToUtf8(name);
}
std::string MemberName(std::integral auto name) {
    return std::to_string(name);
}

template <class Name, class Value>
Json WriteJson(const std::map<Name, Value>& values) {
    Json object = Json::object();
    for (const auto& [name, value] : values)
        object[MemberName(name)] = WriteJson(value);
    return object;
}

/// The counterpart of JsonReader: makes one object out of a record's members.
class JsonWriter {
  public:
    template <class Value>
    void Required(const char* name, const Value& value) {
        mObject[name] = WriteJson(value);
    }

    template <class Value>
    void Optional(const char* name, const Value& value, const std::type_identity_t<Value>& standard = {}) {
        if (value != standard)
            Required(name, value);
    }

    void Time(const char* name, const Moment& value) { Required(name, TextOfMoment(value)); }

    template <class Value>
    void Choice(const char* name, const Value& value, std::type_identity_t<ChoiceTable<Value>> table) {
        for (const auto& [word, meaning] : table)
            if (meaning == value)
                mObject[name] = word;
    }

    template <class Value>
    void OptionalChoice(const char* name, const Value& value, std::type_identity_t<ChoiceTable<Value>> table,
                        const std::type_identity_t<Value>& standard) {
        if (value != standard)
            Choice(name, value, table);
    }

    Json Take() { return std::move(mObject); }

  private:
    Json mObject = Json::object();
};

template <class Record>
requires requires(JsonWriter& writer, const Record& record) {
    Members(writer, record);
}
Json WriteJson(const Record& record) {
    JsonWriter writer;
    Members(writer, record);
    return writer.Take();
}

} // namespace kestrelmoor::practice
