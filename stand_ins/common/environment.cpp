#include "stand_ins/common/environment.h"

#include <windows.h>

namespace kestrelmoor::stand_in {

String EnvironmentVariable(const wchar_t* name) {
    const DWORD needed = GetEnvironmentVariableW(name, nullptr, 0);
    std::wstring value(needed, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), needed));
    return String(value.begin(), value.end());
}

} // namespace kestrelmoor::stand_in
