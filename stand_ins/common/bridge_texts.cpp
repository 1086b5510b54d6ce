#include "stand_ins/common/bridge_texts.h"

namespace kestrelmoor::stand_in {

nlohmann::json JsonOf(const String& text) {
    std::string bytes = ToUtf8(text);
    if (FromUtf8(bytes) != text)
        throw UnsendableText();
    return bytes;
}

nlohmann::json JsonOf(const std::optional<String>& text) {
    return text ? JsonOf(*text) : nlohmann::json(nullptr);
}

String TextOf(const nlohmann::json& answer, const char* key) {
    return FromUtf8(answer.at(key).get<std::string>());
}

} // namespace kestrelmoor::stand_in
