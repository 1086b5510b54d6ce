#pragma once

namespace kestrelmoor {

/// Asks every target for the state of the user's password. With `bPrompt` it is silent when all is well and
/// asks before it opens anything; without, it asks nothing and always opens the password window.
void RunExpiryWatch(bool bPrompt);

} // namespace kestrelmoor
