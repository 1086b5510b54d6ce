#pragma once

#include "directory_backend.h"

namespace kestrelmoor::stand_in {

/// Answers from the practice world in the file at `path`, and keeps the file up to date. Null, with a line on
/// standard error, where the file can't be used.
std::unique_ptr<DirectoryBackend> MakePracticeDirectory(const String& path);

} // namespace kestrelmoor::stand_in
