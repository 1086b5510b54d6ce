#pragma once

#include "runtime/text.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace kestrelmoor::practice {

using Json = nlohmann::ordered_json;

/// A text as JSON has it: a list of its UTF-16 units where UTF-8 can't hold it (an unpaired surrogate).
Json JsonOfText(StringView text);

/// The number of the line, from 1, in which the value at a pointer begins; 0 where it is not there.
int LineOfPointer(std::string_view text, const std::string& pointer);

/// The number of the line in which the parser gives up; the text is one that it can't take.
int LineOfFailure(std::string_view text);

/// The number of the line that holds the byte at an offset.
int LineOfByte(std::string_view text, std::size_t byte);

} // namespace kestrelmoor::practice
