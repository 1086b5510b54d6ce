#pragma once

#include "languages/localization_abi.h"

#include <cstdint>

#include <windows.h>

namespace kestrelmoor::bench {

/// What stands on the command line behind the program's own name, to its end.
const wchar_t* Arguments();

/// A language library, loaded and asked in the fewest calls. Whatever fails ends the process with code 2.
class Language {
  public:
    /// Of the file given, serving English.
    explicit Language(const wchar_t* path);
    ~Language();
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

    /// Lives as long as the object.
    const wchar_t* Text(std::int16_t number);

    /// Of all controls.
    const wchar_t* FontName();

  private:
    abi::ILocalization* mObject = nullptr;
};

} // namespace kestrelmoor::bench
