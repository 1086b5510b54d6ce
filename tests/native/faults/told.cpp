#include "tests/native/faults/told.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <stdexcept>

namespace kestrelmoor::tests {

namespace {

using Lines = std::vector<std::string>;

/// The lines of `a` that `b` doesn't have, as often as it doesn't.
Lines Without(Lines a, const Lines& b) {
    for (const std::string& line : b)
        if (const auto found = std::ranges::find(a, line); found != a.end())
            a.erase(found);
    return a;
}

std::string Complaints(const std::string& complaint, const Lines& lines) {
    std::string complaints;
    for (const std::string& line : lines)
        complaints += "  " + complaint + ": " + line + "\n";
    return complaints;
}

/// Each line has to be told as often as it comes.
std::string Against(const std::string& what, const Lines& lines, const Lines& told) {
    return Complaints(what + ", and not told", Without(lines, told)) +
           Complaints("told, and not " + what, Without(told, lines));
}

/// Each line that goes needs a pattern, and each pattern a line.
std::string AgainstGone(const Lines& lines, const Lines& told) {
    Lines unneeded = told;
    Lines untold = lines;
    std::erase_if(untold, [&](const std::string& line) {
        return std::ranges::any_of(told, [&](const std::string& pattern) { return Matches(pattern, line); });
    });
    std::erase_if(unneeded, [&](const std::string& pattern) {
        return std::ranges::any_of(lines, [&](const std::string& line) { return Matches(pattern, line); });
    });
    return Complaints("gone, and not told", untold) + Complaints("told, and not gone", unneeded);
}

/// Of the lines that stay none may fit a pattern of those that go; of one that comes twice, one may go.
std::string AgainstStaying(const Lines& base, const Lines& shown, const Lines& gone) {
    const Lines went = Without(base, shown);
    Lines staying = Without(base, went);
    std::erase_if(staying, [&](const std::string& line) {
        return std::ranges::count(went, line) != 0 ||
               std::ranges::none_of(gone, [&](const std::string& pattern) { return Matches(pattern, line); });
    });
    return Complaints("told as gone, and still there", staying);
}

/// How many lines both have in the same order.
std::size_t CommonInOrder(const Lines& a, const Lines& b) {
    std::vector<std::size_t> longest(b.size() + 1);
    for (const std::string& line : a)
        for (std::size_t i = 0, before = 0; i < b.size(); ++i) {
            const std::size_t above = longest[i + 1];
            longest[i + 1] = line == b[i] ? before + 1 : std::max(above, longest[i]);
            before = above;
        }
    return longest.back();
}

std::string AgainstOrder(const Lines& base, const Lines& shown) {
    const std::size_t common = base.size() - Without(base, shown).size();
    return CommonInOrder(base, shown) == common ? "" : "  what is shown comes in another order\n";
}

/// The place of the nth call with one of these names that no fault answered.
std::size_t PlaceOf(const Lines& names, std::size_t nth, const Outcome& run) {
    for (std::size_t place = 0; place < run.calls->size(); ++place)
        if (std::ranges::count(names, (*run.calls)[place].name) != 0 && !run.failed.contains(place) &&
            nth-- == 0)
            return place;
    throw std::runtime_error("there is no such call: " + names.front());
}

/// The place of the call that a change of the world comes from: the nth of its kind from the nth such call,
/// but for those of the registry, which all count as made with the first one.
std::size_t PlaceOfChange(const std::string& kind, std::size_t nth, const Outcome& run) {
    static const std::map<std::string, Lines> kCalls{
        {"mutex", {"CreateMutexA"}},
        {"session", {"ExitWindowsEx"}},
        {"password", {"NetUserChangePassword", "IADsUser.ChangePassword"}},
        {"file", {"OpenForAppending"}},
        {"opened", {"ShellExecuteW"}},
        {"registry", {"RegSetValueExW", "RegDeleteValueW"}},
    };
    return PlaceOf(kCalls.at(kind), kind == "registry" ? 0 : nth, run);
}

/// How many lines the log has when the call in that place is made.
std::size_t LoggedBy(std::size_t place, const Outcome& run) {
    std::size_t lines = 0;
    for (std::size_t i = 0; i < place; ++i)
        lines += (*run.calls)[i].name == "Append" && !run.failed.contains(i) ? 1U : 0U;
    return lines;
}

/// What is left of an outcome if its run ends at the call in that place.
Outcome UpTo(std::size_t place, const Outcome& whole) {
    Outcome left;
    left.calls = whole.calls;
    std::map<std::string, std::size_t> changes;
    for (std::size_t i = 0; i < whole.lines.size(); ++i) {
        const std::string kind = whole.lines[i].substr(0, whole.lines[i].find(' '));
        const bool is_left = i < whole.made.size() ? whole.made[i] <= place
                                                   : PlaceOfChange(kind, changes[kind]++, whole) < place;
        if (is_left)
            left.lines.push_back(whole.lines[i]);
    }
    left.log.assign(whole.log.begin(), whole.log.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                               whole.log.size(), LoggedBy(place, whole))));
    return left;
}

