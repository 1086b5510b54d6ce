#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace kestrelmoor::practice {

/// A message box that was shown, and what it was answered.
struct Box {
    String text;
    std::uint32_t style = 0;
    String title;
    int answer = 0;
    std::uintptr_t window = 0; ///< while it is up
};

/// The message boxes of the process.
class Boxes {
  public:
    /// The answer to a coming box, in place of its default button.
    void Answer(int button) { mAnswers.push_back(button); }

    /// Records a box and answers it.
    int Show(const String& text, std::uint32_t style, const String& title, std::uintptr_t window = 0);

    const std::vector<Box>& All() const { return mBoxes; }
    void Clear() { mBoxes.clear(); }

    /// Told of each box when it has been answered.
    std::function<void(const Box&)> Shown;

  private:
    std::vector<Box> mBoxes;
    std::deque<int> mAnswers;
};

/// Where the mouse is on the screen, in pixels.
struct MousePlace {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// Something that the shell was asked to open.
struct ShellExecution {
    std::uintptr_t window = 0;
    String operation;
    String file;
    int show = 0;
};

/// What the person at the screen is about to do.
class Actions {
  public:
    /// Queues an action for the `pumps`-th pump of events from now on.
    void Queue(std::function<void()> action, int pumps = 1);

    /// One pump: runs what is due.
    void Pump();

    /// Runs the next action, due or not; with none, asks `Source`. False: nothing will ever come.
    bool RunNext();

    bool Empty() const { return mQueue.empty(); }

    /// Where further actions come from; false: there are none left.
    std::function<bool()> Source;

  private:
    struct Action {
        std::function<void()> run;
        int pumps;
    };
    std::deque<Action> mQueue;
};

} // namespace kestrelmoor::practice
