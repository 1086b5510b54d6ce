#include "platform/form_peer.h"

#include "platform/collation.h"
#include "platform/practice/list_views.h"
#include "platform/practice/timers.h"
#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"
#include "runtime/forms/form.h"

namespace kestrelmoor::platform {

namespace {

using practice::ListViews;
using practice::TheWorld;
using practice::Windows;

/// What the frame and the title bar of a fixed dialog take.
constexpr Twips kFrameWidth = 90;
constexpr Twips kFrameHeight = 375;
constexpr Twips kTwipsPerPixel = 15;

/// Shows nothing: without a screen the model is complete by itself.
class PracticeControlPeer : public ControlPeer {
  public:
    explicit PracticeControlPeer(Control& control)
        : mTimer(dynamic_cast<Timer*>(&control)), mList(dynamic_cast<ListBox*>(&control)),
          mWindow(Windows::Current().Add(control)) {
        if (mTimer)
            practice::Timers::Current().Add(*mTimer);
        if (mList)
            ListViews::Current().Add(*mList);
    }
    ~PracticeControlPeer() override {
        Windows::Current().Remove(mWindow);
        if (mList)
            ListViews::Current().Remove(*mList);
        if (mTimer)
            practice::Timers::Current().Remove(*mTimer);
    }

    void Show(Property what) override {
        if (mTimer && (what == Property::Interval || what == Property::Enabled))
            practice::Timers::Current().Restart(*mTimer);
        if (mList && what == Property::ListIndex)
            ListViews::Current().Reveal(*mList, mList->ListIndex());
    }
    void RowInserted(int) override {}
    void RowRemoved(int) override { KeepRowsInView(); }
    void RowReplaced(int) override {}
    void RowsCleared() override { KeepRowsInView(); }
    void RowMarked(int) override {}
    bool ReadSelection(int&, int&) override { return false; }
    void ReplaceSelection(StringView) override {}
    void TakeFocus() override {}
    WindowHandle Window() const override { return mWindow; }

  private:
    void KeepRowsInView() const {
        if (mList)
            ListViews::Current().ScrollTo(*mList, ListViews::Current().TopRow(*mList));
    }

    Timer* mTimer;
    ListBox* mList;
    WindowHandle mWindow;
};

class PracticeFormPeer : public FormPeer {
  public:
    explicit PracticeFormPeer(Form& form) : mWindow(Windows::Current().Add(form)) {}
    ~PracticeFormPeer() override { Windows::Current().Remove(mWindow); }

    std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) override {
        return std::make_unique<PracticeControlPeer>(control);
    }
    void Show(Property) override {}
    void TakeFocus() override {}
    Twips FrameWidth() const override { return kFrameWidth; }
    Twips FrameHeight() const override { return kFrameHeight; }
    WindowHandle Window() const override { return mWindow; }

  private:
    WindowHandle mWindow;
};

class PracticeDesktop : public Desktop {
  public:
    std::unique_ptr<FormPeer> MakeFormPeer(Form& form) override {
        return std::make_unique<PracticeFormPeer>(form);
    }

    void PumpEvents() override {
        practice::World& world = TheWorld();
        world.calls.Enter("PumpEvents");
        world.clock.Advance(world.pump_milliseconds);
        practice::Timers::Current().RunDue();
        ListViews::Current().TellAll();
        world.actions.Pump();
    }

    bool WaitForEvent() override {
        practice::World& world = TheWorld();
        world.clock.Advance(world.pump_milliseconds);
        practice::Timers::Current().RunDue();
        ListViews::Current().TellAll();
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
