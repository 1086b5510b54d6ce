#include "platform/shell_execution.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

constexpr std::uintptr_t kOpened = 42;

} // namespace

std::uintptr_t ShellExecuteW(WindowHandle hWnd, const String& sOperation, const String& sFile, int nShow) {
    practice::World& world = practice::TheWorld();
    if (const auto fault = world.calls.Enter("ShellExecuteW", {hWnd, sOperation, sFile, nShow}))
        return *fault;
    world.shell_executions.push_back({hWnd, sOperation, sFile, nShow});
    return kOpened;
}

} // namespace kestrelmoor::platform
