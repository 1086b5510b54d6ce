#pragma once

#include <windows.h>

#include <lm.h>

struct IDispatch;

namespace kestrelmoor::bench {

/// The calls by which a start learns of the user's passwords, as few as they can be.
class Accounts {
  public:
    Accounts();

    /// The user's name, which the paths need.
    void AskForUser();

    /// The computer's name, for the path of the local computer.
    void AskForComputer();

    /// The state of the user's password on a server ("\\\\NAME", null for the local computer): through the
    /// directory, or where nothing can be bound through the network API.
    void AskForPassword(const wchar_t* server);

  private:
    bool AskDirectory(const wchar_t* name);
    void AskNetwork(const wchar_t* server);

    template <class Function>
    Function* Entry(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(mNetwork, name)));
    }

    HMODULE mNetwork = nullptr;
    decltype(::NetApiBufferFree)* mFree = nullptr;
    wchar_t mUser[UNLEN + 1] = L"";
    wchar_t mComputer[MAX_COMPUTERNAME_LENGTH + 1] = L"";
};

} // namespace kestrelmoor::bench
