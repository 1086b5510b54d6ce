#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <map>
#include <string>

namespace kestrelmoor::practice {

namespace file_attribute {
inline constexpr std::uint32_t kReadOnly = 1;
inline constexpr std::uint32_t kDirectory = 16;
inline constexpr std::uint32_t kArchive = 32;
} // namespace file_attribute

struct File {
    String path; ///< from the drive on: C:\Users\user\a.log
    std::uint32_t attributes = file_attribute::kArchive;
    std::string content;
    bool refuses_reading = false; ///< its attributes too
    bool refuses_writing = false; ///< a folder: no new file in it

    bool IsDirectory() const { return (attributes & file_attribute::kDirectory) != 0; }
};

/// Files and folders by their whole path, names without regard to case.
class FileTree {
  public:
    String current_directory = u"C:\\";

    /// The whole path of what may be relative: to the current directory or, behind a leading backslash, to
    /// its drive. "." and ".." are worked out.
    String FullPath(StringView path) const;

    File* Find(StringView path);
    const File* Find(StringView path) const;

    /// The folder that a path lies in, null when there is none.
    const File* FolderOf(StringView path) const;

    /// Adds the folder and those above it.
    File& CreateFolder(StringView path);

    /// Adds a file, and the folders that it lies in.
    File& CreateFile(StringView path, std::string content = {});

    void Remove(StringView path);

    const std::map<String, File>& Files() const { return mFiles; }

  private:
    std::map<String, File> mFiles;
};

} // namespace kestrelmoor::practice
