#pragma once

#include "runtime/forms/form.h"
#include "tests/native/rules/findings.h"

namespace kestrelmoor::tests {

void CheckAboutWindow(const Form& form, Findings& found);

} // namespace kestrelmoor::tests
