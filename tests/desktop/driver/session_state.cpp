#include "commands.h"
#include "process_memory.h"

#include <array>
#include <cstring>

namespace kestrelmoor::driver {

namespace {

struct Pointer {
    DWORD resource;
    const char* name;
};
constexpr Pointer kPointers[] = {{32512, "arrow"}, {32513, "text"}, {32514, "wait"}};

HGLOBAL SharedCopy(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr)
        FailWithLastError("GlobalAlloc");
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    return memory;
}

} // namespace

// Stock pointers are shared within a process: asked there, loading one gives the handle that it shows.
Answer ReadPointer(const Arguments& arguments) {
    const OpenedProcess process(WindowArgument(arguments, 0));
    CURSORINFO shown{};
    shown.cbSize = sizeof shown;
    if (!GetCursorInfo(&shown))
        FailWithLastError("GetCursorInfo");
    for (const Pointer& pointer : kPointers)
        if (process.Call(L"user32.dll", "LoadCursorW", {0, pointer.resource}) ==
            static_cast<DWORD>(Number(shown.hCursor)))
            return {Record().Add(std::string(pointer.name))};
    return {Record().Add(std::string("other"))};
}

Answer CallInProgram(const Arguments& arguments) {
    const std::wstring library = arguments.Text(1);
    if (LoadLibraryW(library.c_str()) == nullptr)
        FailWithLastError("LoadLibrary");
    std::vector<DWORD> given;
    for (std::size_t i = 3; i < arguments.Count(); ++i)
        given.push_back(arguments.Number(i));
    const OpenedProcess process(WindowArgument(arguments, 0));
    return {Record().Add(process.Call(library.c_str(), arguments.Utf8(2).c_str(), given))};
}

// A window tells its icon, and a bitmap its size, to its own process alone.
Answer ReadWindowIcon(const Arguments& arguments) {
    HWND window = WindowArgument(arguments, 0);
    const OpenedProcess process(window);
    const auto handle = static_cast<DWORD>(Number(window));
    const DWORD icon =
        process.Call(L"user32.dll", "SendMessageW", {handle, WM_GETICON, arguments.Number(1), 0});
    if (icon == 0)
        return {};
    std::array<unsigned char, sizeof(ICONINFO)> icon_bytes{};
    std::array<unsigned char, sizeof(BITMAP)> bitmap_bytes{};
    process.CallWithBlock(L"user32.dll", "GetIconInfo", {icon}, icon_bytes);
    ICONINFO info{};
    std::memcpy(&info, icon_bytes.data(), sizeof info);
    const auto picture = static_cast<DWORD>(Number(info.hbmColor));
    process.CallWithBlock(L"gdi32.dll", "GetObjectW", {picture, sizeof(BITMAP)}, bitmap_bytes);
    process.Call(L"gdi32.dll", "DeleteObject", {picture});
    process.Call(L"gdi32.dll", "DeleteObject", {static_cast<DWORD>(Number(info.hbmMask))});
    BITMAP bitmap{};
    std::memcpy(&bitmap, bitmap_bytes.data(), sizeof bitmap);
    return {Record().Add(icon).Add(bitmap.bmWidth).Add(bitmap.bmHeight)};
}

Answer PutOnClipboard(const Arguments& arguments) {
    if (!OpenClipboard(nullptr))
        FailWithLastError("OpenClipboard");
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, SharedCopy(arguments.Text(0)));
    CloseClipboard();
    return {};
}

} // namespace kestrelmoor::driver
