#include "platform/practice/timers.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::practice {

Timers& Timers::Current() {
    static Timers timers;
    return timers;
}

void Timers::Add(Timer& timer) {
    mStarts.emplace(&timer, TheWorld().clock.Now());
}

void Timers::Restart(Timer& timer) {
    if (timer.Running() && TheWorld().calls.Enter("SetTimer", {timer.Name(), timer.Interval()}))
        mStarts.erase(&timer);
    else
        mStarts.insert_or_assign(&timer, TheWorld().clock.Now());
}

void Timers::RunDue() {
    const Moment now = TheWorld().clock.Now();
    // A tick may remove timers, or add some that are not due yet.
    while (Timer* const timer = NextDue(now)) {
        mStarts[timer] = now;
        timer->Elapsed();
    }
}

Timer* Timers::NextDue(Moment now) const {
    for (const auto& [timer, start] : mStarts)
        if (timer->Running() && now - start >= timer->Interval())
            return timer;
    return nullptr;
}

} // namespace kestrelmoor::practice
