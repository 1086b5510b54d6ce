#include "platform/windows/command_line.h"

namespace kestrelmoor::platform {
namespace {

constexpr StringView kBlanks = u" \t";

} // namespace

StringView ArgumentsBehindName(StringView command_line) {
    bool quoted = false;
    std::size_t position = command_line.find_first_not_of(kBlanks);
    if (position == StringView::npos)
        return {};
    for (; position < command_line.size(); ++position) {
        const char16_t character = command_line[position];
        if (character == u'"')
            quoted = !quoted;
        else if (!quoted && kBlanks.find(character) != StringView::npos)
            break;
    }
    const std::size_t first = command_line.find_first_not_of(kBlanks, position);
    return first == StringView::npos ? StringView() : command_line.substr(first);
}

} // namespace kestrelmoor::platform
