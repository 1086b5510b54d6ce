#pragma once

#include "tests/native/forms/password_rows.h"
#include "tests/native/secrets/trace_search.h"

namespace kestrelmoor::tests {

/// Passwords that are like nothing that the program or its world says, in none of their halves.
inline constexpr char16_t kMarkedOld[] = u"Xq4!ZvKw9jHb";
inline constexpr char16_t kMarkedNew[] = u"Yw8?GtPz2mQd";
inline constexpr char16_t kMarkedWrong[] = u"Jr6+NkVx5cLf";
inline constexpr char16_t kMarkedOfArchive[] = u"Bz3=TsRg7nWk";
inline constexpr char16_t kMarkedOfDomain[] = u"Dv1*MxCj6yFp";
/// What a text may hold that goes through formats, files and terminals.
inline constexpr char16_t kMarkedOdd[] = u"Kg5%1\t\"\\x\u00DF\u6F22\U0001F511\xD800\u2028Vh9Lu";

/// The window with a log, on accounts whose passwords are marked. What the search finds at any call, at any
/// box or at the end turns the test red.
class Secrets : public PasswordRows {
  protected:
    Secrets();
    ~Secrets() override;

    /// Nothing was found until now.
    void ExpectNoTrace();

    void SetPassword(StringView server, StringView password);

    /// Types an old password for each of the three targets.
    void TypeOldOfEach(StringView local, StringView archive, StringView domain);

    /// Types the new password twice.
    void TypeNew(StringView password);

    /// The directory answers for the network, in place of the network API.
    void InstallDirectory() { world.network.directory.present = true; }

    /// The window in front, from now on.
    void TakeWindow();

    static Form* FindForm(StringView name);

    /// At the next pump of events does `action` with the open form of that name.
    void AtNextPump(StringView name, std::function<void(Form&)> action);

    TraceSearch search{world,
                       {kMarkedOld, kMarkedNew, kMarkedWrong, kMarkedOfArchive, kMarkedOfDomain, kMarkedOdd}};
};

} // namespace kestrelmoor::tests
