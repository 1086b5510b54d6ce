#pragma once

#include "platform/windows/form_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

/// Runs a timer of the system on the form's window while the model's timer runs.
class TimerPeer : public ControlPeer {
  public:
    TimerPeer(const FormWindow& form, const kestrelmoor::Timer& timer);
    ~TimerPeer() override;
    TimerPeer(const TimerPeer&) = delete;
    TimerPeer& operator=(const TimerPeer&) = delete;

    void Show(Property what) override;

  private:
    void Stop() const;

    HWND mWindow;
    const kestrelmoor::Timer& mTimer;
};

} // namespace kestrelmoor::platform
