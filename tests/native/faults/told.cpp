#include "tests/native/faults/told.h"

#include "platform/practice/world/host_file.h"
#include "runtime/errors.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace kestrelmoor::tests {

namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;

bool Matches(std::string_view pattern, std::string_view text) {
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == '*')
        return Matches(pattern.substr(1), text) || (!text.empty() && Matches(pattern, text.substr(1)));
    return !text.empty() && pattern.front() == text.front() && Matches(pattern.substr(1), text.substr(1));
}

bool MatchesAny(const Lines& patterns, const std::string& line) {
    return std::ranges::any_of(patterns, [&](const std::string& pattern) { return Matches(pattern, line); });
}

/// One text or a list of them.
bool Names(const json& names, const std::string& name) {
    if (names.is_string())
        return Matches(names.get<std::string>(), name);
    return std::ranges::any_of(names, [&](const json& one) { return Matches(one.get<std::string>(), name); });
}

/// One number or a list of them.
bool Counts(const json& numbers, int number) {
    return numbers.is_array() ? std::ranges::find(numbers, json(number)) != numbers.end() : numbers == number;
}

/// The lines of `a` that `b` doesn't have, as often as it doesn't.
Lines Without(Lines a, const Lines& b) {
    for (const std::string& line : b)
        if (const auto found = std::ranges::find(a, line); found != a.end())
            a.erase(found);
    return a;
}

/// Each line needs a pattern, and each pattern of the told ones a line.
std::string Against(const char* what, const Lines& lines, const Lines& told, const Lines& allowed = {}) {
    std::string against;
    for (const std::string& line : lines)
        if (!MatchesAny(told, line) && !MatchesAny(allowed, line))
            against += std::string("  ") + what + ", and not told: " + line + "\n";
    for (const std::string& pattern : told)
        if (std::ranges::none_of(lines, [&](const std::string& line) { return Matches(pattern, line); }))
            against += std::string("  told, and not ") + what + ": " + pattern + "\n";
    return against;
}

void ReplaceAll(std::string& text, const std::string& mark, const std::string& by) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size()))
        text.replace(at, mark.size(), by);
}

void Join(Lines& lines, const Lines& further) {
    lines.insert(lines.end(), further.begin(), further.end());
}

bool EndsByError(const Told& told) {
    return std::ranges::any_of(told.more, [](const std::string& line) { return line.starts_with("error "); });
}

/// Where the second one ends the run, its outcome is the whole, behind what the first one has shown by then.
Told Both(Told a, Told b) {
    if (!b.only.empty())
        return b;
    if (EndsByError(b)) {
        Join(b.may_come, a.more);
        Join(b.log_may_come, a.log_more);
        return b;
    }
    Join(a.gone, b.gone);
    Join(a.more, b.more);
    Join(a.may_go, b.may_go);
    Join(a.may_come, b.may_come);
    Join(a.log_gone, b.log_gone);
    Join(a.log_more, b.log_more);
    Join(a.log_may_go, b.log_may_go);
    Join(a.log_may_come, b.log_may_come);
    return a;
}

void CutWords(Lines& patterns) {
    static const std::regex kWords(R"((rror -?\d+:).*$)");
    for (std::string& pattern : patterns)
        pattern = std::regex_replace(pattern, kWords, "$1");
}

/// The same where the system has no words for the error.
Told WithoutWords(Told told) {
    CutWords(told.more);
    CutWords(told.only);
    CutWords(told.log_more);
    told.log_may_come.emplace_back("Error: No text was found for a system error.*");
    return told;
}

/// The same in a run that has taken another road, whose lines of the log the usual one doesn't have.
Told OnAnotherRoad(Told told) {
    Join(told.log_may_go, told.log_gone);
    told.log_gone.clear();
    return told;
}

/// The same where a box can't be shown.
Told WithoutABox(Told told) {
    for (Lines* const patterns : {&told.more, &told.only})
        std::erase_if(*patterns, [](const std::string& pattern) { return pattern.starts_with("box "); });
    return told;
}

