// bare_silent.exe LANGUAGE-LIBRARY: the system's calls that a start of Moorlink.exe without a switch makes
// where all is well, in their order, and nothing between them. The targets are the local computer and the
// servers in the registry, all of them computers and active.

#include "tests/bench/bare/accounts.h"
#include "tests/bench/bare/language.h"
#include "tests/bench/bare/start_calls.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const wchar_t* const library = kestrelmoor::bench::Arguments();
    kestrelmoor::bench::CallsAheadOfTheLanguage(library);
    kestrelmoor::bench::Language language(library);
    kestrelmoor::bench::Accounts accounts;
    const wchar_t* server = kestrelmoor::bench::CallsBehindTheLanguage(accounts);
    accounts.AskForComputer();
    accounts.AskForPassword(nullptr);
    for (; *server != L'\0'; server += ::lstrlenW(server) + 1)
        accounts.AskForPassword(server);
    return 0;
}
