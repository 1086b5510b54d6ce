#include "platform/shell_execution.h"

#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

#include <string>

#include <windows.h>

#include <dde.h>

namespace kestrelmoor::platform {
namespace {

constexpr UINT kOwnMode = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
constexpr UINT kUnseen = 0xFFFFFFFF;
constexpr wchar_t kEnding[] = L".kestrelmoor_opened";
constexpr wchar_t kWindowClass[] = L"KestrelmoorListener";

UINT ErrorMode() {
    const UINT mode = ::SetErrorMode(0);
    ::SetErrorMode(mode);
    return mode;
}

/// The error mode when the shell, within its call, asked all windows who takes the file.
UINT seen_mode = kUnseen;

LRESULT CALLBACK Listen(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_DDE_INITIATE)
        seen_mode = ErrorMode();
    return ::DefWindowProcW(window, message, wparam, lparam);
}

void WriteClass(const wchar_t* subkey, const wchar_t* text) {
    const std::wstring path = std::wstring(kEnding) + subkey;
    const auto size = static_cast<LONG>(std::wstring(text).size() * sizeof(wchar_t));
    ASSERT_EQ(::RegSetValueW(HKEY_CLASSES_ROOT, path.c_str(), REG_SZ, text, static_cast<DWORD>(size)), 0);
}

/// A file whose kind is opened by a message to a program that runs, and a window that hears of it.
class ShellExecution : public testing::Test {
  protected:
    void SetUp() override {
        WriteClass(L"", kEnding);
        WriteClass(L"\\shell\\open\\command", L"cmd.exe /c exit");
        WriteClass(L"\\shell\\open\\ddeexec", L"[open(\"%1\")]");
        WriteClass(L"\\shell\\open\\ddeexec\\application", L"Kestrelmoor");
        WriteClass(L"\\shell\\open\\ddeexec\\topic", L"System");

        wchar_t folder[MAX_PATH];
        ASSERT_NE(::GetTempPathW(MAX_PATH, folder), 0U);
        path = std::wstring(folder) + L"a" + kEnding;
        ::CloseHandle(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));

        WNDCLASSW window_class{};
        window_class.lpfnWndProc = Listen;
        window_class.hInstance = ::GetModuleHandleW(nullptr);
        window_class.lpszClassName = kWindowClass;
        ::RegisterClassW(&window_class);
        window = ::CreateWindowW(kWindowClass, L"", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                                 window_class.hInstance, nullptr);
        ASSERT_NE(window, nullptr);
        former_mode = ::SetErrorMode(kOwnMode);
        seen_mode = kUnseen;
    }

    void TearDown() override {
        ::SetErrorMode(former_mode);
        ::DestroyWindow(window);
        ::UnregisterClassW(kWindowClass, ::GetModuleHandleW(nullptr));
        ::DeleteFileW(path.c_str());
        for (const wchar_t* const subkey :
             {L"\\shell\\open\\ddeexec\\topic", L"\\shell\\open\\ddeexec\\application",
              L"\\shell\\open\\ddeexec", L"\\shell\\open\\command", L"\\shell\\open", L"\\shell", L""})
            ::RegDeleteKeyW(HKEY_CLASSES_ROOT, (std::wstring(kEnding) + subkey).c_str());
    }

    std::wstring path;
    HWND window = nullptr;
    UINT former_mode = 0;
};

TEST_F(ShellExecution, theSystemsErrorModeIsSetWhileTheShellWorksAndTheOwnOneAfterwards) {
    ShellExecuteW(0, u"open", FromWide(path.c_str()), kShowNormal);
    EXPECT_EQ(seen_mode, 0U);
    EXPECT_EQ(ErrorMode(), kOwnMode);
}

TEST_F(ShellExecution, theOwnErrorModeIsBackWhereNothingCouldBeOpened) {
    EXPECT_LE(ShellExecuteW(0, u"open", u"C:\\no such file.kestrelmoor_opened", kShowNormal), 32U);
    EXPECT_EQ(ErrorMode(), kOwnMode);
}

} // namespace
} // namespace kestrelmoor::platform
