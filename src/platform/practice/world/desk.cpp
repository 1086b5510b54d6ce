#include "platform/practice/world/desk.h"

#include <utility>

namespace kestrelmoor::practice {

namespace {

constexpr std::uint32_t kButtonsMask = 0xF;
constexpr std::uint32_t kYesNo = 4;
constexpr std::uint32_t kSecondIsDefault = 0x100;
constexpr int kOk = 1;
constexpr int kYes = 6;
constexpr int kNo = 7;

int DefaultButton(std::uint32_t style) {
    if ((style & kButtonsMask) != kYesNo)
        return kOk;
    return (style & kSecondIsDefault) != 0 ? kNo : kYes;
}

} // namespace

int Boxes::Show(const String& text, std::uint32_t style, const String& title, std::uintptr_t window) {
    Box box{text, style, title, DefaultButton(style), window};
    if (!mAnswers.empty()) {
        box.answer = mAnswers.front();
        mAnswers.pop_front();
    }
    mBoxes.push_back(box);
    if (Shown)
        Shown(box);
    return box.answer;
}

void Actions::Queue(std::function<void()> action, int pumps) {
    mQueue.push_back({std::move(action), pumps});
}

void Actions::Pump() {
    std::deque<Action> due;
    std::deque<Action> later;
    for (Action& action : mQueue)
        (--action.pumps <= 0 ? due : later).push_back(std::move(action));
    mQueue = std::move(later);
    for (const Action& action : due)
        action.run();
}

bool Actions::RunNext() {
    if (mQueue.empty())
        return Source && Source();
    const Action action = std::move(mQueue.front());
    mQueue.pop_front();
    action.run();
    return true;
}

} // namespace kestrelmoor::practice
