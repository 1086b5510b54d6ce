#pragma once

#include "tests/native/faults/scenario.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrelmoor::tests {

/// In the pattern * stands for any text.
bool Matches(std::string_view pattern, std::string_view text);

/// Lines of the log that others stand in place of. A pattern that no line fits means the end of the log.
struct LogPart {
    std::string from;  ///< a pattern of the first of them; empty: the first one behind the failed call
    std::string until; ///< a pattern of the first one behind them; empty: they go to the end
    std::vector<std::string> lines;
};

/// What a run with a fault is told to show, against the run without: the lines that come, word by word, and
/// patterns of those that go. Every line that goes or comes has to be told, and everything told needs a line.
/// With `only` the whole outcome is told in place of a difference. Two things make lines go without being
/// told one by one: a call that ends the run, and a person who can't go on. The log has its lines in this
/// order.
struct Told {
    std::vector<std::string> only, more;
    std::vector<std::string> gone; ///< patterns
    std::string stops; ///< a pattern: from the first line on that fits it nothing is seen any more
    std::vector<LogPart> log;
    std::size_t place = 0; ///< of the failed call
    bool ends = false;     ///< it ends the run
    std::size_t libraries =
        0; ///< that stay in the process, where they are more than the scenario leaves there

    /// What speaks against it in that scenario; empty: it holds.
    std::string Against(const Outcome& base, const Outcome& outcome, const Scenario& scenario) const;

  private:
    std::string AgainstHandles(const Outcome& outcome, const Scenario& scenario) const;
};

} // namespace kestrelmoor::tests
