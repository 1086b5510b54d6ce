#pragma once

#include "platform/collation.h"
#include "runtime/text.h"

#include <cstdint>
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

    /// Puts `sPassword` in place of what the name had; an empty one removes it.
    void Set(const String& sName, const String& sPassword) {
        mEntries.erase(sName);
        if (!sPassword.empty())
            mEntries.emplace(sName, sPassword);
    }

    /// The sum of all lengths, in UTF-16 units.
    std::int32_t TotalLength() const {
        std::size_t total = 0;
        for (const auto& entry : mEntries)
            total += entry.second.size();
        return static_cast<std::int32_t>(total);
    }

  private:
    struct NameOrder {
        bool operator()(const String& a, const String& b) const { return platform::CompareText(a, b) < 0; }
    };
    std::map<String, String, NameOrder> mEntries;
};

} // namespace kestrelmoor
