#include "platform/process.h"

#include "platform/automation.h"
#include "platform/windows/bound_library.h"
#include "platform/windows/command_line.h"
#include "platform/windows/common_controls.h"
#include "platform/windows/wide_text.h"
#include "runtime/conversions.h"

#include <exception>

#include <windows.h>

#include <oleauto.h>

namespace kestrelmoor::platform {
namespace {

static_assert(sizeof(OSVERSIONINFOA) == 148);

SYSTEMTIME LocalTime() {
    SYSTEMTIME time;
    ::GetLocalTime(&time);
    return time;
}

[[noreturn]] void EndByBox(const wchar_t* text) noexcept {
    static bool ending = false;
    // Events of our windows go on while the box is up; a second error must not pile up boxes.
    if (!ending) {
        ending = true;
        LoadCommonControls();
        ::MessageBoxW(nullptr, text, Wide(kProgramTitle), MB_ICONSTOP | MB_TASKMODAL | MB_SETFOREGROUND);
    }
    ::ExitProcess(1);
}

} // namespace

OsVersion GetVersionExA() {
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (!::GetVersionExA(&info))
        return {};
    return {info.dwPlatformId, info.dwMajorVersion, info.dwMinorVersion, info.dwBuildNumber};
}

void CreateMutexA(const char* sName) {
    ::CreateMutexA(nullptr, FALSE, sName);
}

String CommandLineArguments() {
    return String(ArgumentsBehindName(FromWide(::GetCommandLineW())));
}

Date Now() {
    const SYSTEMTIME time = LocalTime();
    return DateOf({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
}

double Timer() {
    const SYSTEMTIME time = LocalTime();
    return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond + time.wMilliseconds / 1000.0;
}

String DateText(Date date) {
    static BoundEntry<decltype(::VarBstrFromDate)> entry{OleAut32(), "VarBstrFromDate"};
    BSTR text = nullptr;
    RaiseIfFailed(entry.Get()(date, LOCALE_USER_DEFAULT, 0, &text));
    return TakeText(reinterpret_cast<char16_t*>(text));
}

void ExitWindowsEx(std::uint32_t nFlags, std::uint32_t nReason) {
    ::ExitWindowsEx(nFlags, nReason);
}

void EndByError(const RuntimeError& error) noexcept {
    const String text = u"Run-time error " + DecimalText(error.number()) + u":\n\n" + error.description();
    EndByBox(Wide(text));
}

} // namespace kestrelmoor::platform

/// What the C++ library calls for an exception that nobody took. Defined here and not set at the start, so
/// that the library's own handler, which prints names of types, is not linked at all; the library names that
/// one a second time, as what comes back when a handler is taken away.
namespace __cxxabiv1 {
// NOLINTNEXTLINE(bugprone-reserved-identifier): the library's own name
extern std::terminate_handler __terminate_handler;
std::terminate_handler __terminate_handler = [] {
    kestrelmoor::platform::EndByBox(L"An internal error: out of memory, or a fault in the program.");
};
} // namespace __cxxabiv1

namespace __gnu_cxx {
void __verbose_terminate_handler() {
    __cxxabiv1::__terminate_handler();
}
} // namespace __gnu_cxx
