#pragma once

#include <windows.h>

namespace kestrelmoor::platform {

/// A library of the system that is loaded when it is first asked for, from the system folder by its full
/// path, so that no file of that name beside the program is ever run. Once loaded it stays.
class BoundLibrary {
  public:
    explicit constexpr BoundLibrary(const wchar_t* file_name) : mFileName(file_name) {}

    /// Address of an entry. Raises 53 when the library can't be loaded and 453 when it has no such entry.
    FARPROC Entry(const char* name);

    /// The same, null for either.
    FARPROC FindEntry(const char* name) noexcept;

  private:
    bool Load() noexcept;

    const wchar_t* mFileName;
    HMODULE mModule = nullptr;
};

/// One entry of such a library, looked up at its first use:
///     BoundEntry<decltype(::NetWkstaGetInfo)> entry{NetApi32(), "NetWkstaGetInfo"};
/// What is absent is asked for again at the next use.
template <class Function>
class BoundEntry {
  public:
    constexpr BoundEntry(BoundLibrary& library, const char* name) : mLibrary(library), mName(name) {}

    /// Raises 53 or 453 when it can't be had.
    Function* Get() {
        if (!mFunction)
            mFunction = Typed(mLibrary.Entry(mName));
        return mFunction;
    }

    /// Null when it can't be had.
    Function* Find() noexcept {
        if (!mFunction)
            mFunction = Typed(mLibrary.FindEntry(mName));
        return mFunction;
    }

  private:
    static Function* Typed(FARPROC address) noexcept {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
    }

    BoundLibrary& mLibrary;
    const char* mName;
    Function* mFunction = nullptr;
};

/// The libraries that more than one source binds to.
BoundLibrary& Kernel32();
BoundLibrary& Ole32();
BoundLibrary& OleAut32();
BoundLibrary& Shell32();
BoundLibrary& User32();
BoundLibrary& UxTheme();

} // namespace kestrelmoor::platform
