#pragma once

#include "runtime/forms/form.h"
#include "tests/native/rules/findings.h"
#include "tests/native/rules/run_rules.h"

#include <map>
#include <memory>

namespace kestrelmoor::tests {

/// The rules of one password window. The window keeps the old passwords of the rows to itself, so that the
/// rules remember what was seen of them.
class PasswordWindowRules {
  public:
    explicit PasswordWindowRules(const Form& form) : mForm(form.weak_from_this()) {}

    /// Between two inputs, of which none is longer than a key or a click.
    void Look(const Form& form, Findings& found);

    /// The single mode's old password waits while the list mode is on.
    bool KeepsPassword(const Form& form) const;

    bool IsFor(const Form& form) const { return mForm.lock().get() == &form; }

  private:
    void FollowEdit(const Form& form, Findings& found);
    void FollowMode(const Form& form, Findings& found);
    void CheckButton(const Form& form, Findings& found) const;
    void CheckRows(const Form& form, Findings& found) const;
    std::size_t LengthOf(const String& folded_name) const;
    std::size_t TotalLength() const;

    RunRules mRun;
    std::weak_ptr<const Form> mForm;
    std::map<String, std::size_t> mLengths; ///< of the old passwords that are kept, by folded name
    String mEdited;                         ///< folded name of the row in edit, empty: none
    std::size_t mEditedLength = 0;
    bool mWasSingle = true;
    bool mKnowsSingle = false;
    String mSinglePassword;
};

} // namespace kestrelmoor::tests
