#include "tests/native/faults/told_table.h"

#include "platform/practice/world/host_file.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace kestrelmoor::tests {

namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;

constexpr char kNoWords[] = "Error: No text was found for a system error. The search failed with error 317.";

constexpr std::uint32_t kFirstNetworkCode = 2100;

bool IsComResult(std::uint32_t code) {
    return (code & 0xFFFF0000U) == 0x80070000U;
}

/// One text or a list of them.
bool Names(const json& names, const std::string& name) {
    if (names.is_string())
        return Matches(names.get<std::string>(), name);
    return std::ranges::any_of(names, [&](const json& one) { return Matches(one.get<std::string>(), name); });
}

/// One number or a list of them.
bool Counts(const json& numbers, std::int64_t number) {
    return numbers.is_array() ? std::ranges::find(numbers, json(number)) != numbers.end() : numbers == number;
}

void ReplaceAll(std::string& text, const std::string& mark, const std::string& by) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size()))
        text.replace(at, mark.size(), by);
}

/// The pattern without what an error says behind its number.
std::string WithoutWords(const std::string& pattern) {
    static const std::regex kWords(R"((rror -?\d+:).*$)");
    return std::regex_replace(pattern, kWords, "$1");
}

/// The same where the system has no words for the error. In the log another line stands ahead of the error's,
/// which says so.
Told WithoutWords(Told told) {
    for (Lines* const patterns : {&told.more, &told.only})
        for (std::string& pattern : *patterns)
            pattern = WithoutWords(pattern);
    for (LogPart& part : told.log) {
        const auto error = std::ranges::find_if(part.lines, [](const std::string& pattern) {
            return pattern.find("rror ") != std::string::npos && pattern != kNoWords;
        });
        if (error == part.lines.end())
            continue;
        *error = WithoutWords(*error);
        if (error == part.lines.begin() || *std::prev(error) != kNoWords)
            part.lines.insert(error, kNoWords);
        break;
    }
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

ToldTable::ToldTable() : mTable(json::parse(practice::ReadHostFile(FAULTS_FOLDER "/told.json"))) {}

const ToldTable& ToldTable::Current() {
    static const ToldTable table;
    return table;
}

bool ToldTable::Answers(const practice::Call& call) const {
    return std::ranges::none_of(mTable.at("unanswered"),
                                [&](const json& names) { return Names(names, call.name); });
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

bool ToldTable::FitsPair(const json& rule, const Cell& first, const Cell& second) const {
    return Names(rule.at("first"), first.Call().name) && Names(rule.at("second"), second.Call().name) &&
           practice::TextOf(second.Call()).find(rule.value("where", "")) != std::string::npos &&
           FitsNeighbours(rule, second) &&
           (!rule.contains("nth") || Counts(rule.at("nth"), first.Fault().nth)) &&
           (!rule.contains("second_nth") || Counts(rule.at("second_nth"), second.Fault().nth)) &&
           (!rule.contains("scenario") || Names(rule.at("scenario"), first.scenario->name));
}

std::optional<std::size_t> ToldTable::RuleFor(const Cell& cell) const {
    const json& rules = mTable.at("rules");
    const auto found = std::ranges::find_if(rules, [&](const json& rule) { return Fits(rule, cell); });
    if (found == rules.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - rules.begin());
}

/// What the system says of a code, or of the one within a COM result; nothing for those without words.
std::string ToldTable::WordsFor(std::uint32_t code) const {
    const json& words = mTable.at("words");
    const auto found = words.find(std::to_string(IsComResult(code) ? code & 0xFFFFU : code));
    return found == words.end() ? std::string() : found->get<std::string>();
}

/// A COM result is its own number, with a sign, but for those in the list `numbers`.
std::string ToldTable::NumberFor(std::uint32_t code) const {
    const json& numbers = mTable.at("numbers");
    const auto found = numbers.find(std::to_string(code));
    return std::to_string(found == numbers.end() ? static_cast<std::int32_t>(code)
                                                 : found->get<std::int32_t>());
}

/// How the user is told that a call has failed. The one that is not diagnosing reads of the directory what
/// came with its failure, which knows no codes of the network.
std::string ToldTable::FailureOf(const Cell& cell) const {
    if (cell.scenario->IsLogged())
        return "{call} failed with error {number}: {words}";
    const bool described = !IsComResult(cell.code) || (cell.code & 0xFFFFU) < kFirstNetworkCode;
    return described ? "Error {number}: {words}" : "Error {number}: Automation error";
}

std::string ToldTable::Filled(std::string pattern, const Cell& cell) const {
    const practice::Call& call = cell.Call();
    ReplaceAll(pattern, "{failure}", FailureOf(cell));
    ReplaceAll(pattern, "{words}", WordsFor(cell.code));
    ReplaceAll(pattern, "{call}", call.name);
    ReplaceAll(pattern, "{code}", std::to_string(cell.code));
    ReplaceAll(pattern, "{number}", NumberFor(cell.code));
    ReplaceAll(pattern, "{argument}", call.arguments.empty() ? "" : ToUtf8(call.arguments.front()));
    const json& targets = mTable.at("targets");
    const auto target = std::ranges::find_if(targets, [&](const json& one) {
        return practice::TextOf(call).find(one.at("where").get<std::string>()) != std::string::npos;
    });
    for (const char* const name : {"row", "phrase", "password"})
        ReplaceAll(pattern, "{" + std::string(name) + "}", target->at(name));
    return pattern;
}

Lines ToldTable::Patterns(const json& patterns, const Cell& cell) const {
    Lines filled;
    for (const std::string pattern : patterns) {
        const std::string text = Filled(pattern, cell);
        if (!text.starts_with('@')) {
            filled.push_back(text);
            continue;
        }
        const Lines list = Patterns(mTable.at("lists").at(text.substr(1)), cell);
        filled.insert(filled.end(), list.begin(), list.end());
    }
    return filled;
}

std::vector<LogPart> ToldTable::LogParts(const json& outcome, const Cell& cell) const {
    std::vector<LogPart> parts;
    const auto pattern = [&](const json& part, const char* name) {
        return Filled(part.value(name, ""), cell);
    };
    for (const json& part : outcome.value("log", json::array()))
        parts.push_back({pattern(part, "from"), pattern(part, "until"),
                         Patterns(part.value("lines", json::array()), cell)});
    return parts;
}

Told ToldTable::Read(const json& outcome, const Cell& cell) const {
    if (outcome.is_string())
        return Read(mTable.at("outcomes").at(outcome.get<std::string>()), cell);
    const auto patterns = [&](const char* name) {
        return Patterns(outcome.value(name, json::array()), cell);
    };
    const Told told{patterns("only"),
                    patterns("more"),
                    patterns("gone"),
                    outcome.value("stops", ""),
                    LogParts(outcome, cell),
                    cell.place,
                    outcome.value("ends", false),
                    outcome.value("libraries", std::size_t{0})};
    return Counts(mTable.at("groups").at("without words"), cell.code) ? WithoutWords(told) : told;
}

Told ToldTable::ToldBy(std::size_t rule, const Cell& cell) const {
    return Read(mTable.at("rules").at(rule).at("told"), cell);
}

void ToldTable::AddCalls(const json& operation, const Cell& cell, std::vector<std::size_t>& followers) const {
    for (std::size_t i = cell.place + 1; i < cell.calls->size(); ++i) {
        const practice::Call& call = (*cell.calls)[i];
        if (!Answers(call) || call.name == "Append")
            continue;
        if (Names(operation.at("begins"), call.name))
            return;
        if (Names(operation.at("calls"), call.name)) {
            if (std::ranges::count(followers, i) == 0)
                followers.push_back(i);
        } else if (!Names(operation.value("between", json::array()), call.name))
            return;
    }
}

void ToldTable::AddLines(const json& operation, const Cell& cell, std::vector<std::size_t>& followers) const {
    for (std::size_t i = cell.place + 1; i < cell.calls->size(); ++i) {
        const practice::Call& call = (*cell.calls)[i];
        if (call.name == "Append")
            followers.push_back(i);
        else if (Answers(call) && !Names(operation.at("between"), call.name))
            return;
    }
}

std::vector<std::size_t> ToldTable::FollowersOf(const Cell& cell) const {
    std::vector<std::size_t> followers;
    for (const std::string& name : cell.scenario->pairs) {
        const json& operation = mTable.at("operations").at(name);
        if (!Names(operation.at("calls"), cell.Call().name))
            continue;
        if (operation.contains("begins"))
            AddCalls(operation, cell, followers);
        else
            AddLines(operation, cell, followers);
    }
    return followers;
}

std::optional<Told> ToldTable::ToldFor(const Cell& cell) const {
    const auto rule = RuleFor(cell);
    return rule ? std::optional(ToldBy(*rule, cell)) : std::nullopt;
}

/// What either fault leaves in the process stays there.
ToldTable::ForPair ToldTable::ToldForPair(const Cell& first, const Cell& second) const {
    ForPair pair = LinesForPair(first, second);
    for (const Cell* const cell : {&first, &second})
        if (const auto told = ToldFor(*cell); told && pair.told)
            pair.told->libraries = std::max(pair.told->libraries, told->libraries);
    return pair;
}

ToldTable::ForPair ToldTable::LinesForPair(const Cell& first, const Cell& second) const {
    const json& rules = mTable.at("pairs");
    const auto found =
        std::ranges::find_if(rules, [&](const json& rule) { return FitsPair(rule, first, second); });
    if (found == rules.end())
        return {std::nullopt, Told{}, true};
    const auto rule = static_cast<std::size_t>(found - rules.begin());
    const json& told = found->at("told");
    if (told == "first")
        return {rule, Told{}, true};
    if (told == "second")
        return {rule, ToldFor(second), true};
    if (told == "graver") {
        const auto [graver, from_first] = Graver(first, second, found->at("second"));
        return {rule, graver, from_first};
    }
    if (told == "first without words")
        return {rule, WithoutWords(ToldFor(first).value()), false};
    if (told == "first without a box")
        return {rule, WithoutABox(ToldFor(first).value()), false};
    if (found->value("against", "") == "first")
        return {rule, Read(told, second), true};
    return {rule, Read(told, first), false};
}

std::pair<Told, bool> ToldTable::Graver(const Cell& first, const Cell& second, const json& names) const {
    const auto usual = WithoutTheFirst(first, second, names);
    if (!usual) {
        const bool ends = Names(mTable.at("ends_the_run"), second.Call().name);
        return {ends ? Read("the end", second) : Told{}, true};
    }
    const json& of_first = mTable.at("rules").at(RuleFor(first).value()).at("told");
    const json& of_second = mTable.at("rules").at(RuleFor(*usual).value()).at("told");
    const Told told = Read(of_second, second);
    for (const json& outcomes : mTable.at("gravest_first")) {
        const auto one = std::ranges::find(outcomes, of_first);
        const auto other = std::ranges::find(outcomes, of_second);
        if (one != outcomes.end() && other != outcomes.end())
            return one <= other ? std::pair(Told{}, true) : std::pair(told, told.ends);
    }
    return {told, true};
}

} // namespace kestrelmoor::tests
