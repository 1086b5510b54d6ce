#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kestrelmoor::practice {

enum class LibraryKind {
    HostFile, ///< a library of this computer stands behind it
    Scripted, ///< a language library of the world's own, which answers as it is told
    Messages, ///< holds nothing but messages: those of the network
    Broken,   ///< a file that is no library
};

/// What a scripted language library says. A result but 0 gives nothing out, whether it is a success or not.
struct LanguageScript {
    std::vector<std::int16_t> languages;
    std::int32_t first_index = 1;        ///< that `languages` are handed out with
    std::optional<std::int16_t> answers; ///< its LanguageID, whatever was asked for; none: what was asked for
    bool accepts_any = false;            ///< serves a language that it doesn't list, too
    std::int32_t class_result = 0;       ///< of its class object
    std::int32_t create_result = 0;      ///< of its factory
    std::int32_t interface_result = 0;   ///< of its object that is asked for its own interface
    std::int32_t text_result = 0;        ///< of each of its texts
    std::optional<String> every_text{};  ///< of each number, noun or not; none: one that bears the number
    std::string font_name = "Tahoma";
    std::int16_t font_charset = 1;
    std::string help_file = "help.html";

    bool operator==(const LanguageScript&) const = default;
};

struct Library {
    String path; ///< from the drive on, or the bare name of one in the system folder
    LibraryKind kind = LibraryKind::HostFile;
    std::string host_file;       ///< UTF-8; relative: sought at the running program and in the folders above
    std::set<std::string> lacks; ///< exports that it is to lack
    LanguageScript script;

    bool operator==(const Library&) const = default;
};

/// The libraries that can be loaded.
class Libraries {
  public:
    std::vector<Library> all;

    const Library* Find(StringView path) const;

    /// Puts a library in, in place of one with the same path.
    Library& Put(Library library);
    void Remove(StringView path);
};

} // namespace kestrelmoor::practice
