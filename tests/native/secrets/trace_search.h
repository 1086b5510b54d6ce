#pragma once

#include "platform/practice/world/world.h"
#include "runtime/forms/form.h"

#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace kestrelmoor::tests {

/// Looks for passwords wherever none may stand: on forms and boxes, in files, in the registry and in what the
/// platform's calls are given. While one lives it looks at every call and at every box. A password counts as
/// found where any run of half its length stands, in small letters or capitals, in UTF-8 or in UTF-16. The
/// platform has no clipboard of the program's own.
class TraceSearch {
  public:
    TraceSearch(practice::World& world, const StringList& passwords);
    ~TraceSearch();
    TraceSearch(const TraceSearch&) = delete;
    TraceSearch& operator=(const TraceSearch&) = delete;

    /// Looks at all that stands now.
    void Look();

    /// Looks at a text of another kind.
    void LookAt(std::string_view place, StringView text) { LookAt(place, {}, text); }

    /// The places where a password was found so far.
    const std::set<std::string>& Found() const { return mFound; }

    /// How often all was looked at.
    int Looks() const { return mLooks; }

  private:
    // A place is "kind owner", and told only where something is found.
    void LookAt(std::string_view kind, StringView owner, StringView text);
    void LookAtBytes(std::string_view kind, StringView owner, std::string_view bytes);
    void LookAtCall(const practice::Call& call);
    void LookAtForms();
    void LookAtControl(const Control& control);
    void LookAtWindowsOfTheSystem();
    void LookAtStores();
    void LookAtBoxes();
    void LookAtTheRest();

    practice::World& mWorld;
    std::set<std::string> mNeedles;
    std::unordered_set<std::string> mClean; ///< what was looked at already, and nothing found in it
    std::set<std::string> mFound;
    int mLooks = 0;
    bool mLooking = false;
};

} // namespace kestrelmoor::tests