/// The places of the calls with one of these names.
std::vector<std::size_t> PlacesOf(const json& names, const std::vector<practice::Call>& calls) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < calls.size(); ++place)
        if (Names(names, calls[place].name))
            places.push_back(place);
    return places;
}

/// The second cell's call as it is in the run without the first fault, among the calls with these names; none
/// where only the road that the fault opens has it. Up to where the roads part the calls are the same from
/// the front, and from where they meet again, from the end.
std::optional<Cell> WithoutTheFirst(const Cell& first, const Cell& second, const json& names) {
    const std::vector<std::size_t> usual = PlacesOf(names, *first.calls);
    const std::vector<std::size_t> failed = PlacesOf(names, *second.calls);
    const auto same_name = [&](std::size_t one, std::size_t other) {
        return (*second.calls)[one].name == (*first.calls)[other].name;
    };
    const auto parted =
        std::mismatch(failed.begin(), failed.end(), usual.begin(), usual.end(), same_name).first;
    const auto met =
        std::mismatch(failed.rbegin(), failed.rend(), usual.rbegin(), usual.rend(), same_name).first.base();
    const auto here = std::ranges::find(failed, second.place);
    if (here < parted)
        return Cell{first.scenario, first.calls, usual[static_cast<std::size_t>(here - failed.begin())],
                    second.code};
    if (here >= met)
        return Cell{first.scenario, first.calls, *(usual.end() - (failed.end() - here)), second.code};
    return std::nullopt;
}

bool FitsPair(const json& rule, const Cell& first, const Cell& second) {
    return Names(rule.at("first"), first.Call().name) && Names(rule.at("second"), second.Call().name) &&
           practice::TextOf(second.Call()).find(rule.value("where", "")) != std::string::npos &&
           (!rule.contains("nth") || Counts(rule.at("nth"), first.Fault().nth)) &&
           (!rule.contains("scenario") || Names(rule.at("scenario"), first.scenario->name));
}

} // namespace

practice::Fault Cell::Fault() const {
    int nth = 0;
    for (std::size_t i = 0; i <= place; ++i)
        nth += (*calls)[i].name == Call().name ? 1 : 0;
    return {Call().name, code, nth};
}

std::string Cell::Text() const {
    const practice::Fault fault = Fault();
    return scenario->name + ": " + practice::TextOf(Call()) + ", number " + std::to_string(fault.nth) +
           ", answers " + std::to_string(code);
}

std::string Told::Against(const Outcome& base, const Outcome& outcome, const Scenario& scenario) const {
    using tests::Against;
    std::string against;
    if (!only.empty())
        against = Against("shown", outcome.lines, only);
    else
        against = Against("gone", Without(base.lines, outcome.lines), gone, may_go) +
                  Against("more", Without(outcome.lines, base.lines), more, may_come);
    if (scenario.IsLogged())
        against += Against("gone from the log", Without(base.log, outcome.log), log_gone, log_may_go) +
                   Against("more in the log", Without(outcome.log, base.log), log_more, log_may_come);
    return against + AgainstHandles(outcome, scenario);
}

std::string Told::AgainstHandles(const Outcome& outcome, const Scenario& scenario) const {
    std::string against;
    const auto count = [&](const char* what, std::size_t number) {
        against += std::string("  ") + what + ": " + std::to_string(number) + "\n";
    };
    if (outcome.handles_left != 0)
        count("handles left open", outcome.handles_left);
    if (modules_left ? outcome.modules_left != *modules_left : outcome.modules_left > scenario.modules_left)
        count("libraries left loaded", outcome.modules_left);
    if (outcome.wrong_releases != 0)
        count("wrong releases", outcome.wrong_releases);
    return against;
}

ToldTable::ToldTable() : mTable(json::parse(practice::ReadHostFile(FAULTS_FOLDER "/told.json"))) {}

const ToldTable& ToldTable::Current() {
    static const ToldTable table;
    return table;
}

bool ToldTable::Answers(const practice::Call& call) const {
    return !Names(mTable.at("unanswered"), call.name);
}

