#include "platform/windows/window_life.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kestrelmoor::platform {

namespace {

const ProcedureRunning* gInnermost = nullptr;

std::vector<OwnedWindow>& Waiting() {
    static std::vector<OwnedWindow> windows;
    return windows;
}

/// One that waits no longer, or none.
OwnedWindow TakeIdle() {
    auto& waiting = Waiting();
    const auto idle = std::find_if(waiting.begin(), waiting.end(), [](const OwnedWindow& window) {
        return !ProcedureRunning::Within(window.Get());
    });
    if (idle == waiting.end())
        return {};
    OwnedWindow taken = std::move(*idle);
    waiting.erase(idle);
    return taken;
}

} // namespace

ProcedureRunning::ProcedureRunning(HWND window) noexcept
    : mWindow(window), mOuter(std::exchange(gInnermost, this)) {}

// Destroying a window runs procedures anew, so each is taken from the list first.
ProcedureRunning::~ProcedureRunning() {
    gInnermost = mOuter;
    while (const OwnedWindow going = TakeIdle()) {
    }
}

bool ProcedureRunning::Within(HWND window) {
    for (const auto* running = gInnermost; running; running = running->mOuter)
        if (running->mWindow == window || ::IsChild(window, running->mWindow))
            return true;
    return false;
}

void DestroyWhenIdle(OwnedWindow window) {
    if (ProcedureRunning::Within(window.Get()))
        Waiting().push_back(std::move(window));
}

} // namespace kestrelmoor::platform
