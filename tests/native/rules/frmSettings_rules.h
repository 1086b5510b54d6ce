#pragma once

#include "runtime/array.h"
#include "runtime/forms/form.h"
#include "tests/native/rules/findings.h"

#include <memory>
#include <vector>

namespace kestrelmoor::tests {

/// What the settings window edits, as the program holds it.
struct HeldSettings {
    StringList servers;
    std::vector<bool> active;
    bool sync_local = false;
    bool auto_start = false;
    std::int32_t reminder_time = 0;
    std::int16_t language = 0;

    static HeldSettings Now();
    bool operator==(const HeldSettings&) const = default;
};

/// The rules of one settings window, which remember what it opened with and whether it has been changed.
class SettingsWindowRules {
  public:
    /// `inputs_seen`: a look comes between any two inputs, so that none can take back another one's change
    /// unseen.
    SettingsWindowRules(const Form& form, bool inputs_seen)
        : mForm(form.weak_from_this()), mInputsSeen(inputs_seen) {}

    void Look(const Form& form, Findings& found);

    bool IsFor(const Form& form) const { return mForm.lock().get() == &form; }

  private:
    void CheckOk(const Form& form, Findings& found);
    void CheckServers(const Form& form, Findings& found) const;
    void CheckReminder(const Form& form, Findings& found) const;
    bool ShowsWhatIsHeld(const Form& form) const;

    std::weak_ptr<const Form> mForm;
    bool mInputsSeen;
    HeldSettings mHeld = HeldSettings::Now();
    bool mChanged = false;
};

} // namespace kestrelmoor::tests
