#include "commands.h"
#include "process_memory.h"

#include <psapi.h>

#include <list>
#include <map>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

/// The programs that the driver started. Their handles stay open, so that an exit code can be read at any
/// time afterwards and an identifier is not given out again.
std::map<DWORD, HANDLE> gStarted;

HANDLE StartedProcess(const Arguments& arguments) {
    const auto found = gStarted.find(arguments.Number(0));
    if (found == gStarted.end())
        throw std::runtime_error("the driver started no such process");
    return found->second;
}

/// A variable of the environment that has another value while the object lives.
class ChangedVariable {
  public:
    ChangedVariable(const std::wstring& name, const std::wstring& value) : mName(name) {
        std::wstring before(GetEnvironmentVariableW(name.c_str(), nullptr, 0), L'\0');
        mExisted = !before.empty();
        before.resize(
            GetEnvironmentVariableW(name.c_str(), before.data(), static_cast<DWORD>(before.size())));
        mBefore = before;
        SetEnvironmentVariableW(name.c_str(), value.c_str());
    }
    ~ChangedVariable() { SetEnvironmentVariableW(mName.c_str(), mExisted ? mBefore.c_str() : nullptr); }
    ChangedVariable(const ChangedVariable&) = delete;
    ChangedVariable& operator=(const ChangedVariable&) = delete;

  private:
    std::wstring mName;
    std::wstring mBefore;
    bool mExisted = false;
};

/// A file that programs started meanwhile inherit: the driver's own input and output carry the protocol.
class InheritedFile {
  public:
    InheritedFile(const std::wstring& path, DWORD access, DWORD disposition) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        mFile = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                            0, nullptr);
        if (mFile == INVALID_HANDLE_VALUE)
            FailWithLastError("CreateFile of a program's input or output");
    }
    ~InheritedFile() { CloseHandle(mFile); }
    InheritedFile(const InheritedFile&) = delete;
    InheritedFile& operator=(const InheritedFile&) = delete;

    HANDLE Handle() const { return mFile; }

  private:
    HANDLE mFile;
};

class OwnedHandle {
  public:
    OwnedHandle() = default;
    ~OwnedHandle() { CloseHandle(handle); }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;

    HANDLE handle = nullptr;
};

/// The driver's own rights without those of the administrators' group.
void TakeUsersToken(OwnedHandle& token) {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    SID_AND_ATTRIBUTES administrators{};
    OwnedHandle own;
    AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0,
                             0, 0, &administrators.Sid);
    const bool taken = OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own.handle) &&
                       CreateRestrictedToken(own.handle, DISABLE_MAX_PRIVILEGE, 1, &administrators, 0,
                                             nullptr, 0, nullptr, &token.handle);
    FreeSid(administrators.Sid);
    if (!taken)
        FailWithLastError("a token without administrators");
}

/// NAME=value, from the fourth argument on.
void ChangeVariables(const Arguments& arguments, std::list<ChangedVariable>& variables) {
    for (std::size_t i = 3; i < arguments.Count(); ++i) {
        const std::wstring pair = arguments.Text(i);
        const std::size_t equals = pair.find(L'=');
        if (equals == std::wstring::npos)
            throw std::invalid_argument("not NAME=value: " + arguments.Utf8(i));
        variables.emplace_back(pair.substr(0, equals), pair.substr(equals + 1));
    }
}

std::wstring ModulePath(HANDLE process, HMODULE module) {
    wchar_t path[MAX_PATH] = L"";
    return std::wstring(path, GetModuleFileNameExW(process, module, path, MAX_PATH));
}

struct WindowCount {
    DWORD process;
    long long windows;
};

BOOL CALLBACK CountIfOfProcess(HWND window, LPARAM parameter) {
    auto* count = reinterpret_cast<WindowCount*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == count->process)
        ++count->windows;
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM parameter) {
    CountIfOfProcess(window, parameter);
    EnumChildWindows(window, CountIfOfProcess, parameter);
    return TRUE;
}

long long CountWindows(DWORD process) {
    WindowCount count{process, 0};
    EnumWindows(CountWithChildren, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        CountWithChildren(window, reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

/// With the driver's own rights, or those of a token.
Answer Start(const Arguments& arguments, HANDLE token) {
    std::wstring command_line = arguments.Text(0);
    const std::wstring folder = arguments.Text(1);
    std::list<ChangedVariable> variables;
    ChangeVariables(arguments, variables);
    const InheritedFile input(L"NUL", GENERIC_READ, OPEN_EXISTING);
    const InheritedFile output(arguments.Text(2), GENERIC_WRITE, CREATE_ALWAYS);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.Handle();
    startup.hStdOutput = startup.hStdError = output.Handle();
    PROCESS_INFORMATION process{};
    wchar_t* const line = command_line.data();
    const wchar_t* const directory = folder.empty() ? nullptr : folder.c_str();
    if (!(token != nullptr ? CreateProcessAsUserW(token, nullptr, line, nullptr, nullptr, TRUE, 0, nullptr,
                                                  directory, &startup, &process)
                           : CreateProcessW(nullptr, line, nullptr, nullptr, TRUE, 0, nullptr, directory,
                                            &startup, &process)))
        FailWithLastError("CreateProcess of " + arguments.Utf8(0));
    CloseHandle(process.hThread);
    gStarted[process.dwProcessId] = process.hProcess;
    return {Record().Add(process.dwProcessId)};
}

} // namespace

Answer StartProgram(const Arguments& arguments) {
    return Start(arguments, nullptr);
}

Answer StartAsUser(const Arguments& arguments) {
    OwnedHandle token;
    TakeUsersToken(token);
    return Start(arguments, token.handle);
}

Answer WaitForExit(const Arguments& arguments) {
    HANDLE process = StartedProcess(arguments);
    DWORD code = 0;
    if (WaitForSingleObject(process, arguments.Number(1)) != WAIT_OBJECT_0)
        return {};
    if (!GetExitCodeProcess(process, &code))
        FailWithLastError("GetExitCodeProcess");
    return {Record().Add(code)};
}

Answer EndProcess(const Arguments& arguments) {
    HANDLE process = StartedProcess(arguments);
    TerminateProcess(process, 1);
    WaitForSingleObject(process, 5000);
    return {};
}

Answer ListModules(const Arguments& arguments) {
    HANDLE process = StartedProcess(arguments);
    std::vector<HMODULE> modules(1024);
    DWORD bytes = 0;
    if (!EnumProcessModules(process, modules.data(), static_cast<DWORD>(modules.size() * sizeof(HMODULE)),
                            &bytes))
        FailWithLastError("EnumProcessModules");
    modules.resize(bytes / sizeof(HMODULE));
    Answer answer;
    for (HMODULE module : modules) {
        const std::wstring path = ModulePath(process, module);
        answer.push_back(Record().Add(path.substr(path.find_last_of(L'\\') + 1)).Add(path));
    }
    return answer;
}

Answer ListLoads(const Arguments& arguments) {
    HANDLE process = StartedProcess(arguments);
    Answer answer;
    for (const auto& [module, count] : LoadCounts(process))
        answer.push_back(Record().Add(ModulePath(process, module)).Add(count));
    return answer;
}

Answer CountObjects(const Arguments& arguments) {
    HANDLE process = StartedProcess(arguments);
    const DWORD identifier = arguments.Number(0);
    return {Record()
                .Add(CountWindows(identifier))
                .Add(CountGdiObjects(process))
                .Add(CountKernelHandles(identifier))};
}

Answer CountUser(const Arguments&) {
    return {Record().Add(CountUserHandles())};
}

} // namespace kestrelmoor::driver
