#include "platform/form_peer.h"

#include "platform/collation.h"
#include "platform/practice/list_views.h"
#include "platform/practice/surfaces.h"
#include "platform/practice/timers.h"
#include "platform/practice/window_places.h"
#include "platform/practice/windows.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"
#include "runtime/forms/form.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

using practice::kTwipsPerPixel;
using practice::ListViews;
using practice::Surfaces;
using practice::TheWorld;
using practice::Windows;

/// What the frame and the title bar of a fixed dialog take.
constexpr Twips kFrameWidth = 90;
constexpr Twips kFrameHeight = 375;
constexpr Twips kCharacterWidth = 90;
constexpr Twips kLineHeight = practice::kRowHeight * practice::kTwipsPerPixel;

/// Of the longest line.
std::size_t LengthOf(const String& caption) {
    std::size_t longest = 0;
    for (const String& line : Split(caption, u'\n'))
        longest = std::max(longest, line.size());
    return longest;
}

/// As the windows of a real screen: one that can't be made is an error.
template <class Model>
WindowHandle MakeWindow(Model& model) {
    if (TheWorld().calls.Enter("CreateWindowExW", {model.Name()}))
        RaiseError(error_number::kOutOfMemory);
    return Windows::Current().Add(model);
}

/// The window of a control; 0 for one that the form draws by itself, or that is no part of its looks.
WindowHandle MakeControlWindow(Control& control) {
    const bool has_one = control.Kind() != ControlKind::Timer && control.Kind() != ControlKind::Line &&
                         control.Kind() != ControlKind::Shape;
    return has_one ? MakeWindow(control) : 0;
}

/// Shows nothing: without a screen the model is complete by itself.
class PracticeControlPeer : public ControlPeer {
  public:
    explicit PracticeControlPeer(Control& control)
        : mControl(control), mTimer(dynamic_cast<Timer*>(&control)), mList(dynamic_cast<ListBox*>(&control)),
          mPicture(dynamic_cast<PictureBox*>(&control)), mWindow(MakeControlWindow(control)) {
        if (mTimer)
            practice::Timers::Current().Add(*mTimer);
        if (mList)
            ListViews::Current().Add(*mList);
        if (mPicture)
            Surfaces::Current().Add(*mPicture);
    }
    ~PracticeControlPeer() override {
        Windows::Current().Remove(mWindow);
        if (mPicture)
            Surfaces::Current().Remove(*mPicture);
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
    void RowRemoved(int) override { KeepRowsInView(); }
    void RowsCleared() override { KeepRowsInView(); }
    WindowHandle Window() const override { return mWindow; }
    bool MeasureCaption(Twips& width, Twips& height) const override {
        const auto lines = std::ranges::count(mControl.Caption(), u'\n') + 1;
        width = static_cast<Twips>(LengthOf(mControl.Caption())) * kCharacterWidth;
        height = static_cast<Twips>(lines) * kLineHeight;
        return true;
    }
    void Clear() override {
        if (mPicture)
            Surfaces::Current().Clear(*mPicture);
    }
    std::uintptr_t DeviceContext() const override {
        return mPicture ? Surfaces::Current().DeviceContext(*mPicture) : 0;
    }

  private:
    void KeepRowsInView() const {
        if (mList)
            ListViews::Current().ScrollTo(*mList, ListViews::Current().TopRow(*mList));
    }

    Control& mControl;
    Timer* mTimer;
    ListBox* mList;
    PictureBox* mPicture;
    WindowHandle mWindow;
};

class PracticeFormPeer : public FormPeer {
  public:
    explicit PracticeFormPeer(Form& form) : mForm(form), mWindow(MakeWindow(form)) {}
    ~PracticeFormPeer() override { Windows::Current().Remove(mWindow); }

    std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) override {
        return std::make_unique<PracticeControlPeer>(control);
    }
    void Show(Property what) override {
        if (what != Property::Visible || !mForm.Visible())
            return;
        for (Control* const control : mForm.AllControls())
            if (auto* const box = dynamic_cast<PictureBox*>(control); box && box->IsUsable())
                box->PaintRequested();
    }
    void TakeFocus() override {}
    Twips FrameWidth() const override { return kFrameWidth; }
    Twips FrameHeight() const override { return kFrameHeight; }
    WindowHandle Window() const override { return mWindow; }

  private:
    Form& mForm;
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
