#pragma once

#include "platform/practice/world/directory.h"
#include "platform/practice/world/world_file.h"

#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <exception>

// COM's objects are released and never deleted through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kestrelmoor::stand_in {

/// Runs what an interface's method does; no exception leaves it. `failed` turns a failure of the directory
/// into the result.
template <class Work, class Failed>
HRESULT BehindInterface(Work work, Failed failed) noexcept {
    try {
        return work();
    } catch (const practice::DirectoryFailure& failure) {
        return failed(failure);
    } catch (const practice::WorldFileError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return E_UNEXPECTED;
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

/// The common text of the platform for a counted copy of ours; null for an empty one.
inline BSTR CopyOf(const String& text) {
    return text.empty() ? nullptr
                        : ::SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                              static_cast<UINT>(text.size()));
}

} // namespace kestrelmoor::stand_in
