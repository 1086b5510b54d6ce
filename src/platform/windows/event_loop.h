#pragma once

namespace kestrelmoor::platform {

/// Handles every message that is pending and returns.
void HandlePendingMessages();

/// Waits for a message and handles it. False: the end was posted, no message will come any more.
bool HandleNextMessage();

} // namespace kestrelmoor::platform
