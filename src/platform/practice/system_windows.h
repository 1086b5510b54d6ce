#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace kestrelmoor::practice {

/// A window that the system itself has made, in one of its own dialogs. It keeps a text, as every window
/// does.
struct SystemWindow {
    WindowHandle parent = 0;
    String class_name;
    String text;
    std::function<void(std::uint32_t message, std::intptr_t parameter)> received; ///< messages of its own
};

/// The windows of the system that are there.
class SystemWindows {
  public:
    static SystemWindows& Current();

    WindowHandle Add(SystemWindow window);

    /// With all that stand in it.
    void Remove(WindowHandle window);

    /// Null: no such window.
    SystemWindow* Find(WindowHandle window);

    /// What stands in a window, and in that, in the order in which it was made.
    std::vector<WindowHandle> Within(WindowHandle parent) const;

    /// What a window answers to a message.
    static std::intptr_t Answer(SystemWindow& window, std::uint32_t message, std::uintptr_t wide,
                                std::intptr_t parameter);

  private:
    std::map<WindowHandle, SystemWindow> mWindows;
    WindowHandle mLast = 0x40000000;
};

} // namespace kestrelmoor::practice