/// What is left of an outcome if nothing is seen any more from the line on that fits the pattern.
Outcome Unseen(const std::string& pattern, Outcome outcome) {
    const auto changes = outcome.lines.begin() + static_cast<std::ptrdiff_t>(outcome.made.size());
    const auto from = std::find_if(outcome.lines.begin(), changes,
                                   [&](const std::string& line) { return Matches(pattern, line); });
    if (from == changes)
        throw std::runtime_error("no line is seen that fits " + pattern);
    outcome.lines.erase(from, changes);
    return outcome;
}

/// The first line from there on that fits the pattern; the end without one.
Lines::const_iterator Find(const std::string& pattern, Lines::const_iterator from, const Lines& lines) {
    return std::find_if(from, lines.end(), [&](const std::string& line) { return Matches(pattern, line); });
}

/// The log with those parts in place of its lines.
Lines WithParts(const std::vector<LogPart>& parts, const Lines& log, std::size_t failed_at) {
    Lines told;
    auto at = log.begin();
    for (const LogPart& part : parts) {
        const auto failed = log.begin() + static_cast<std::ptrdiff_t>(std::min(failed_at, log.size()));
        const auto first = part.from.empty() ? failed : Find(part.from, std::max(at, failed), log);
        told.insert(told.end(), at, first);
        told.insert(told.end(), part.lines.begin(), part.lines.end());
        at = Find(part.until, first, log);
    }
    told.insert(told.end(), at, log.end());
    return told;
}

std::string AgainstLog(const Lines& told, const Lines& log) {
    const auto [one, line] = std::mismatch(told.begin(), told.end(), log.begin(), log.end());
    if (one == told.end() && line == log.end())
        return {};
    return "  line " + std::to_string(line - log.begin() + 1) + " of the log is " +
           (line == log.end() ? "not there" : *line) + "\n    told: " + (one == told.end() ? "none" : *one) +
           "\n";
}

} // namespace

bool Matches(std::string_view pattern, std::string_view text) {
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == '*')
        return Matches(pattern.substr(1), text) || (!text.empty() && Matches(pattern, text.substr(1)));
    return !text.empty() && pattern.front() == text.front() && Matches(pattern.substr(1), text.substr(1));
}

std::string Told::Against(const Outcome& base, const Outcome& outcome, const Scenario& scenario) const {
    using tests::Against;
    Outcome left = ends ? UpTo(place, base) : base;
    if (!stops.empty())
        left = Unseen(stops, left);
    std::string against;
    if (!only.empty())
        against = Against("shown", outcome.lines, only);
    else
        against = AgainstGone(Without(left.lines, outcome.lines), gone) +
                  AgainstStaying(left.lines, outcome.lines, gone) +
                  Against("more", Without(outcome.lines, left.lines), more) +
                  AgainstOrder(left.lines, outcome.lines);
    if (scenario.IsLogged())
        against += AgainstLog(WithParts(log, left.log, LoggedBy(place, base)), outcome.log);
    return against + AgainstHandles(outcome, scenario);
}

std::string Told::AgainstHandles(const Outcome& outcome, const Scenario& scenario) const {
    std::string against;
    const auto count = [&](const char* what, std::size_t number) {
        against += std::string("  ") + what + ": " + std::to_string(number) + "\n";
    };
    if (outcome.handles_left != 0)
        count("handles left open", outcome.handles_left);
    if (outcome.modules_left > std::max(scenario.modules_left, libraries))
        count("libraries left loaded", outcome.modules_left);
    if (outcome.themes_left > scenario.themes_left)
        count("visual styles left open", outcome.themes_left);
    if (outcome.wrong_releases != 0)
        count("wrong releases", outcome.wrong_releases);
    return against;
}

} // namespace kestrelmoor::tests
