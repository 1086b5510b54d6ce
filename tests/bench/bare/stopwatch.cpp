// stopwatch.exe time KIND PAIRS PROGRAM OTHER    times two programs in turn: microseconds of each, line by
// line stopwatch.exe look KIND PROGRAM                what one has loaded at that point: "library NAME",
// "memory BYTES"
//
// PROGRAM and OTHER are whole command lines. KIND says up to which point:
//   exit     the end of the process
//   box      the end of the process, whose one message box is closed as soon as it is seen
//   window   the window's boxes have been painted; it is then closed
//
// Exit code 1 when a program does not come to that point.

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPatience = 30000; ///< milliseconds
constexpr DWORD kSettling = 500;   ///< milliseconds until everything is painted, ahead of a look

double Now() {
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    ::QueryPerformanceCounter(&count);
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

/// A process that is ended with the object, where it has not ended by itself.
class Program {
  public:
    Program(const std::wstring& command_line, DWORD flags) {
        std::wstring line = command_line;
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                              &startup, &mInformation))
            throw std::runtime_error("a program does not start");
        ::CloseHandle(mInformation.hThread);
    }
    ~Program() {
        ::TerminateProcess(mInformation.hProcess, 1);
        ::CloseHandle(mInformation.hProcess);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    HANDLE Handle() const { return mInformation.hProcess; }
    DWORD Identifier() const { return mInformation.dwProcessId; }

    void WaitForEnd() const {
        if (::WaitForSingleObject(Handle(), kPatience) != WAIT_OBJECT_0)
            throw std::runtime_error("a program does not end");
        DWORD code = 1;
        if (!::GetExitCodeProcess(Handle(), &code) || code != 0)
            throw std::runtime_error("a program failed");
    }

  private:
    PROCESS_INFORMATION mInformation{};
};

struct Search {
    DWORD process;
    bool wants_box;
    HWND found;
};

BOOL CALLBACK Fits(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != search.process || !::IsWindowVisible(window))
        return TRUE;
    wchar_t window_class[32] = L"";
    ::GetClassNameW(window, window_class, 32);
    if ((std::wcscmp(window_class, L"#32770") == 0) != search.wants_box)
        return TRUE;
    search.found = window;
    return FALSE;
}

/// Asks every millisecond, so that the programs have the processor. False: the process has ended, or never.
template <class Question>
bool WaitUntil(const Program& program, Question question) {
    const DWORD start = ::GetTickCount();
    while (!question()) {
        if (::WaitForSingleObject(program.Handle(), 1) == WAIT_OBJECT_0 ||
            ::GetTickCount() - start > kPatience)
            return false;
    }
    return true;
}

