#pragma once

#include "account/password_status.h"
#include "runtime/array.h"
#include "runtime/text.h"

namespace kestrelmoor {

/// Asks each target for the state of the password, the directory first and the network API second, and joins
/// the results with OR. `sReport` gets a line for each target with something to say. `sTitle` is set where
/// the result is not 0. `aStatus` goes by target number, 0 the local computer and i server i, from the first
/// number that is evaluated; a target that was skipped stays 0.
PasswordStatus EvaluateTargets(String& sReport, String& sTitle, Array<PasswordStatus>& aStatus);

} // namespace kestrelmoor
