#pragma once

#include "platform/practice/world/world.h"
#include "tests/fuzz/sessions/session_world.h"

#include <string>
#include <vector>

namespace kestrelmoor::fuzz {

// What holds of any session. Each gives what is broken, a text each.

/// No password stands where it can be read: captions, tags, tips, texts without a mask, rows.
std::vector<std::string> SecretsOnForms();

/// No password has gone into a file, the registry, a box, or a call's record.
std::vector<std::string> SecretsInWorld(const practice::World& world);

/// Each line of each log has its type and is whole, and there is a log only where one was asked for.
std::vector<std::string> BrokenLogs(const practice::World& world);

/// What was handed out has come back, with the program's own end. Libraries of languages may stay.
std::vector<std::string> Leftovers(const practice::World& world, const StartedWorld& started);

} // namespace kestrelmoor::fuzz
