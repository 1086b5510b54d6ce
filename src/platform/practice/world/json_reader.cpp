#include "platform/practice/world/json_reader.h"

#include <charconv>

namespace kestrelmoor::practice {

void JsonPlace::NeedObject() const {
    if (!mNode.is_object())
        Refuse("an object is needed here, not " + std::string(mNode.type_name()));
}

void JsonPlace::NeedArray() const {
    if (!mNode.is_array())
        Refuse("a list is needed here, not " + std::string(mNode.type_name()));
}

String JsonPlace::Text() const {
    if (mNode.is_array()) {
        String text;
        for (std::size_t i = 0; i < mNode.size(); ++i)
            text.push_back(static_cast<char16_t>(Element(i).Whole(0, 0xFFFF)));
        return text;
    }
    return FromUtf8(Utf8());
}

std::string JsonPlace::Utf8() const {
    if (!mNode.is_string())
        Refuse("a text is needed here, not " + std::string(mNode.type_name()));
    return mNode.get<std::string>();
}

bool JsonPlace::Truth() const {
    if (!mNode.is_boolean())
        Refuse("true or false is needed here, not " + std::string(mNode.type_name()));
    return mNode.get<bool>();
}

std::int64_t JsonPlace::Whole(std::int64_t least, std::int64_t greatest) const {
    const bool too_large =
        mNode.is_number_unsigned() && mNode.get<std::uint64_t>() > static_cast<std::uint64_t>(greatest);
    if (!mNode.is_number_integer() || too_large || mNode.get<std::int64_t>() < least ||
        mNode.get<std::int64_t>() > greatest)
        Refuse("a whole number from " + std::to_string(least) + " to " + std::to_string(greatest) +
               " is needed here");
    return mNode.get<std::int64_t>();
}

double JsonPlace::Number() const {
    if (!mNode.is_number())
        Refuse("a number is needed here, not " + std::string(mNode.type_name()));
    return mNode.get<double>();
}

std::uint32_t NumberOfMember(const JsonPlace& place, const std::string& name) {
    std::uint32_t number = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, failure] = std::from_chars(name.data(), end, number);
    if (failure != std::errc() || stop != end)
        place.Refuse("the member's name has to be a number");
    return number;
}

void JsonReader::Time(const char* name, Moment& value) {
    String text;
    Required(name, text);
    const std::optional<Moment> moment = MomentOfText(text);
    if (!moment)
        mPlace.Member(name).Refuse("a time such as 2026-03-02T09:00:00 is needed here");
    value = *moment;
}

void JsonReader::Finish() const {
    for (const auto& [name, node] : mPlace.Node().items())
        if (!mKnown.contains(name))
            throw JsonDefect{mPlace.Pointer() + "/" + name, "no such member is known"};
}

} // namespace kestrelmoor::practice
