#pragma once

#include "platform/practice/world/clock.h"
#include "runtime/forms/controls.h"

#include <map>

namespace kestrelmoor::practice {

/// The timers of all loaded forms, by the world's clock.
class Timers {
  public:
    static Timers& Current();

    void Add(Timer& timer);
    void Remove(Timer& timer) { mStarts.erase(&timer); }

    /// Lets a timer's interval begin anew. Where the system has no timer left, it never ticks.
    void Restart(Timer& timer);

    /// Raises the tick of each timer whose interval has passed.
    void RunDue();

  private:
    Timer* NextDue(Moment now) const;

    std::map<Timer*, Moment> mStarts;
};

} // namespace kestrelmoor::practice
