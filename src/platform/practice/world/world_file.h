#pragma once

#include "platform/practice/world/world.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrelmoor::practice {

/// A world file that can't be read, understood or written: one line in English, for the person at the
/// keyboard, with the file, the line (where there is one) and what is wrong.
class WorldFileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reads a world from JSON text into a new world. `name` stands for the file in an error. Where that raises,
/// the world is in no state to be used.
void ReadWorld(World& world, std::string_view text, const std::string& name);

/// The world as JSON text, such that reading it again gives the same world.
std::string WriteWorld(const World& world);

/// The same with a file; paths in UTF-8. A file is replaced whole or not at all.
void LoadWorld(World& world, const std::string& path);
void SaveWorld(const World& world, const std::string& path);

/// The world that comes with the program: a computer, a domain with its controller, a stand-alone server,
/// and one user.
void LoadStockWorld(World& world);
std::string_view StockWorldText();

} // namespace kestrelmoor::practice
