#include "commands.h"
#include "heap_probe.h"
#include "process_memory.h"

#include <array>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace kestrelmoor::driver {

namespace {

constexpr wchar_t kProbe[] = L"heap_probe.dll";

// Beside the driver.
std::wstring ProbePath() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\') + 1) + kProbe;
}

/// What a function of the system returns there for a text.
DWORD CallWithText(const OpenedProcess& process, const char* function, const std::wstring& text) {
    std::vector<unsigned char> bytes((text.size() + 1) * sizeof(wchar_t));
    std::memcpy(bytes.data(), text.c_str(), bytes.size());
    return process.CallWithBlock(L"kernel32.dll", function, {}, bytes);
}

DWORD LoadIn(const OpenedProcess& process, const std::wstring& path) {
    const DWORD module = CallWithText(process, "LoadLibraryW", path);
    if (module == 0)
        throw std::runtime_error("the process does not load the library");
    return module;
}

void PutProbe(const OpenedProcess& process) {
    if (LoadLibraryW(ProbePath().c_str()) == nullptr)
        FailWithLastError("LoadLibrary of the heap probe");
    if (CallWithText(process, "GetModuleHandleW", kProbe) == 0)
        LoadIn(process, ProbePath());
}

} // namespace

Answer MeasureHeaps(const Arguments& arguments) {
    const OpenedProcess process(WindowArgument(arguments, 0));
    PutProbe(process);
    std::array<unsigned char, sizeof(HeapUse)> bytes{};
    process.CallWithBlock(kProbe, kMeasureHeaps, {}, bytes);
    HeapUse use{};
    std::memcpy(&use, bytes.data(), sizeof use);
    return {Record().Add(use.own).Add(use.common)};
}

Answer LoadInProgram(const Arguments& arguments) {
    return {Record().Add(LoadIn(OpenedProcess(WindowArgument(arguments, 0)), arguments.Text(1)))};
}

} // namespace kestrelmoor::driver
