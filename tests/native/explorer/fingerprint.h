#pragma once

#include <string>

namespace kestrelmoor::tests {

/// The state of all windows as far as it decides what an input does: which windows and dialogs are open, of
/// each control whether it is seen and enabled, what kind of text it holds, its rows and choice, and the
/// focus. What decides only what OK stores, as the marks of servers, counts for nothing. "ended" when there
/// is no window. Two states of one fingerprint count as the same.
std::string Fingerprint();

} // namespace kestrelmoor::tests
