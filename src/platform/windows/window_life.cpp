#include "platform/windows/window_life.h"

#include <utility>
#include <vector>

namespace kestrelmoor::platform {

namespace {

int gRunningProcedures = 0;

std::vector<OwnedWindow>& Waiting() {
    static std::vector<OwnedWindow> windows;
    return windows;
}

} // namespace

ProcedureRunning::ProcedureRunning() noexcept {
    ++gRunningProcedures;
}

ProcedureRunning::~ProcedureRunning() {
    if (--gRunningProcedures > 0)
        return;
    // Destroying one runs procedures anew: the list is taken first.
    const std::vector<OwnedWindow> going = std::exchange(Waiting(), {});
}

void DestroyWhenIdle(OwnedWindow window) {
    if (gRunningProcedures > 0)
        Waiting().push_back(std::move(window));
}

} // namespace kestrelmoor::platform
