#pragma once

#include "platform/practice/world/world.h"
#include "tests/native/rules/window_rules.h"
#include "tests/native/sessions/user_actions.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// Where an exploration begins.
struct StartOfExploration {
    std::string name;
    std::string arguments;                         ///< of the command line
    std::function<void(practice::World&)> prepare; ///< changes the stock world
    std::vector<UserAction> prefix{};              ///< what leads to the window that is explored
    String explored;                               ///< the form; of others only the ways back are tried
    std::size_t states;                            ///< that there are at least, as deep as it goes
    std::size_t depth = 0;                         ///< in inputs, where no other is asked for
    std::vector<int> answers{};                    ///< to the first boxes, as buttons
};

/// Walks the states of a window by every input that a person can make in each, as deep as told from the
/// first one, and holds the rules of the windows after each input. The states are told apart by their
/// fingerprint; one that lies nearer by another way than it was found by counts by the nearer one. A start
/// of the program goes on for as long as there is something left to try in reach of where it stands.
class Explorer {
  public:
    /// With `closes_each_way` every state is left by all the ways that a window can be closed, which takes a
    /// new start of the program each time; else each by one of them in turn.
    Explorer(const StartOfExploration& start, std::size_t depth, bool closes_each_way);

    struct Result {
        std::size_t states = 0;            ///< that were seen
        std::size_t inputs = 0;            ///< that were tried, each in its state
        std::size_t steps = 0;             ///< all inputs made, the ways to states included
        std::size_t starts = 0;            ///< of the program
        std::size_t unreached = 0;         ///< states that could not be come to again
        std::vector<std::string> findings; ///< what was broken, each with the way to it
    };
    Result Explore();

  private:
    struct Edge {
        UserAction action;
        std::optional<std::size_t> leads_to{}; ///< none: not tried yet
    };
    struct State {
        std::vector<Edge> edges;
        std::size_t untried = 0;
        std::size_t distance = 0;      ///< from the first state
        bool leads_back = false;       ///< of another window than the explored one
        bool lost = false;             ///< its way has led elsewhere the second time
        std::vector<UserAction> way{}; ///< the inputs of the shortest start that was seen to come here
    };

    /// A known way: at a state the edge to take.
    struct Step {
        std::size_t state;
        std::size_t edge;
    };

    void StartProgram();
    void RunProgram();
    bool TakeStep();
    bool GoOn();
    void Arrive(const std::string& print);
    bool Look();
    bool ChooseNext();
    std::optional<std::size_t> NextInput();
    std::optional<std::size_t> RetracedInput();
    void RetraceToWork();
    std::vector<Step> WayToWork() const;
    bool HasWork(const State& state) const;
    bool AnyWorkLeft() const;
    std::size_t StateOf(const std::string& print);
    void Relax(std::size_t from, std::size_t to);
    std::vector<UserAction> ActionsHere() const;
    std::vector<UserAction> ClosedInTurn(std::vector<UserAction> actions) const;

    const StartOfExploration& mStart;
    std::size_t mDepth;
    bool mClosesEachWay;
    std::shared_ptr<practice::World> mStartWorld;
    std::vector<State> mStates;
    std::map<std::string, std::size_t> mByPrint;
    std::size_t mCurrent = 0;
    std::optional<std::size_t> mTaken;  ///< the edge of the current state that is being tried
    std::vector<Step> mPlan;            ///< the next step last
    std::vector<UserAction> mRetraced;  ///< inputs to be made as they were before, the next one last
    std::optional<std::size_t> mSought; ///< the state that they led to
    std::vector<UserAction> mInputs;    ///< of this start, behind the prefix
    std::size_t mPrefixDone = 0;
    bool mGone = false;       ///< the person, in this start
    std::size_t mLongest = 0; ///< this start, in inputs
    std::size_t mTried = 0;   ///< inputs, each in its state
    std::vector<std::string> mWay;
    std::unique_ptr<WindowRules> mRules; ///< of this start
    Result mResult;
};

} // namespace kestrelmoor::tests
