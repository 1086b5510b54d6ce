#pragma once

#include "platform/practice/world/directory.h"
#include "platform/practice/world/json_reader.h"

namespace kestrelmoor::practice {

/// An answer in a world file: a failure by its "number", or a "kind" and, where that kind has one, a "value".
/// A date stands as its days.
void ReadJson(const JsonPlace& place, DirectoryAnswer& answer);
Json WriteJson(const DirectoryAnswer& answer);

} // namespace kestrelmoor::practice
