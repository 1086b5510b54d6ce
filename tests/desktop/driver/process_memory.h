#pragma once

#include <windows.h>

#include <map>
#include <span>
#include <vector>

namespace kestrelmoor::driver {

/// A process that is read and made to call functions from outside. Everything throws std::runtime_error when
/// the process can't be reached.
class OpenedProcess {
  public:
    /// The process that owns a window.
    explicit OpenedProcess(HWND window);
    ~OpenedProcess();
    OpenedProcess(const OpenedProcess&) = delete;
    OpenedProcess& operator=(const OpenedProcess&) = delete;

    /// Calls a function of a library that the process has loaded, on a thread that stays there for later
    /// calls, with up to four arguments, and gives its result. This process must have loaded the same
    /// library.
    DWORD Call(const wchar_t* module, const char* function, const std::vector<DWORD>& arguments) const;

    /// As Call, with the address of a copy of `block`, at most 1024 bytes, as one more argument at the end;
    /// what the copy holds after the call comes back in `block`.
    DWORD CallWithBlock(const wchar_t* module, const char* function, std::vector<DWORD> arguments,
                        std::span<unsigned char> block) const;

  private:
    HANDLE mProcess;
};

/// Where a process keeps what the system notes down for it, by an address of its own.
void* EnvironmentBlock(HANDLE process);

/// How often each library of a process that is at rest has been loaded and not let go; 0 for one that stays
/// for good.
std::map<HMODULE, DWORD> LoadCounts(HANDLE process);

/// How many GDI objects a process holds, counted in its own handle table: not every platform keeps account.
long long CountGdiObjects(HANDLE process);

/// How many kernel handles a process holds, counted in the system's table for the same reason.
long long CountKernelHandles(DWORD process);

/// How many windows, menus, icons, hooks and the like there are in the session, of all processes.
long long CountUserHandles();

} // namespace kestrelmoor::driver
