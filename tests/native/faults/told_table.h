#pragma once

#include "tests/native/faults/scenario.h"
#include "tests/native/faults/told.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// A call of a run that is to be answered with a failure.
struct Cell {
    const Scenario* scenario = nullptr;
    std::shared_ptr<const std::vector<practice::Call>> calls; ///< of the run that it is found in
    std::size_t place = 0;                                    ///< in these
    std::uint32_t code = 0;

    const practice::Call& Call() const { return calls->at(place); }
    practice::Fault Fault() const;
    std::string Text() const; ///< scenario, call and code, for a message
};

/// The file told.json beside this one: `codes` that a call fails with, the calls that answer nothing
/// (`unanswered`, each list under its reason), the calls of one `operation` (it ends at a call that `begins`
/// the next one, and at any other that is neither one of its own nor `between` them; one without `begins` has
/// the lines that are logged behind a call), and the `rules`, of which the first that fits a cell tells its
/// outcome. A rule fits by `call`, `where` (a text in the call with its arguments), `nth` (among the calls of
/// the run that fit so far), `previous` and `next` (names of the calls around it; log lines and calls that
/// answer nothing don't count for the next one), `scenario` and `code` (codes, or the name of one of the
/// `groups`). An outcome has the members of Told, under the same names. In texts stand {call}, {code},
/// {number} (the error number that a COM result becomes, or that a call raises which can't be bound), {words}
/// (the system's, from the list `words`), {failure} (how a failed call is told to the user), {argument} (the
/// first one), and of the call's target {row}, {phrase} and {password}; "@NAME" stands for the lines of a
/// list. For the codes in the group "without words" the system has no text.
///
/// A rule of `pairs` fits two faults, with `nth` and `second_nth` among the calls of that name, and `where`,
/// `previous` and `next` of the second one. It has an outcome of its own, for the second one and `against`
/// the run with the "first" alone if it says so, else for the first one, or one of these names:
///   "second": what is told for the second one, against the run with the first alone
///   "first": that of the first; so it is without a rule, too
///   "first without words", "first without a box": the second one costs the first its text or its box
///   "graver": of two outcomes in one of the lists `gravest_first` the one that stands ahead; else "second"
/// For the last one the second call counts as it does in the run without the first fault; where only the
/// road that this fault opens has it, it costs nothing more, unless it is one that `ends_the_run`.
class ToldTable {
  public:
    static const ToldTable& Current();

    /// The codes that a call is failed with; none: nothing can be answered. Raises for an unknown call.
    std::vector<std::uint32_t> CodesOf(const std::string& call) const;

    /// The number of the rule for a cell.
    std::optional<std::size_t> RuleFor(const Cell& cell) const;
    Told ToldBy(std::size_t rule, const Cell& cell) const;
    std::size_t Rules() const { return mTable.at("rules").size(); }
    std::string RuleText(std::size_t rule) const { return mTable.at("rules").at(rule).dump(); }

    /// The places of the calls behind a cell's that belong to the same operation.
    std::vector<std::size_t> FollowersOf(const Cell& cell) const;

    /// What is told for two faults, and the number of the pair rule that tells it.
    struct ForPair {
        std::optional<std::size_t> rule; ///< none: that of the first holds
        std::optional<Told> told;        ///< none: no rule fits a cell
        bool from_first = false;         ///< it is told against the run with the first fault alone
    };
    ForPair ToldForPair(const Cell& first, const Cell& second) const;
    std::size_t PairRules() const { return mTable.at("pairs").size(); }
    std::string PairRuleText(std::size_t rule) const { return mTable.at("pairs").at(rule).dump(); }

  private:
    ToldTable();
    std::optional<Told> ToldFor(const Cell& cell) const;
    ForPair LinesForPair(const Cell& first, const Cell& second) const;
    std::pair<Told, bool> Graver(const Cell& first, const Cell& second, const nlohmann::json& names) const;
    bool Answers(const practice::Call& call) const;
    void AddCalls(const nlohmann::json& operation, const Cell& cell,
                  std::vector<std::size_t>& followers) const;
    void AddLines(const nlohmann::json& operation, const Cell& cell,
                  std::vector<std::size_t>& followers) const;
    bool FitsCall(const nlohmann::json& rule, const practice::Call& call) const;
    bool Fits(const nlohmann::json& rule, const Cell& cell) const;
    bool FitsNeighbours(const nlohmann::json& rule, const Cell& cell) const;
    bool FitsPair(const nlohmann::json& rule, const Cell& first, const Cell& second) const;
    std::vector<LogPart> LogParts(const nlohmann::json& outcome, const Cell& cell) const;
    Told Read(const nlohmann::json& outcome, const Cell& cell) const;
    std::vector<std::string> Patterns(const nlohmann::json& patterns, const Cell& cell) const;
    std::string Filled(std::string pattern, const Cell& cell) const;
    std::string WordsFor(std::uint32_t code) const;
    std::string NumberFor(std::uint32_t code) const;
    std::string FailureOf(const Cell& cell) const;

    nlohmann::json mTable;
};

} // namespace kestrelmoor::tests
