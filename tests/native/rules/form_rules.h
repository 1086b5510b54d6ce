#pragma once

#include "runtime/forms/form.h"
#include "tests/native/rules/findings.h"

#include <cstdint>

namespace kestrelmoor::tests {

/// What holds for every window that is open, between two inputs: where the focus is, that no two controls
/// that can be seen cover each other and all stand inside, one default and one cancel button at most, and
/// that labels show their accelerators all or none.
void CheckForm(const Form& form, Findings& found);

/// The library's text of a number with its arguments; "unknown" where it has none.
String TextOf(std::int16_t number, const StringList& arguments = {});

/// Its caption is that text, with the accelerator's mark or without.
bool ShowsText(const Control& control, const String& text);

/// Whether it can be seen: it and what holds it.
bool IsSeen(const Control& control);

/// The control of a name on a form that surely has it.
template <class Kind>
const Kind& On(const Form& form, StringView name) {
    return dynamic_cast<const Kind&>(form.Find(name));
}

} // namespace kestrelmoor::tests
