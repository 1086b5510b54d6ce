#pragma once

#include "platform/practice/world/clock.h"
#include "platform/practice/world/json_text.h"

#include <concepts>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kestrelmoor::practice {

/// Something that does not fit, and where: "/network/computers/0/name".
struct JsonDefect {
    std::string pointer;
    std::string what;
};

/// A name in the file for a value of an enumeration.
template <class Value>
using ChoiceTable = std::span<const std::pair<const char*, Value>>;

/// One value of the file with its place. Each reading raises JsonDefect where the value is of another kind
/// or out of range.
class JsonPlace {
  public:
    JsonPlace(const Json& node, std::string pointer) : mNode(node), mPointer(std::move(pointer)) {}

    const Json& Node() const { return mNode; }
    const std::string& Pointer() const { return mPointer; }
    [[noreturn]] void Refuse(const std::string& what) const { throw JsonDefect{mPointer, what}; }

    JsonPlace Member(const std::string& name) const { return {mNode.at(name), mPointer + "/" + name}; }
    JsonPlace Element(std::size_t index) const {
        return {mNode.at(index), mPointer + "/" + std::to_string(index)};
    }
    void NeedObject() const;
    void NeedArray() const;

    /// A text, or the list of its UTF-16 units where no JSON text can hold it.
    String Text() const;
    std::string Utf8() const;
    bool Truth() const;
    std::int64_t Whole(std::int64_t least, std::int64_t greatest) const;
    double Number() const;

  private:
    const Json& mNode;
    std::string mPointer;
};

class JsonReader;

inline void ReadJson(const JsonPlace& place, String& value) {
    value = place.Text();
}
inline void ReadJson(const JsonPlace& place, std::string& value) {
    value = place.Utf8();
}
inline void ReadJson(const JsonPlace& place, bool& value) {
    value = place.Truth();
}
inline void ReadJson(const JsonPlace& place, double& value) {
    value = place.Number();
}

template <std::integral Number>
void ReadJson(const JsonPlace& place, Number& value) {
    constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
    using Limits = std::numeric_limits<Number>;
    const auto most =
        std::cmp_greater(Limits::max(), greatest) ? greatest : static_cast<std::int64_t>(Limits::max());
    value = static_cast<Number>(place.Whole(static_cast<std::int64_t>(Limits::min()), most));
}

template <class Value>
void ReadJson(const JsonPlace& place, std::optional<Value>& value) {
    ReadJson(place, value.emplace());
}

template <class Value>
void ReadJson(const JsonPlace& place, std::vector<Value>& values) {
    place.NeedArray();
    values.clear();
    for (std::size_t i = 0; i < place.Node().size(); ++i) {
        Value value{};
        ReadJson(place.Element(i), value);
        values.push_back(std::move(value));
    }
}

inline void ReadJson(const JsonPlace& place, std::set<std::string>& values) {
    std::vector<std::string> list;
    ReadJson(place, list);
    values = std::set<std::string>(list.begin(), list.end());
}

template <class Value>
void ReadJson(const JsonPlace& place, std::map<String, Value>& values) {
    place.NeedObject();
    values.clear();
    for (const auto& [name, node] : place.Node().items())
        ReadJson(JsonPlace(node, place.Pointer() + "/" + name), values[FromUtf8(name)]);
}

/// A number that names a member.
std::uint32_t NumberOfMember(const JsonPlace& place, const std::string& name);

template <std::integral Number, class Value>
void ReadJson(const JsonPlace& place, std::map<Number, Value>& values) {
    place.NeedObject();
    values.clear();
    for (const auto& [name, node] : place.Node().items()) {
        const JsonPlace member(node, place.Pointer() + "/" + name);
        ReadJson(member, values[static_cast<Number>(NumberOfMember(member, name))]);
    }
}

/// Reads the members of one object; see world_members.h for what they are.
class JsonReader {
  public:
    explicit JsonReader(const JsonPlace& place) : mPlace(place) { place.NeedObject(); }

    template <class Value>
    void Required(const char* name, Value& value) {
        if (!Known(name))
            mPlace.Refuse(std::string("the member \"") + name + "\" is missing");
        ReadJson(mPlace.Member(name), value);
    }

    /// A member that is left out has its standard value.
    template <class Value>
    void Optional(const char* name, Value& value, const std::type_identity_t<Value>& standard = {}) {
        if (Known(name))
            ReadJson(mPlace.Member(name), value);
        else
            value = standard;
    }

    void Time(const char* name, Moment& value);

    template <class Value>
    void Choice(const char* name, Value& value, std::type_identity_t<ChoiceTable<Value>> table) {
        String chosen;
        Required(name, chosen);
        for (const auto& [word, meaning] : table)
            if (FromUtf8(word) == chosen) {
                value = meaning;
                return;
            }
        mPlace.Member(name).Refuse(Json(ToUtf8(chosen)).dump() + " is none of the words that can stand here");
    }

    template <class Value>
    void OptionalChoice(const char* name, Value& value, std::type_identity_t<ChoiceTable<Value>> table,
                        const std::type_identity_t<Value>& standard) {
        if (Known(name))
            Choice(name, value, table);
        else
            value = standard;
    }

    /// Refuses the members that nobody asked for.
    void Finish() const;

  private:
    bool Known(const char* name) {
        mKnown.insert(name);
        return mPlace.Node().contains(name);
    }

    const JsonPlace& mPlace;
    std::set<std::string> mKnown;
};

/// A record whose members are listed.
template <class Record>
requires requires(JsonReader& reader, Record& record) {
    Members(reader, record);
}
void ReadJson(const JsonPlace& place, Record& record) {
    JsonReader reader(place);
    Members(reader, record);
    reader.Finish();
}

} // namespace kestrelmoor::practice
