#pragma once

#include "runtime/text.h"

#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// What was found broken, a text each.
class Findings {
  public:
    /// `rule` says in words what has to hold, `what` which control or text it was about.
    void Expect(bool holds, const std::string& rule, const std::string& what = {}) {
        if (!holds)
            mBroken.push_back(what.empty() ? rule : rule + ": " + what);
    }
    void Expect(bool holds, const std::string& rule, const String& what) {
        if (!holds)
            Expect(false, rule, ToUtf8(what));
    }

    const std::vector<std::string>& Broken() const { return mBroken; }

  private:
    std::vector<std::string> mBroken;
};

} // namespace kestrelmoor::tests