std::vector<std::uint32_t> ToldTable::CodesOf(const std::string& call) const {
    if (!Answers({call, {}}))
        return {};
    if (!mTable.at("codes").contains(call))
        throw std::runtime_error("told.json has no codes for " + call);
    return mTable.at("codes").at(call);
}

bool ToldTable::FitsCall(const json& rule, const practice::Call& call) const {
    return Names(rule.at("call"), call.name) &&
           practice::TextOf(call).find(rule.value("where", "")) != std::string::npos;
}

bool ToldTable::FitsNeighbours(const json& rule, const Cell& cell) const {
    const auto answers = [&](const practice::Call& call) { return Answers(call); };
    const auto here = cell.calls->begin() + static_cast<std::ptrdiff_t>(cell.place);
    if (rule.contains("previous")) {
        const auto found = std::find_if(std::make_reverse_iterator(here), cell.calls->rend(), answers);
        if (found == cell.calls->rend() || !Names(rule.at("previous"), found->name))
            return false;
    }
    if (!rule.contains("next"))
        return true;
    const auto found = std::find_if(here + 1, cell.calls->end(), [&](const practice::Call& call) {
        return Answers(call) && call.name != "Append";
    });
    return found != cell.calls->end() && Names(rule.at("next"), found->name);
}

bool ToldTable::Fits(const json& rule, const Cell& cell) const {
    if (!FitsCall(rule, cell.Call()) || !FitsNeighbours(rule, cell))
        return false;
    if (rule.contains("scenario") && !Names(rule.at("scenario"), cell.scenario->name))
        return false;
    if (rule.contains("code")) {
        const json& code = rule.at("code");
        const std::vector<std::uint32_t> codes = code.is_string() ? mTable.at("groups").at(code) : code;
        if (std::ranges::count(codes, cell.code) == 0)
            return false;
    }
    if (!rule.contains("nth"))
        return true;
    const auto end = cell.calls->begin() + static_cast<std::ptrdiff_t>(cell.place) + 1;
    return std::count_if(cell.calls->begin(), end, [&](const practice::Call& call) {
               return FitsCall(rule, call);
           }) == rule.at("nth").get<int>();
}

std::optional<std::size_t> ToldTable::RuleFor(const Cell& cell) const {
    const json& rules = mTable.at("rules");
    const auto found = std::ranges::find_if(rules, [&](const json& rule) { return Fits(rule, cell); });
    if (found == rules.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - rules.begin());
}

std::string ToldTable::Filled(std::string pattern, const Cell& cell) const {
    const practice::Call& call = cell.Call();
    const auto number = ErrorNumberOfComResult(static_cast<std::int32_t>(cell.code));
    ReplaceAll(pattern, "{call}", call.name);
    ReplaceAll(pattern, "{code}", std::to_string(cell.code));
    ReplaceAll(pattern, "{number}", std::to_string(number));
    ReplaceAll(pattern, "{argument}", call.arguments.empty() ? "" : ToUtf8(call.arguments.front()));
    const json& targets = mTable.at("targets");
    const auto target = std::ranges::find_if(targets, [&](const json& one) {
        return practice::TextOf(call).find(one.at("where").get<std::string>()) != std::string::npos;
    });
    for (const char* const name : {"row", "phrase", "password"})
        ReplaceAll(pattern, "{" + std::string(name) + "}", target->at(name));
    return pattern;
}

std::vector<std::string> ToldTable::Patterns(const json& outcome, const char* name, const Cell& cell) const {
    Lines patterns;
    for (const std::string pattern : outcome.value(name, json::array()))
        if (pattern.starts_with('@'))
            Join(patterns, mTable.at("lists").at(pattern.substr(1)));
        else
            patterns.push_back(Filled(pattern, cell));
    return patterns;
}

