#pragma once

#include "runtime/errors.h"
#include "tests/fuzz/sessions/session_checks.h"
#include "tests/native/rules/window_rules.h"
#include "tests/native/sessions/user_actions.h"

#include <string>
#include <vector>

namespace kestrelmoor::fuzz {

/// One start of the program in a world of the bytes' making, with a person who does what they say. Between
/// any two inputs the rules of the windows hold; what is broken is told on the error stream, with what was
/// done up to there, and ends the process.
class Session {
  public:
    Session(practice::World& world, SessionBytes bytes);
    void Run();

    /// Some window was open.
    void RequireWindow();

  private:
    bool Step();
    void Act();
    void DoOneOf(std::size_t number);
    void TypeText();
    void SendMessage();
    void ChangeWorld();
    void QueueForPump();
    void LookAtPasswordCall(const std::string& name);
    void Do(const tests::UserAction& action);
    void Look();
    void Require(const std::vector<std::string>& broken);
    void AcceptEnd(const RuntimeError& error);

    practice::World& mWorld;
    SessionBytes mBytes;
    StartedWorld mStarted;
    tests::WindowRules mRules{false};
    std::vector<std::string> mDone; ///< for a message
    bool mSawWindow = false;
    bool mGone = false; ///< the person
    int mPumpDepth = 0; ///< inputs that came while a handler was running
};

} // namespace kestrelmoor::fuzz
