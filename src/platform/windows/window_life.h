#pragma once

#include "platform/windows/gui_handles.h"

namespace kestrelmoor::platform {

/// Stands in every window procedure of ours while it runs. A form's window must outlast its own procedure and
/// those of its controls, also when a handler that one of them led to has unloaded the form.
class ProcedureRunning {
  public:
    explicit ProcedureRunning(HWND window) noexcept;
    ~ProcedureRunning();
    ProcedureRunning(const ProcedureRunning&) = delete;
    ProcedureRunning& operator=(const ProcedureRunning&) = delete;

    /// Whether a procedure of the window, or of one that it holds, runs.
    static bool Within(HWND window);

  private:
    HWND mWindow;
    const ProcedureRunning* mOuter;
};

/// Destroys a top-level window: at once, or when the last procedure within it has returned. Those of other
/// forms don't count: the handler that shows a modal form runs for as long as that form and all that it
/// opens.
void DestroyWhenIdle(OwnedWindow window);

} // namespace kestrelmoor::platform
