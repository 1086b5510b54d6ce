#pragma once

#include <string>

namespace kestrelmoor::practice {

/// Loads a library of this computer, which stays loaded for the whole process. A relative path is sought
/// beside the running program and in each folder above it. Null: it can't be loaded.
void* LoadHostLibrary(const std::string& path);

/// An exported function of it; null: there is none.
void* HostEntry(void* library, const char* name);

} // namespace kestrelmoor::practice
