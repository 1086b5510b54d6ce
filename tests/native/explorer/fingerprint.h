#pragma once

#include "tests/native/rules/window_rules.h"

#include <string>

namespace kestrelmoor::tests {

/// The state of all windows as far as it decides what an input does: which windows and dialogs are open, of
/// each control whether it is seen and enabled, what kind of text it holds, its rows, choice and top row, the
/// focus, whether an old password was seen to go out of sight, and what the settings begin with. What decides
/// only what OK stores, as the marks of servers, counts for nothing. "ended" when there is no window. Two
/// states of one fingerprint count as the same.
std::string Fingerprint(const WindowRules& seen);

} // namespace kestrelmoor::tests
