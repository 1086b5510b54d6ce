#pragma once

#include "platform/collation.h"
#include "runtime/text.h"

#include <map>

namespace kestrelmoor {

/// Passwords by the name of their target; names compare without regard to case. Only passwords that are not
/// empty are kept.
class PasswordCollection {
  public:
    /// Empty for a name without a password.
    String Of(const String& sName) const {
        const auto entry = mEntries.find(sName);
        return entry == mEntries.end() ? String() : entry->second;
    }

  private:
    struct NameOrder {
        bool operator()(const String& a, const String& b) const { return platform::CompareText(a, b) < 0; }
    };
    std::map<String, String, NameOrder> mEntries;
};

} // namespace kestrelmoor
