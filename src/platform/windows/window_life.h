#pragma once

#include "platform/windows/gui_handles.h"

namespace kestrelmoor::platform {

/// Stands in every window procedure of ours while it runs. A control's window must outlast its own
/// procedure, also when a handler that the procedure led to has unloaded the form.
class ProcedureRunning {
  public:
    ProcedureRunning() noexcept;
    ~ProcedureRunning();
    ProcedureRunning(const ProcedureRunning&) = delete;
    ProcedureRunning& operator=(const ProcedureRunning&) = delete;
};

/// Destroys the window: at once, or when the outermost procedure has returned.
void DestroyWhenIdle(OwnedWindow window);

} // namespace kestrelmoor::platform
