#include "tests/native/explorer/explorer.h"

#include "platform/form_peer.h"
#include "platform/practice/world/world_file.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "shell/Main.h"
#include "tests/native/explorer/fingerprint.h"
#include "tests/native/support/fresh_start.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

constexpr std::size_t kLongestStart = 400; ///< inputs: a way that can still be read
constexpr std::size_t kMostFindings = 10;

std::string JoinedWay(const std::vector<std::string>& way) {
    std::string text;
    for (const std::string& step : way)
        text += "\n    " + step;
    return text;
}

} // namespace

Explorer::Explorer(const StartOfExploration& start, std::size_t depth, bool closes_each_way)
    : mStart(start), mDepth(depth), mClosesEachWay(closes_each_way),
      mStartWorld(std::make_shared<practice::World>()) {
    practice::LoadStockWorld(*mStartWorld);
    if (start.prepare)
        start.prepare(*mStartWorld);
}

Explorer::Result Explorer::Explore() {
    do {
        const std::size_t tried = mTried;
        StartProgram();
        if (mTried == tried)
            RetraceToWork();
        else
            mSought.reset();
    } while (AnyWorkLeft() && mResult.findings.size() < kMostFindings);
    mResult.states = mStates.size();
    mResult.inputs = mTried;
    mResult.unreached = static_cast<std::size_t>(std::ranges::count_if(mStates, &State::lost));
    return mResult;
}

/// A known way can lead elsewhere at another time, since fingerprints leave out what OK alone stores. What
/// none leads to is come to by the very inputs that led there before; what was sought by them in vain is
/// lost.
void Explorer::RetraceToWork() {
    if (mSought)
        mStates[*mSought].lost = true;
    mSought.reset();
    const auto found = std::ranges::find_if(mStates, [this](const State& state) { return HasWork(state); });
    if (found == mStates.end())
        return;
    mSought = static_cast<std::size_t>(found - mStates.begin());
    mRetraced.assign(found->way.rbegin(), found->way.rend());
}

void Explorer::StartProgram() {
    practice::World& world = LastingWorld();
    ForgetCuePoint();
    PutBack(world, *mStartWorld);
    world.machine.command_line = FromUtf8(mStart.arguments);
    for (const int answer : mStart.answers)
        world.boxes.Answer(answer);
    for (const practice::Fault& fault : mStartWorld->calls.Faults())
        world.Fail(fault.name, fault.code, fault.nth);
    world.actions.Source = [this] { return GoOn(); };
    Application::Current().SetDesktop(&platform::TheDesktop());
    ResetProgramState();
    mRules = std::make_unique<WindowRules>();
    mWay.clear();
    mInputs.clear();
    mPlan.clear();
    mTaken.reset();
    mPrefixDone = 0;
    mGone = false;
    mLongest = kLongestStart + mRetraced.size();
    ++mResult.starts;
    RunProgram();
    world.actions = {};
    mRetraced.clear();
    GiveBackAll();
    if (world.handles.WrongReleases() != 0)
        mResult.findings.push_back("a wrong release" + JoinedWay(mWay));
}

void Explorer::RunProgram() {
    try {
        Main();
        Application::Current().Run();
        if (mTaken)
            Arrive(Fingerprint(*mRules));
    } catch (const RuntimeError& error) {
        mResult.findings.push_back("run-time error " + std::to_string(error.number()) + JoinedWay(mWay));
        if (mTaken)
            Arrive("error");
    }
}

/// One input, unless the person has gone. Behind a modal window each of the loops asks by itself, the outer
/// ones with windows as no program has them.
bool Explorer::GoOn() {
    if (!mGone && !TakeStep())
        mGone = true; // and stays so for the loops that wait for the one within
    return !mGone;
}

/// One input; false: this start has nothing left to do.
bool Explorer::TakeStep() {
    const bool sound = Look();
    if (mPrefixDone < mStart.prefix.size()) {
        const UserAction& action = mStart.prefix[mPrefixDone++];
        mWay.push_back(TextOf(action));
        return CarryOut(action, [this] { Look(); }) && sound;
    }
    Arrive(Fingerprint(*mRules));
    return sound && mWay.size() < mLongest && ChooseNext();
}

bool Explorer::Look() {
    const std::vector<std::string> broken = mRules->Look();
    for (const std::string& text : broken)
        mResult.findings.push_back(text + JoinedWay(mWay));
    return broken.empty();
}

/// Where the last input has led.
void Explorer::Arrive(const std::string& print) {
    const std::size_t here = StateOf(print);
    if (mTaken) {
        Edge& taken = mStates[mCurrent].edges[*mTaken];
        if (!taken.leads_to) {
            --mStates[mCurrent].untried;
            ++mTried;
        }
        taken.leads_to = here;
        Relax(mCurrent, here);
        mTaken.reset();
    }
    mCurrent = here;
    if (mRetraced.empty())
        mStates[here].lost = false;
}

bool Explorer::ChooseNext() {
    const std::optional<std::size_t> edge = NextInput();
    if (!edge)
        return false;
    mTaken = edge;
    const UserAction action = mStates[mCurrent].edges[*edge].action;
    mWay.push_back(TextOf(action));
    mInputs.push_back(action);
    ++mResult.steps;
    LastingWorld().calls.Clear();
    CarryOut(action, [this] { Look(); });
    return true;
}

