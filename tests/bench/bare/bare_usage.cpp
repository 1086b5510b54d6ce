// bare_usage.exe LANGUAGE-LIBRARY: shows what Moorlink.exe shows on /?, and does nothing else.

#include "tests/bench/bare/language.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    kestrelmoor::bench::Language language(kestrelmoor::bench::Arguments());
    ::LoadLibraryW(L"comctl32.dll");
    ::MessageBoxW(nullptr, language.Text(17), L"Kestrelmoor", MB_ICONINFORMATION);
    return 0;
}
