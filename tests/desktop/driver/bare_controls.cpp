// What the system keeps of a control, with nothing of ours around it: "bare_controls PROGRAM KIND" makes and
// destroys labels or lists with a tab stop, of the kind that PROGRAM's manifest asks for. The exit code tells
// how many bytes of the heap each one has left behind.
#include <windows.h>

#include <string_view>

namespace {

constexpr int kRounds = 100;

bool TakeManifestOf(const wchar_t* program) {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.lpSource = program;
    context.lpResourceName = MAKEINTRESOURCEW(1);
    ULONG_PTR cookie = 0;
    HANDLE made = CreateActCtxW(&context);
    return made != INVALID_HANDLE_VALUE && ActivateActCtx(made, &cookie) && LoadLibraryW(L"comctl32.dll");
}

void MakeAndDestroy(HWND parent, bool list) {
    HWND control = CreateWindowExW(0, list ? L"LISTBOX" : L"STATIC", L"text",
                                   WS_CHILD | (list ? DWORD{LBS_USETABSTOPS} : DWORD{0}), 0, 0, 50, 20,
                                   parent, nullptr, nullptr, nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    int stop = 89;
    if (list)
        SendMessageW(control, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
    DestroyWindow(control);
}

long BytesHeld() {
    long bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(GetProcessHeap(), &entry))
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
            bytes += static_cast<long>(entry.cbData);
    return bytes;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3 || !TakeManifestOf(arguments[1]))
        return -1;
    const bool list = std::wstring_view(arguments[2]) == L"list";
    HWND parent =
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    MakeAndDestroy(parent, list);
    const long before = BytesHeld();
    for (int round = 0; round < kRounds; ++round)
        MakeAndDestroy(parent, list);
    return static_cast<int>((BytesHeld() - before) / kRounds);
}
