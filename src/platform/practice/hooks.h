#pragma once

#include "platform/input_hooks.h"

namespace kestrelmoor::practice {

/// Runs the hook of a type that is installed last, if any, with an input.
void RunKeyboardHook(int key, bool up);
void RunMouseHook(std::uintptr_t message, const platform::ScreenPoint& point);

/// The same with a window that is about to be activated.
void RunActivationHook(WindowHandle window);

namespace mouse_message {
inline constexpr std::uintptr_t kMove = 512;
inline constexpr std::uintptr_t kLeftDown = 513;
inline constexpr std::uintptr_t kLeftUp = 514;
inline constexpr std::uintptr_t kRightDown = 516;
inline constexpr std::uintptr_t kRightUp = 517;
inline constexpr std::uintptr_t kMiddleDown = 519;
inline constexpr std::uintptr_t kMiddleUp = 520;
} // namespace mouse_message

/// A key, or a button of the mouse, counts as held for as long as this lives.
class Held {
  public:
    explicit Held(int key);
    ~Held();
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

  private:
    int mKey;
};

} // namespace kestrelmoor::practice
