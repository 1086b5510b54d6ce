#pragma once

#include "platform/practice/world/world.h"

namespace kestrelmoor::tests {

/// The program's state as at its start.
void ResetProgramState();

/// Has the cues' memory of the mouse begin at 0, 0, as in a new process. Nothing is open, and no call fails.
void ForgetCuePoint();

/// The world of all that starts the program over and over: one, so that none of them takes the other's place.
practice::World& LastingWorld();

/// Has a world stand as `start` does, with nothing of what has happened in it. Much faster than to read it.
void PutBack(practice::World& world, const practice::World& start);

/// Closes what the end of the process would take with it: all forms, the log and the language library. Then
/// the program's state is as at its start.
void GiveBackAll();

} // namespace kestrelmoor::tests
