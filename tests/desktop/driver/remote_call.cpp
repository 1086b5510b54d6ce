#include "process_memory.h"

#include "commands.h"

#include <psapi.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

constexpr std::size_t kMaxArguments = 4;
constexpr std::size_t kBlockSize = 1024;

enum State : DWORD { kIdle, kAsked, kAnswered };

/// What the code below reads and writes; its offsets are written out in the code.
struct CallFrame {
    DWORD function;
    DWORD argument_count;
    DWORD arguments[kMaxArguments];
    DWORD result;
    DWORD state;
    DWORD sleep; ///< the address of Sleep
    unsigned char block[kBlockSize];
};
static_assert(offsetof(CallFrame, arguments) == 0x08 && offsetof(CallFrame, result) == 0x18 &&
              offsetof(CallFrame, state) == 0x1C && offsetof(CallFrame, sleep) == 0x20);

// A thread routine for 32-bit x86 whose parameter is a CallFrame: it carries out call after call and never
// ends.
constexpr unsigned char kCode[] = {
    0x55,                                 // 00 push ebp
    0x89, 0xE5,                           // 01 mov ebp, esp
    0x53,                                 // 03 push ebx
    0x8B, 0x5D, 0x08,                     // 04 mov ebx, [ebp + 8]        the frame
    0x83, 0x7B, 0x1C, kAsked,             // 07 cmp dword [ebx + 0x1C], kAsked
    0x74, 0x07,                           // 0B je 14
    0x6A, 0x01,                           // 0D push 1
    0xFF, 0x53, 0x20,                     // 0F call [ebx + 0x20]         Sleep
    0xEB, 0xF3,                           // 12 jmp 07
    0x8B, 0x4B, 0x04,                     // 14 mov ecx, [ebx + 4]        arguments left to push
    0x85, 0xC9,                           // 17 test ecx, ecx
    0x74, 0x07,                           // 19 jz 22
    0xFF, 0x74, 0x8B, 0x04,               // 1B push [ebx + ecx * 4 + 4]  the last one first
    0x49,                                 // 1F dec ecx
    0xEB, 0xF5,                           // 20 jmp 17
    0xFF, 0x13,                           // 22 call [ebx]
    0x89, 0x43, 0x18,                     // 24 mov [ebx + 0x18], eax     the result
    0xC7, 0x43, 0x1C, kAnswered, 0, 0, 0, // 27 mov dword [ebx + 0x1C], kAnswered
    0xEB, 0xD7                            // 2E jmp 07
};

/// Memory in another process; it goes with that process.
class RemoteBlock {
  public:
    RemoteBlock(HANDLE process, std::size_t size)
        : mProcess(process),
          mAddress(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE)) {
        if (mAddress == nullptr)
            FailWithLastError("VirtualAllocEx");
    }
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

/// A thread in another process that carries out calls there. It stays until that process ends: threads that
/// come and go by the hundred have left a lock of the C library taken for good, in which the program then
/// hung.
class Caller {
  public:
    explicit Caller(HANDLE process) : mProcess(process), mMemory(process, sizeof(CallFrame) + sizeof kCode) {
        const DWORD sleep = RemoteFunction(process, L"kernel32.dll", "Sleep");
        mMemory.Write(offsetof(CallFrame, sleep), &sleep, sizeof sleep);
        mMemory.Write(sizeof(CallFrame), kCode, sizeof kCode);
        const auto code =
            reinterpret_cast<LPTHREAD_START_ROUTINE>(ULONG_PTR{mMemory.Address(sizeof(CallFrame))});
        void* parameter = reinterpret_cast<void*>(ULONG_PTR{mMemory.Address()});
        HANDLE thread = CreateRemoteThread(process, nullptr, 0, code, parameter, 0, nullptr);
        if (thread == nullptr)
            FailWithLastError("CreateRemoteThread");
        CloseHandle(thread);
    }

    DWORD BlockAddress() const { return mMemory.Address(offsetof(CallFrame, block)); }
    void WriteBlock(std::span<const unsigned char> block) {
        mMemory.Write(offsetof(CallFrame, block), block.data(), block.size());
    }
    void ReadBlock(std::span<unsigned char> block) const {
        mMemory.Read(offsetof(CallFrame, block), block.data(), block.size());
    }

    DWORD Call(const wchar_t* module, const char* function, const std::vector<DWORD>& arguments) {
        CallFrame frame{};
        frame.function = RemoteFunction(mProcess, module, function);
        frame.argument_count = static_cast<DWORD>(arguments.size());
        std::copy(arguments.begin(), arguments.end(), frame.arguments);
        mMemory.Write(0, &frame, offsetof(CallFrame, state));
        WriteState(kAsked);
        for (const DWORD begin = GetTickCount(); ReadState() != kAnswered; Sleep(1))
            if (GetTickCount() - begin > 5000)
                throw std::runtime_error("the call in the other process does not end");
        WriteState(kIdle);
        mMemory.Read(offsetof(CallFrame, result), &frame.result, sizeof frame.result);
        return frame.result;
    }

  private:
    void WriteState(DWORD state) { mMemory.Write(offsetof(CallFrame, state), &state, sizeof state); }
    DWORD ReadState() const {
        DWORD state = kIdle;
        mMemory.Read(offsetof(CallFrame, state), &state, sizeof state);
        return state;
    }

    HANDLE mProcess;
    RemoteBlock mMemory;
};

/// The caller in a process, made at its first call. The handles kept here keep the numbers of the processes
/// from being given to others.
Caller& CallerIn(HANDLE process) {
    struct Kept {
        HANDLE process;
        std::unique_ptr<Caller> caller;
    };
    static std::map<DWORD, Kept> kept;
    std::erase_if(kept, [](const auto& entry) {
        const HANDLE handle = entry.second.process;
        return WaitForSingleObject(handle, 0) == WAIT_OBJECT_0 && CloseHandle(handle);
    });
    const DWORD id = GetProcessId(process);
    if (const auto found = kept.find(id); found != kept.end())
        return *found->second.caller;
    HANDLE own = GetCurrentProcess(), copy = nullptr;
    if (!DuplicateHandle(own, process, own, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS))
        FailWithLastError("DuplicateHandle");
    return *kept.emplace(id, Kept{copy, std::make_unique<Caller>(copy)}).first->second.caller;
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
    return CallerIn(mProcess).Call(module, function, arguments);
}

DWORD OpenedProcess::CallWithBlock(const wchar_t* module, const char* function, std::vector<DWORD> arguments,
                                   std::span<unsigned char> block) const {
    if (block.size() > kBlockSize)
        throw std::invalid_argument("too large a block for a call in another process");
    Caller& caller = CallerIn(mProcess);
    arguments.push_back(caller.BlockAddress());
    caller.WriteBlock(block);
    const DWORD result = Call(module, function, arguments);
    caller.ReadBlock(block);
    return result;
}

} // namespace kestrelmoor::driver
