#include "process_memory.h"

#include "commands.h"

#include <psapi.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

constexpr std::size_t kMaxArguments = 4;

/// What the code below reads and writes; its offsets are written out in the code.
struct CallFrame {
    DWORD function;
    DWORD argument_count;
    DWORD arguments[kMaxArguments];
    DWORD result;
};
static_assert(offsetof(CallFrame, arguments) == 0x08 && offsetof(CallFrame, result) == 0x18);

// A thread routine for 32-bit x86 whose parameter is a CallFrame.
constexpr unsigned char kCode[] = {
    0x55,                   // push ebp
    0x89, 0xE5,             // mov ebp, esp
    0x53,                   // push ebx
    0x8B, 0x5D, 0x08,       // mov ebx, [ebp + 8]        the frame
    0x8B, 0x4B, 0x04,       // mov ecx, [ebx + 4]        arguments left to push
    0x85, 0xC9,             // test ecx, ecx
    0x74, 0x07,             // jz to the call
    0xFF, 0x74, 0x8B, 0x04, // push [ebx + ecx * 4 + 4]  the last one first
    0x49,                   // dec ecx
    0xEB, 0xF5,             // jmp to the test
    0xFF, 0x13,             // call [ebx]
    0x89, 0x43, 0x18,       // mov [ebx + 0x18], eax     the result
    0x31, 0xC0,             // xor eax, eax
    0x5B,                   // pop ebx
    0x5D,                   // pop ebp
    0xC2, 0x04, 0x00        // ret 4
};

/// Memory in another process, released with the object.
class RemoteBlock {
  public:
    RemoteBlock(HANDLE process, std::size_t size)
        : mProcess(process),
          mAddress(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE)) {
        if (mAddress == nullptr)
            FailWithLastError("VirtualAllocEx");
    }
    ~RemoteBlock() { VirtualFreeEx(mProcess, mAddress, 0, MEM_RELEASE); }
    RemoteBlock(const RemoteBlock&) = delete;
    RemoteBlock& operator=(const RemoteBlock&) = delete;

    DWORD Address(std::size_t offset = 0) const {
        return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(mAddress) + offset);
    }
    void Write(std::size_t offset, const void* bytes, std::size_t size) {
        if (!WriteProcessMemory(mProcess, static_cast<char*>(mAddress) + offset, bytes, size, nullptr))
            FailWithLastError("WriteProcessMemory");
    }
    void Read(std::size_t offset, void* bytes, std::size_t size) const {
        if (!ReadProcessMemory(mProcess, static_cast<char*>(mAddress) + offset, bytes, size, nullptr))
            FailWithLastError("ReadProcessMemory");
    }

  private:
    HANDLE mProcess;
    void* mAddress;
};

DWORD ModuleBase(HANDLE process, const wchar_t* name) {
    std::vector<HMODULE> modules(1024);
    DWORD bytes = 0;
    if (!EnumProcessModules(process, modules.data(), static_cast<DWORD>(modules.size() * sizeof(HMODULE)),
                            &bytes))
        FailWithLastError("EnumProcessModules");
    modules.resize(bytes / sizeof(HMODULE));
    for (HMODULE module : modules) {
        wchar_t base_name[MAX_PATH] = L"";
        GetModuleBaseNameW(process, module, base_name, MAX_PATH);
        if (lstrcmpiW(base_name, name) == 0)
            return static_cast<DWORD>(Number(module));
    }
    throw std::runtime_error("the process has not loaded the library to call");
}

// The library is the same file in both processes, so a function stands equally far from its base.
DWORD RemoteFunction(HANDLE process, const wchar_t* module, const char* function) {
    HMODULE own = GetModuleHandleW(module);
    const FARPROC address = own != nullptr ? GetProcAddress(own, function) : nullptr;
    if (address == nullptr)
        throw std::runtime_error(std::string("no such function: ") + function);
    const auto own_address = reinterpret_cast<ULONG_PTR>(reinterpret_cast<void*>(address));
    return ModuleBase(process, module) + static_cast<DWORD>(own_address - reinterpret_cast<ULONG_PTR>(own));
}

void RunThread(HANDLE process, DWORD code, DWORD parameter) {
    HANDLE thread =
        CreateRemoteThread(process, nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(ULONG_PTR{code}),
                           reinterpret_cast<void*>(ULONG_PTR{parameter}), 0, nullptr);
    if (thread == nullptr)
        FailWithLastError("CreateRemoteThread");
    const DWORD waited = WaitForSingleObject(thread, 5000);
    CloseHandle(thread);
    if (waited != WAIT_OBJECT_0)
        throw std::runtime_error("the call in the other process does not end");
}

} // namespace

OpenedProcess::OpenedProcess(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    mProcess = OpenProcess(PROCESS_ALL_ACCESS, FALSE, process);
    if (mProcess == nullptr)
        FailWithLastError("OpenProcess");
}

OpenedProcess::~OpenedProcess() {
    CloseHandle(mProcess);
}

DWORD OpenedProcess::Call(const wchar_t* module, const char* function,
                          const std::vector<DWORD>& arguments) const {
    if (arguments.size() > kMaxArguments)
        throw std::invalid_argument("too many arguments for a call in another process");
    CallFrame frame{RemoteFunction(mProcess, module, function), static_cast<DWORD>(arguments.size()), {}, 0};
    std::copy(arguments.begin(), arguments.end(), frame.arguments);
    RemoteBlock memory(mProcess, sizeof frame + sizeof kCode);
    memory.Write(0, &frame, sizeof frame);
    memory.Write(sizeof frame, kCode, sizeof kCode);
    RunThread(mProcess, memory.Address(sizeof frame), memory.Address());
    memory.Read(0, &frame, sizeof frame);
    return frame.result;
}

DWORD OpenedProcess::CallWithBlock(const wchar_t* module, const char* function, std::vector<DWORD> arguments,
                                   std::span<unsigned char> block) const {
    RemoteBlock memory(mProcess, block.size());
    arguments.push_back(memory.Address());
    const DWORD result = Call(module, function, arguments);
    memory.Read(0, block.data(), block.size());
    return result;
}

} // namespace kestrelmoor::driver
