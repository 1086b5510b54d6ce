#pragma once

#include "platform/practice/world/accounts.h"
#include "runtime/forms/form.h"
#include "tests/native/rules/findings.h"

#include <map>

namespace kestrelmoor::tests {

/// What a run tells of its targets, held against what has become of their accounts.
class RunRules {
  public:
    /// Ahead of the run, between any two inputs: the passwords as they are.
    void Remember();

    /// With the results shown.
    void Look(const Form& form, Findings& found) const;

  private:
    std::map<const practice::AccountStore*, String> mFormer; ///< the user's password, by who answers for it
};

} // namespace kestrelmoor::tests
