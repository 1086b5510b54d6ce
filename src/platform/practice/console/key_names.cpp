#include "platform/practice/console/key_names.h"

#include "runtime/forms/form.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace kestrelmoor::practice {

namespace {

using NamedNumber = std::pair<std::string_view, int>;

constexpr std::array<NamedNumber, 3> kShifts{{
    {"shift", key::kShiftMask},
    {"ctrl", key::kCtrlMask},
    {"alt", key::kAltMask},
}};

constexpr int kInsert = 45;
constexpr int kDelete = 46;

constexpr std::array<NamedNumber, 17> kKeys{{
    {"enter", key::kReturn},
    {"return", key::kReturn},
    {"escape", key::kEscape},
    {"esc", key::kEscape},
    {"tab", key::kTab},
    {"space", key::kSpace},
    {"backspace", key::kBack},
    {"delete", kDelete},
    {"insert", kInsert},
    {"up", key::kUp},
    {"down", key::kDown},
    {"left", key::kLeft},
    {"right", key::kRight},
    {"home", key::kHome},
    {"end", key::kEnd},
    {"pageup", key::kPageUp},
    {"pagedown", key::kPageDown},
}};

std::string Small(std::string_view text) {
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return small;
}

template <class Table>
int NumberIn(const Table& table, std::string_view name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const NamedNumber& entry) { return entry.first == name; });
    return found == table.end() ? 0 : found->second;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int FunctionKey(std::string_view name) {
    if (name.size() < 2 || name.size() > 3 || name[0] != 'f' ||
        !std::all_of(name.begin() + 1, name.end(), IsDigit))
        return 0;
    const int number = std::stoi(std::string(name.substr(1)));
    return number >= 1 && number <= 12 ? key::kF1 + number - 1 : 0;
}

int KeyNumber(std::string_view name) {
    if (name.size() == 1 && name[0] >= 'a' && name[0] <= 'z')
        return name[0] - 'a' + 'A';
    if (name.size() == 1 && IsDigit(name[0]))
        return name[0];
    const int function_key = FunctionKey(name);
    return function_key != 0 ? function_key : NumberIn(kKeys, name);
}

} // namespace

std::optional<KeyStroke> KeyOfName(std::string_view name) {
    const std::string small = Small(name);
    std::string_view rest = small;
    KeyStroke stroke;
    for (std::size_t plus = rest.find('+'); plus != std::string_view::npos; plus = rest.find('+')) {
        const int shift = NumberIn(kShifts, rest.substr(0, plus));
        if (shift == 0)
            return std::nullopt;
        stroke.shift |= shift;
        rest.remove_prefix(plus + 1);
    }
    stroke.key = KeyNumber(rest);
    return stroke.key == 0 ? std::nullopt : std::optional(stroke);
}

} // namespace kestrelmoor::practice