HWND WaitForWindow(const Program& program, bool wants_box) {
    Search search{program.Identifier(), wants_box, nullptr};
    const auto found = [&] {
        ::EnumWindows(Fits, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    };
    if (!WaitUntil(program, found))
        throw std::runtime_error("no window came up");
    return search.found;
}

BOOL CALLBACK CollectBoxes(HWND child, LPARAM parameter) {
    wchar_t window_class[32] = L"";
    ::GetClassNameW(child, window_class, 32);
    if (::lstrcmpiW(window_class, L"EDIT") == 0 && ::IsWindowVisible(child) && ::IsWindowEnabled(child))
        reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
    return TRUE;
}

/// Whether the screen shows the boxes' own ground on a form's: they are the last that is painted.
class PaintedWindow {
  public:
    explicit PaintedWindow(HWND window) : mWindow(window), mScreen(::GetDC(nullptr)) {}
    ~PaintedWindow() { ::ReleaseDC(nullptr, mScreen); }
    PaintedWindow(const PaintedWindow&) = delete;
    PaintedWindow& operator=(const PaintedWindow&) = delete;

    bool Stands() const {
        std::vector<HWND> boxes;
        ::EnumChildWindows(mWindow, CollectBoxes, reinterpret_cast<LPARAM>(&boxes));
        const auto plain =
            std::count_if(boxes.begin(), boxes.end(), [this](HWND box) { return IsGround(box); });
        // The one with the focus may have a tint.
        return boxes.size() >= 3 && Pixel(mWindow, 2, 2) == ::GetSysColor(COLOR_BTNFACE) &&
               static_cast<std::size_t>(plain) + 1 >= boxes.size();
    }

  private:
    bool IsGround(HWND box) const {
        RECT client{};
        ::GetClientRect(box, &client);
        return Pixel(box, client.right / 2, client.bottom / 2) == ::GetSysColor(COLOR_WINDOW);
    }
    COLORREF Pixel(HWND window, LONG x, LONG y) const {
        POINT point{x, y};
        ::ClientToScreen(window, &point);
        return ::GetPixel(mScreen, point.x, point.y);
    }

    HWND mWindow;
    HDC mScreen;
};

HWND WaitForPaint(const Program& program) {
    const HWND window = WaitForWindow(program, false);
    const PaintedWindow painted(window);
    if (!WaitUntil(program, [&] { return painted.Stands(); }))
        throw std::runtime_error("a window was not painted");
    return window;
}

void CloseBox(const Program& program) {
    ::PostMessageW(WaitForWindow(program, true), WM_CLOSE, 0, 0);
}

double TimeToExit(const std::wstring& command_line) {
    const double start = Now();
    const Program program(command_line, 0);
    program.WaitForEnd();
    return Now() - start;
}

double TimeToBox(const std::wstring& command_line) {
    const double start = Now();
    const Program program(command_line, 0);
    CloseBox(program);
    program.WaitForEnd();
    return Now() - start;
}

double TimeToWindow(const std::wstring& command_line) {
    const double start = Now();
    const Program program(command_line, 0);
    const HWND window = WaitForPaint(program);
    const double time = Now() - start;
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    program.WaitForEnd();
    return time;
}

void PrintLoaded(const Program& program) {
    HMODULE modules[256];
    DWORD bytes = 0;
    if (!::EnumProcessModules(program.Handle(), modules, sizeof modules, &bytes))
        throw std::runtime_error("the libraries can't be listed");
    const std::size_t count = std::min<std::size_t>(bytes / sizeof(HMODULE), 256);
    for (std::size_t index = 1; index < count; ++index) {
        wchar_t name[MAX_PATH] = L"";
        ::GetModuleBaseNameW(program.Handle(), modules[index], name, MAX_PATH);
        std::printf("library %ls\n", name);
    }
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    if (::GetProcessMemoryInfo(program.Handle(), &memory, sizeof memory))
        std::printf("memory %lu\n", static_cast<unsigned long>(memory.WorkingSetSize));
}

/// The name of a library that was just loaded, by its file.
void PrintLoad(const LOAD_DLL_DEBUG_INFO& load) {
    wchar_t path[MAX_PATH] = L"";
    if (::GetFinalPathNameByHandleW(load.hFile, path, MAX_PATH, 0) == 0)
        throw std::runtime_error("a library has no name");
    std::printf("library %ls\n", std::wcsrchr(path, L'\\') + 1);
    ::CloseHandle(load.hFile);
}

/// The greatest working set so far; 0 of a process that has ended.
SIZE_T PeakMemory(const Program& program) {
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    return ::GetProcessMemoryInfo(program.Handle(), &memory, sizeof memory) ? memory.PeakWorkingSetSize : 0;
}

/// Waits for the next event of a process, and keeps an eye on its memory meanwhile.
DEBUG_EVENT NextEvent(const Program& program, SIZE_T& peak) {
    const DWORD start = ::GetTickCount();
    for (DEBUG_EVENT event{};;) {
        const bool came = ::WaitForDebugEvent(&event, 1) != 0;
        peak = std::max(peak, PeakMemory(program));
        if (came)
            return event;
        if (::GetTickCount() - start > kPatience)
            throw std::runtime_error("a program does not end");
    }
}

/// A process that has ended can't be asked, so its libraries are noted as they are loaded.
void LookAtExit(const std::wstring& command_line) {
    const Program program(command_line, DEBUG_ONLY_THIS_PROCESS);
    SIZE_T peak = 0;
    for (bool ended = false; !ended;) {
        const DEBUG_EVENT event = NextEvent(program, peak);
        if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT)
            PrintLoad(event.u.LoadDll);
        ended = event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT;
        ::ContinueDebugEvent(event.dwProcessId, event.dwThreadId, DBG_CONTINUE);
    }
    program.WaitForEnd();
    std::printf("memory %lu\n", static_cast<unsigned long>(peak));
}

void LookAtBox(const std::wstring& command_line) {
    const Program program(command_line, 0);
    const HWND box = WaitForWindow(program, true);
    ::Sleep(kSettling);
    PrintLoaded(program);
    ::PostMessageW(box, WM_CLOSE, 0, 0);
    program.WaitForEnd();
}

void LookAtWindow(const std::wstring& command_line) {
    const Program program(command_line, 0);
    const HWND window = WaitForPaint(program);
    ::Sleep(kSettling);
    PrintLoaded(program);
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    program.WaitForEnd();
}

struct Kind {
    double (*time)(const std::wstring&);
    void (*look)(const std::wstring&);
};

const std::map<std::wstring, Kind> kKinds = {
    {L"exit", {TimeToExit, LookAtExit}},
    {L"box", {TimeToBox, LookAtBox}},
    {L"window", {TimeToWindow, LookAtWindow}},
};

/// The order turns from pair to pair, so that neither program always follows the other.
void TimePairs(const Kind& kind, int pairs, const std::wstring& program, const std::wstring& other) {
    for (int pair = 0; pair < pairs; ++pair) {
        double times[2] = {};
        for (const int which : {pair % 2, 1 - pair % 2})
            times[which] = kind.time(which == 0 ? program : other);
        std::printf("%.0f\t%.0f\n", times[0], times[1]);
    }
}

int Run(const std::vector<std::wstring>& arguments) {
    const Kind& kind = kKinds.at(arguments.at(1));
    if (arguments.at(0) == L"time")
        TimePairs(kind, std::stoi(arguments.at(2)), arguments.at(3), arguments.at(4));
    else
        kind.look(arguments.at(2));
    return 0;
}

} // namespace

int wmain(int count, wchar_t** values) {
    try {
        return Run({values + 1, values + count});
    } catch (const std::exception& error) {
        std::printf("stopwatch: %s\n", error.what());
        return 1;
    }
}