Told ToldTable::Read(const json& outcome, const Cell& cell) const {
    if (outcome.is_string())
        return Read(mTable.at("outcomes").at(outcome.get<std::string>()), cell);
    const auto patterns = [&](const char* name) { return Patterns(outcome, name, cell); };
    return {patterns("only"),
            patterns("gone"),
            patterns("more"),
            patterns("may_go"),
            patterns("may_come"),
            patterns("log_gone"),
            patterns("log_more"),
            patterns("log_may_go"),
            patterns("log_may_come"),
            outcome.contains("left") ? std::optional(outcome.at("left").get<std::size_t>()) : std::nullopt};
}

Told ToldTable::ToldBy(std::size_t rule, const Cell& cell) const {
    return Read(mTable.at("rules").at(rule).at("told"), cell);
}

std::vector<std::size_t> ToldTable::FollowersOf(const Cell& cell) const {
    std::vector<std::size_t> followers;
    for (const std::string& name : cell.scenario->pairs) {
        const json& operation = mTable.at("operations").at(name);
        if (!Names(operation.at("calls"), cell.Call().name))
            continue;
        for (std::size_t i = cell.place + 1; i < cell.calls->size(); ++i) {
            const practice::Call& call = (*cell.calls)[i];
            if (!Answers(call) || call.name == "Append")
                continue;
            if (!Names(operation.at("calls"), call.name) || Names(operation.at("begins"), call.name))
                break;
            if (std::ranges::count(followers, i) == 0)
                followers.push_back(i);
        }
    }
    return followers;
}

ToldTable::ForPair ToldTable::ToldForPair(const Cell& first, const Cell& second) const {
    const auto told_for = [&](const Cell& cell) -> std::optional<Told> {
        const auto rule = RuleFor(cell);
        return rule ? std::optional(ToldBy(*rule, cell)) : std::nullopt;
    };
    const json& rules = mTable.at("pairs");
    const auto found =
        std::ranges::find_if(rules, [&](const json& rule) { return FitsPair(rule, first, second); });
    const std::optional<Told> of_first = told_for(first);
    if (found == rules.end())
        return {std::nullopt, of_first};
    const auto rule = static_cast<std::size_t>(found - rules.begin());
    const json& told = found->at("told");
    if (told.is_object() || mTable.at("outcomes").contains(told.get<std::string>()))
        return {rule, Read(told, first)};
    if (told == "first")
        return {rule, of_first};
    if (told == "graver")
        return {rule, Graver(first, second, found->at("second"))};
    if (told == "first without words")
        return {rule, of_first ? std::optional(WithoutWords(*of_first)) : std::nullopt};
    if (told == "first without a box")
        return {rule, of_first ? std::optional(WithoutABox(*of_first)) : std::nullopt};
    const std::optional<Told> of_second = told_for(second);
    if (!of_first || !of_second)
        return {rule, std::nullopt};
    if (told == "both on another road")
        return {rule, Both(*of_first, OnAnotherRoad(*of_second))};
    return {rule, Both(*of_first, *of_second)};
}

std::optional<Told> ToldTable::Graver(const Cell& first, const Cell& second, const json& names) const {
    const auto rule = RuleFor(first);
    if (!rule)
        return std::nullopt;
    const auto usual = WithoutTheFirst(first, second, names);
    if (!usual) {
        const bool ends = Names(mTable.at("ends_the_run"), second.Call().name);
        return ends ? Both(ToldBy(*rule, first), Read("the end", second)) : ToldBy(*rule, first);
    }
    const auto second_rule = RuleFor(*usual);
    if (!second_rule)
        return std::nullopt;
    const json& of_first = mTable.at("rules").at(*rule).at("told");
    const json& of_second = mTable.at("rules").at(*second_rule).at("told");
    for (const json& outcomes : mTable.at("gravest_first")) {
        const auto one = std::ranges::find(outcomes, of_first);
        const auto other = std::ranges::find(outcomes, of_second);
        if (one != outcomes.end() && other != outcomes.end())
            return one < other ? Read(of_first, first) : Read(of_second, *usual);
    }
    return Both(Read(of_first, first), Read(of_second, *usual));
}

} // namespace kestrelmoor::tests
