#pragma once

#include "platform/input_hooks.h"
#include "tests/native/rules/frmPass_rules.h"
#include "tests/native/rules/frmSettings_rules.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// What the windows of the program are told to look like at any time, held against those that are open. One
/// lives as long as a start of the program, since some rules need what was seen before.
class WindowRules {
  public:
    /// Without `inputs_seen` there may be inputs within a handler, where nobody can look.
    explicit WindowRules(bool inputs_seen = true) : mInputsSeen(inputs_seen) {}

    /// To be called between any two inputs, of which none is longer than a key or a click, while no handler
    /// runs but those that keep a modal window open. Gives what is broken, a text each.
    std::vector<std::string> Look();

    /// What the password window was seen to take out of sight comes back with its single mode.
    bool KeepsPassword(const Form& form) const;

  private:
    /// The hooks of the cues as a password window was first seen with them.
    struct Hooks {
        std::weak_ptr<const Form> window;
        platform::HookHandle keyboard;
        platform::HookHandle mouse;
    };

    void LookAt(const Form& form, Findings& found);

    /// They are there with a password window, unless cues are always shown; one that is missing has been
    /// asked for, or was missing with the window that made this one. What is there stays.
    void CheckHooks(Findings& found);

    bool mInputsSeen;
    std::optional<PasswordWindowRules> mPassword;
    std::optional<SettingsWindowRules> mSettings;
    std::optional<Hooks> mHooks;
    std::size_t mHooksAsked = 0; ///< calls of the platform up to the last look
};

} // namespace kestrelmoor::tests
