#include "platform/form_peer.h"

#include "platform/collation.h"
#include "platform/windows/common_controls.h"
#include "platform/windows/event_loop.h"
#include "platform/windows/form_window.h"
#include "platform/windows/pixels.h"

namespace kestrelmoor::platform {

namespace {

class WindowsDesktop : public Desktop {
  public:
    std::unique_ptr<FormPeer> MakeFormPeer(Form& form) override {
        LoadCommonControls();
        return std::make_unique<FormWindow>(form);
    }
    void PumpEvents() override { HandlePendingMessages(); }
    bool WaitForEvent() override { return HandleNextMessage(); }
    int CompareRows(StringView a, StringView b) const override { return platform::CompareRows(a, b); }
    Twips TwipsPerPixelX() const override { return platform::TwipsPerPixelX(); }
    Twips TwipsPerPixelY() const override { return platform::TwipsPerPixelY(); }
};

} // namespace

Desktop& TheDesktop() {
    static WindowsDesktop desktop;
    return desktop;
}

} // namespace kestrelmoor::platform
