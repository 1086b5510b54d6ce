#pragma once

#include "platform/practice/world/browse_dialog.h"
#include "platform/practice/world/calls.h"
#include "platform/practice/world/clock.h"
#include "platform/practice/world/desk.h"
#include "platform/practice/world/file_tree.h"
#include "platform/practice/world/handles.h"
#include "platform/practice/world/libraries.h"
#include "platform/practice/world/machine.h"
#include "platform/practice/world/network.h"
#include "platform/practice/world/registry_tree.h"
#include "platform/practice/world/shell_tree.h"

#include <array>
#include <functional>
#include <string_view>
#include <vector>

namespace kestrelmoor::practice {

/// An imagined network with the computer that the program runs on: all that the platform answers from.
/// A new one is empty; see world_file.h for the stock world and for files.
class World {
  public:
    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // What stands in a file.
    Clock clock;
    Moment pump_milliseconds = 10; ///< by which each pump of events moves the clock on
    Network network;
    RegistryTree registry;
    FileTree files;
    Libraries libraries;
    Machine machine;
    ShellTree shell;

    // What happens while the program runs.
    Calls calls;
    HandleTable handles;
    Boxes boxes;
    BrowseDesk browser;
    Actions actions;
    std::array<std::uint8_t, 256> key_states{}; ///< high bit: held; lowest bit: toggled
    MousePlace mouse;
    std::vector<ShellExecution> shell_executions;   ///< those that were opened
    std::vector<std::string> mutexes;               ///< names of those that were created
    std::vector<std::uint32_t> session_ends;        ///< flags of each request to end the session
    std::function<void(const Box&)> ended_by_error; ///< told ahead of an end by an error

    /// Makes the `nth` coming call of that name (0: every one) answer `code`: a status, a COM result, or
    /// failure with that last error, as the call has it.
    void Fail(std::string_view name, std::uint32_t code, int nth = 1) { calls.Fail(name, code, nth); }

    /// Handles, keys, records, modules and lists that were handed out and not given back.
    std::size_t OutstandingHandles() const { return handles.Outstanding(); }

    /// Sets how long ago an account's password was set.
    void SetPasswordAge(Account& account, std::uint32_t seconds) const {
        account.password_set = clock.Now() - Moment{seconds} * kSecond;
    }
};

/// The world that the platform answers from: the stock world until another is put in its place.
World& TheWorld();

/// A world of its own in place of the present one, for as long as it lives.
class ScopedWorld : public World {
  public:
    ScopedWorld(); ///< the stock world

    /// The world of a file; raises WorldFileError.
    explicit ScopedWorld(const std::string& path);
    ~ScopedWorld();

  private:
    World* mFormer = nullptr;
};

} // namespace kestrelmoor::practice
