#pragma once

#include "platform/practice/world/json_reader.h"
#include "platform/practice/world/registry_tree.h"

namespace kestrelmoor::practice {

/// Registry values in a world file. Data that its type's own form can't give stands as "bytes".
void ReadJson(const JsonPlace& place, RegistryValue& value);
Json WriteJson(const RegistryValue& value);

/// The whole registry: a list of its keys. A key that only leads to others is left out.
void ReadJson(const JsonPlace& place, RegistryTree& tree);
Json WriteJson(const RegistryTree& tree);

} // namespace kestrelmoor::practice
