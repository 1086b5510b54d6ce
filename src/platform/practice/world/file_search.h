#pragma once

#include "platform/practice/world/world.h"

#include <map>

namespace kestrelmoor::practice {

struct MatchingFile {
    String name; ///< without its folder
    std::uint32_t attributes = 0;
};

/// Files by their folded names: in the order in which a folder lists them.
using FilesByName = std::map<String, MatchingFile>;

/// The files, folders and libraries of one folder whose name fits a pattern, in which "*" stands for any
/// characters, or none. A pattern without a folder means the current directory.
FilesByName FilesMatching(const World& world, StringView pattern);

} // namespace kestrelmoor::practice
