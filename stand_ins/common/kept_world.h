#pragma once

#include "platform/practice/world/world.h"

#include <windows.h>

#include <optional>
#include <string>

namespace kestrelmoor::stand_in {

/// The practice world of a file that more than one library and program uses: read again when another one has
/// written the file, and written when a call has changed it. It is `practice::TheWorld()`. Each operation
/// raises practice::WorldFileError where the file can't be used.
class KeptWorld {
  public:
    explicit KeptWorld(const String& path);

    /// Makes a call on the world as it now stands in the file. A fault that the call used up is gone from the
    /// file when this returns.
    template <class Call>
    auto Ask(Call call) {
        Refresh();
        const std::vector<practice::Fault> faults = mWorld->calls.Faults();
        auto answer = call(*mWorld);
        if (faults != mWorld->calls.Faults())
            Save();
        return answer;
    }

    /// The same for a call that may change an account: whatever it changed stands in the file when this
    /// returns.
    template <class Call>
    auto Change(Call call) {
        Refresh();
        auto answer = call(*mWorld);
        Save();
        return answer;
    }

  private:
    void Refresh();
    void Save();
    FILETIME LastWrite() const;

    std::string mPath;
    std::optional<practice::ScopedWorld> mWorld;
    FILETIME mRead{};
};

} // namespace kestrelmoor::stand_in
