#pragma once

#include "tests/native/rules/frmPass_rules.h"
#include "tests/native/rules/frmSettings_rules.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// What the windows of the program are told to look like at any time, held against those that are open. One
/// lives as long as a start of the program, since some rules need what was seen before.
class WindowRules {
  public:
    /// To be called between any two inputs, of which none is longer than a key or a click, while no handler
    /// runs but those that keep a modal window open. Gives what is broken, a text each.
    std::vector<std::string> Look();

    /// What the password window was seen to take out of sight comes back with its single mode.
    bool KeepsPassword(const Form& form) const;

  private:
    void LookAt(const Form& form, Findings& found);

    std::optional<PasswordWindowRules> mPassword;
    std::optional<SettingsWindowRules> mSettings;
};

} // namespace kestrelmoor::tests
