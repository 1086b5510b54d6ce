#pragma once

#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>
#include <string_view>

namespace kestrelmoor::platform {

inline constexpr std::uint32_t kDirectoryAttribute = 16;

/// A file's attributes. Raises 53 or 76 when there is no such file, 70 when it can't be looked at, else the
/// system's code as an error number.
std::uint32_t GetFileAttributesW(const String& sPath);

/// A search for files by a pattern.
struct FileSearchTraits {
    using Value = std::intptr_t;
    static constexpr Value kNone = -1;
    static void Release(Value search) noexcept; ///< FindClose
};
using OwnedFileSearch = Owned<FileSearchTraits>;

/// What a search finds. Folders are found like files.
struct FoundFile {
    String name; ///< without its folder
    std::uint32_t attributes = 0;
};

/// Begins a search; a pattern without a folder is sought in the current directory. No search when nothing
/// matches or the folder can't be read.
OwnedFileSearch FindFirstFileW(const String& sPattern, FoundFile& found);

/// False: there is no further match.
bool FindNextFileW(const OwnedFileSearch& search, FoundFile& found);

/// The folder of the executable, without a backslash at the end unless it is a root.
String ProgramFolder();

/// The executable's name without folder and extension.
String ProgramBaseName();

/// A file open for shared appending.
struct AppendFileTraits {
    using Value = std::intptr_t;
    static constexpr Value kNone = -1;
    static void Release(Value file) noexcept;
};
using OwnedAppendFile = Owned<AppendFileTraits>;

/// Opens, or creates, a file that others may append to at the same time. Raises an error with the system's
/// reason when that fails.
OwnedAppendFile OpenForAppending(const String& sPath);

/// Adds the bytes behind the present end in one write, whoever else appends meanwhile. Raises an error when
/// not all of them could be written.
void Append(const OwnedAppendFile& file, std::string_view bytes);

} // namespace kestrelmoor::platform