/// Something new here, else a step towards the nearest state with something new.
std::optional<std::size_t> Explorer::NextInput() {
    const State& here = mStates[mCurrent];
    if (!mRetraced.empty())
        return RetracedInput();
    if (HasWork(here)) {
        const auto untried =
            std::ranges::find_if(here.edges, [](const Edge& edge) { return !edge.leads_to.has_value(); });
        return static_cast<std::size_t>(untried - here.edges.begin());
    }
    if (mPlan.empty() || mPlan.back().state != mCurrent)
        mPlan = WayToWork();
    if (mPlan.empty())
        return std::nullopt;
    const std::size_t edge = mPlan.back().edge;
    mPlan.pop_back();
    return edge;
}

std::optional<std::size_t> Explorer::RetracedInput() {
    const auto& edges = mStates[mCurrent].edges;
    const auto found = std::ranges::find(edges, mRetraced.back(), &Edge::action);
    mRetraced.pop_back();
    if (found == edges.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - edges.begin());
}

/// The shortest known way to a state with work, breadth first, its first step last.
std::vector<Explorer::Step> Explorer::WayToWork() const {
    constexpr std::size_t kNowhere = SIZE_MAX;
    std::vector<Step> came_by(mStates.size(), {kNowhere, 0});
    std::deque<std::size_t> queue{mCurrent};
    while (!queue.empty()) {
        const std::size_t at = queue.front();
        queue.pop_front();
        if (HasWork(mStates[at])) {
            std::vector<Step> way;
            for (std::size_t state = at; state != mCurrent; state = came_by[state].state)
                way.push_back(came_by[state]);
            return way;
        }
        for (std::size_t i = 0; i < mStates[at].edges.size(); ++i) {
            const auto next = mStates[at].edges[i].leads_to;
            if (!next || *next == mCurrent || came_by[*next].state != kNowhere)
                continue;
            came_by[*next] = {at, i};
            queue.push_back(*next);
        }
    }
    return {};
}

bool Explorer::HasWork(const State& state) const {
    return state.untried != 0 && !state.lost && (state.distance < mDepth || state.leads_back);
}

bool Explorer::AnyWorkLeft() const {
    return std::ranges::any_of(mStates, [this](const State& state) { return HasWork(state); });
}

std::size_t Explorer::StateOf(const std::string& print) {
    const auto [found, is_new] = mByPrint.emplace(print, mStates.size());
    if (is_new) {
        State state;
        state.distance = mStates.empty() ? 0 : mDepth + 1;
        for (const UserAction& action : ActionsHere())
            state.edges.push_back({action});
        state.untried = state.edges.size();
        const Form* const front = Application::Current().ActiveForm();
        state.leads_back = front != nullptr && front->Name() != mStart.explored;
        state.way = mInputs;
        mStates.push_back(std::move(state));
    }
    State& state = mStates[found->second];
    if (mInputs.size() < state.way.size())
        state.way = mInputs;
    return found->second;
}

/// A nearer way to a state brings all behind it nearer.
void Explorer::Relax(std::size_t from, std::size_t to) {
    std::deque<std::pair<std::size_t, std::size_t>> queue{{to, mStates[from].distance + 1}};
    while (!queue.empty()) {
        const auto [state, distance] = queue.front();
        queue.pop_front();
        if (mStates[state].distance <= distance)
            continue;
        mStates[state].distance = distance;
        for (const Edge& edge : mStates[state].edges)
            if (edge.leads_to)
                queue.emplace_back(*edge.leads_to, distance + 1);
    }
}

std::vector<UserAction> Explorer::ClosedInTurn(std::vector<UserAction> actions) const {
    if (mClosesEachWay)
        return actions;
    const std::vector<UserAction> closing{{ActionKind::CloseWindow},
                                          {ActionKind::Press, {}, key::kEscape},
                                          {ActionKind::Click, u"cmdCancel"},
                                          {ActionKind::DoubleClick, u"cmdCancel"}};
    std::erase_if(actions, [&](const UserAction& action) {
        const auto found = std::ranges::find(closing, action);
        return found != closing.end() &&
               static_cast<std::size_t>(found - closing.begin()) != mStates.size() % closing.size();
    });
    return actions;
}

/// In other windows than the explored one only what leads back.
std::vector<UserAction> Explorer::ActionsHere() const {
    const Form* const form = Application::Current().ActiveForm();
    if (form == nullptr)
        return {};
    if (practice::TheWorld().browser.Current() != nullptr)
        return PossibleActions();
    if (form->Name() == mStart.explored) {
        std::vector<UserAction> actions = ClosedInTurn(PossibleActions());
        // The sessions of the fuzzer have not these two, so that what it has found stays what it was.
        for (const int code : {key::kPageUp, key::kEnd})
            actions.push_back({ActionKind::Press, {}, code});
        return actions;
    }
    if (form->Name() == u"frmPass")
        return {{ActionKind::Click, u"cmdSettings"}};
    return {{ActionKind::Press, {}, key::kReturn}, {ActionKind::Press, {}, key::kEscape}};
}

} // namespace kestrelmoor::tests
