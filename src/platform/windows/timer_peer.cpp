#include "platform/windows/timer_peer.h"

namespace kestrelmoor::platform {

TimerPeer::TimerPeer(const FormWindow& form, const kestrelmoor::Timer& timer)
    : mWindow(form.Handle()), mTimer(timer) {
    TimerPeer::Show(Property::Interval);
}

TimerPeer::~TimerPeer() {
    Stop();
}

void TimerPeer::Stop() const {
    ::KillTimer(mWindow, reinterpret_cast<UINT_PTR>(&mTimer));
}

void TimerPeer::Show(Property what) {
    if (what != Property::Interval && what != Property::Enabled)
        return;
    Stop();
    if (mTimer.Running())
        ::SetTimer(mWindow, reinterpret_cast<UINT_PTR>(&mTimer), static_cast<UINT>(mTimer.Interval()),
                   nullptr);
}

} // namespace kestrelmoor::platform
