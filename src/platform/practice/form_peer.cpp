#include "platform/form_peer.h"

#include "platform/collation.h"
#include "platform/practice/timers.h"
#include "platform/practice/world/world.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;

/// What the frame and the title bar of a fixed dialog take.
constexpr Twips kFrameWidth = 90;
constexpr Twips kFrameHeight = 375;
constexpr Twips kTwipsPerPixel = 15;

WindowHandle NextWindow() {
    static WindowHandle last = 0x10000;
    return last += 2;
}

/// Shows nothing: without a screen the model is complete by itself.
class PracticeControlPeer : public ControlPeer {
  public:
    explicit PracticeControlPeer(Control& control) : mTimer(dynamic_cast<Timer*>(&control)) {
        if (mTimer)
            practice::Timers::Current().Add(*mTimer);
    }
    ~PracticeControlPeer() override {
        if (mTimer)
            practice::Timers::Current().Remove(*mTimer);
    }

    void Show(Property what) override {
        if (mTimer && (what == Property::Interval || what == Property::Enabled))
            practice::Timers::Current().Restart(*mTimer);
    }
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void RowReplaced(int) override {}
    void RowsCleared() override {}
    bool ReadSelection(int&, int&) override { return false; }
    void ReplaceSelection(StringView) override {}
    void TakeFocus() override {}
    WindowHandle Window() const override { return mWindow; }

  private:
    Timer* mTimer;
    WindowHandle mWindow = NextWindow();
};

class PracticeFormPeer : public FormPeer {
  public:
    std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) override {
        return std::make_unique<PracticeControlPeer>(control);
    }
    void Show(Property) override {}
    void TakeFocus() override {}
    Twips FrameWidth() const override { return kFrameWidth; }
    Twips FrameHeight() const override { return kFrameHeight; }
    WindowHandle Window() const override { return mWindow; }

  private:
    WindowHandle mWindow = NextWindow();
};

class PracticeDesktop : public Desktop {
  public:
    std::unique_ptr<FormPeer> MakeFormPeer(Form&) override { return std::make_unique<PracticeFormPeer>(); }

    void PumpEvents() override {
        practice::World& world = TheWorld();
        world.calls.Enter("PumpEvents");
        world.clock.Advance(world.pump_milliseconds);
        practice::Timers::Current().RunDue();
        world.actions.Pump();
    }

    bool WaitForEvent() override {
        practice::World& world = TheWorld();
        world.clock.Advance(world.pump_milliseconds);
        practice::Timers::Current().RunDue();
        return world.actions.RunNext();
    }

    int CompareRows(StringView a, StringView b) const override { return platform::CompareRows(a, b); }
    Twips TwipsPerPixelX() const override { return kTwipsPerPixel; }
    Twips TwipsPerPixelY() const override { return kTwipsPerPixel; }
};

} // namespace

Desktop& TheDesktop() {
    static PracticeDesktop desktop;
    return desktop;
}

} // namespace kestrelmoor::platform
