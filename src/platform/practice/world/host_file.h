#pragma once

#include <string>
#include <string_view>

namespace kestrelmoor::practice {

/// Files of this computer, by paths in UTF-8. Each raises WorldFileError with the path and the reason.
std::string ReadHostFile(const std::string& path);

/// Replaces the file whole or, where that fails, leaves it as it was.
void ReplaceHostFile(const std::string& path, std::string_view content);

} // namespace kestrelmoor::practice
