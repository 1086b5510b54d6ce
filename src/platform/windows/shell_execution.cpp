#include "platform/shell_execution.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/component_library.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <shellapi.h>

namespace kestrelmoor::platform {

namespace {

/// A program that is started takes over the error mode of this process as it then is.
class StandardErrorMode {
  public:
    StandardErrorMode() : mOwn(::SetErrorMode(0)) {}
    ~StandardErrorMode() { ::SetErrorMode(mOwn); }
    StandardErrorMode(const StandardErrorMode&) = delete;
    StandardErrorMode& operator=(const StandardErrorMode&) = delete;

  private:
    UINT mOwn;
};

} // namespace

std::uintptr_t ShellExecuteW(WindowHandle hWnd, const String& sOperation, const String& sFile, int nShow) {
    static BoundEntry<decltype(::ShellExecuteW)> entry{Shell32(), "ShellExecuteW"};
    const auto execute = entry.Get();
    NeedComponents();
    const StandardErrorMode standard;
    return reinterpret_cast<std::uintptr_t>(
        execute(reinterpret_cast<HWND>(hWnd), Wide(sOperation), Wide(sFile), nullptr, nullptr, nShow));
}

} // namespace kestrelmoor::platform
