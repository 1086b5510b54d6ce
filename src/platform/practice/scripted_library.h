#pragma once

#include "platform/practice/world/libraries.h"

#include <memory>

namespace kestrelmoor::practice {

/// A language library that exists in memory alone and says what its script says. Where that has no text for
/// all, the text of a number is "text NUMBER", a noun "noun NUMBER", or "noun NUMBER once" for a count of 1.
class ScriptedLibrary : public std::enable_shared_from_this<ScriptedLibrary> {
  public:
    explicit ScriptedLibrary(LanguageScript script) : mScript(std::move(script)) {}

    const LanguageScript& Script() const { return mScript; }

    /// An exported function; null: there is none of that name. It serves this library until the next one is
    /// asked for.
    void* Entry(const std::string& name);

    /// Its factory and objects that are alive.
    int LiveObjects() const { return mLiveObjects; }
    void CountObjects(int difference) { mLiveObjects += difference; }

  private:
    LanguageScript mScript;
    int mLiveObjects = 0;
};

} // namespace kestrelmoor::practice
