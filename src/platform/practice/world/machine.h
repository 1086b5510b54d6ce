#pragma once

#include "platform/practice/world/appearance.h"
#include "runtime/text.h"

#include <cstdint>
#include <map>
#include <string>

namespace kestrelmoor::practice {

/// The version of the system, field by field.
struct SystemVersion {
    std::uint32_t platform_id = 2;
    std::uint32_t major = 10;
    std::uint32_t minor = 0;
    std::uint32_t build = 19045;

    bool operator==(const SystemVersion&) const = default;
};

/// What the executable's version record says. A new world's is the program's own as it was built, with a
/// legal notice of its own.
struct OwnVersion {
    OwnVersion();

    String title;
    String legal_notice;
    std::uint16_t major;
    std::uint16_t minor;
    std::uint16_t revision;

    bool operator==(const OwnVersion&) const = default;
};

/// The local computer as the program's process sees it.
struct Machine {
    SystemVersion version;
    std::uint16_t interface_language = 1033; ///< 0: the system can't tell
    std::uint32_t thread_locale = 1033;
    bool keyboard_cues = false;
    Appearance appearance;
    OwnVersion own_version;
    String program_folder = u"C:\\Program Files\\Kestrelmoor";
    String program_name = u"Moorlink";     ///< without ".exe"
    String command_line;                   ///< the arguments alone
    std::map<int, String> special_folders; ///< by CSIDL number; an empty path: a folder without one
    std::map<String, String> environment;
    std::map<std::uint32_t, String> language_names;   ///< by language number, as the system shows them
    std::map<std::uint32_t, String> system_messages;  ///< without the line end that the system adds
    std::map<std::uint32_t, String> network_messages; ///< those of netmsg.dll
    std::map<String, std::uint64_t> privileges;       ///< names and local identifiers
    bool privileges_assigned = true;                  ///< the token holds them
};

} // namespace kestrelmoor::practice
