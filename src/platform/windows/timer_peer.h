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
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void RowReplaced(int) override {}
    void RowsCleared() override {}
    void RowMarked(int) override {}
    bool ReadSelection(int&, int&) override { return false; }
    void ReplaceSelection(StringView) override {}
    void TakeFocus() override {}
    WindowHandle Window() const override { return 0; }

  private:
    void Stop() const;

    HWND mWindow;
    const kestrelmoor::Timer& mTimer;
};

} // namespace kestrelmoor::platform
