#pragma once

#include "platform/windows/control_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

/// Has its control paint it at every request, upon its background colour.
class PictureWindow : public ControlWindow {
  public:
    PictureWindow(FormWindow& form, PictureBox& box);
    void Clear() override;
    std::uintptr_t DeviceContext() const override { return reinterpret_cast<std::uintptr_t>(mContext); }

  protected:
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;

  private:
    void Paint(HDC context);

    HDC mContext = nullptr; ///< while it is painted
};

} // namespace kestrelmoor::platform
