#pragma once

#include "runtime/text.h"

#include <nlohmann/json.hpp>

#include <optional>

namespace kestrelmoor::stand_in {

/// Raised for a text that the bridge's lines can't hold: one with an unpaired surrogate.
class UnsendableText {};

nlohmann::json JsonOf(const String& text);

/// No text is null.
nlohmann::json JsonOf(const std::optional<String>& text);

String TextOf(const nlohmann::json& answer, const char* key);

} // namespace kestrelmoor::stand_in
