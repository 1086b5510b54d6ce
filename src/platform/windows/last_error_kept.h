#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

/// Puts the thread's last error back at the end of its scope. Whatever releases a handle stands under one,
/// so that leaving a scope never hides why a call in it failed.
class LastErrorKept {
  public:
    LastErrorKept() = default;
    ~LastErrorKept() { ::SetLastError(mCode); }
    LastErrorKept(const LastErrorKept&) = delete;
    LastErrorKept& operator=(const LastErrorKept&) = delete;

  private:
    DWORD mCode = ::GetLastError();
};

} // namespace kestrelmoor::platform
