#pragma once

#include "tests/native/faults/scenario.h"

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

/// What a run with a fault is told to show, against the run without: patterns of lines, in which * stands for
/// any text. Every line that goes or comes has to be told, and every pattern told needs a line, but for those
/// that only may go or come. With `only` the whole outcome is told in place of a difference.
struct Told {
    std::vector<std::string> only, gone, more, may_go, may_come;
    std::vector<std::string> log_gone, log_more, log_may_go, log_may_come;
    std::optional<std::size_t> modules_left{}; ///< none: as many as the scenario allows, or fewer

    /// What speaks against it in that scenario; empty: it holds.
    std::string Against(const Outcome& base, const Outcome& outcome, const Scenario& scenario) const;

  private:
    std::string AgainstHandles(const Outcome& outcome, const Scenario& scenario) const;
};

/// The file told.json beside this one: `codes` that a call fails with, the calls that answer nothing
/// (`unanswered`), the calls of one `operation`, and the `rules`, of which the first that fits a cell tells
/// its outcome. A rule fits by `call`, `where` (a text in the call with its arguments), `nth` (among the
/// calls of the run that fit so far), `previous` and `next` (names of the calls around it; log lines and
/// calls that answer nothing don't count for the next one), `scenario` and `code` (codes, or the name of
/// one of the `groups`). In texts stand {call}, {code}, {number} (the run-time's number of a COM result),
/// {argument} (the first one), and of the call's target {row}, {phrase} and {password}; "@NAME" stands for
/// the patterns of a list. A rule of `pairs` tells the outcome of two faults, in place of that of the first:
/// "both" for what is told for either, "first" (a rule that stands ahead of a wider one), "first without
/// words" and "first without a box" where the second one costs the first its text or its box, "both on
/// another road" where the first has led the run to calls that the log doesn't have without it, or an outcome
/// of its own. "graver": of two outcomes in one of the lists `gravest_first` only the one that stands ahead
/// shows, of others both. There the second call counts as it does in the run without the first fault; where
/// only the road that this fault opens has it, it costs nothing more, unless it is one that `ends_the_run`.
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
    };
    ForPair ToldForPair(const Cell& first, const Cell& second) const;
    std::size_t PairRules() const { return mTable.at("pairs").size(); }
    std::string PairRuleText(std::size_t rule) const { return mTable.at("pairs").at(rule).dump(); }

  private:
    ToldTable();
    std::optional<Told> Graver(const Cell& first, const Cell& second, const nlohmann::json& names) const;
    bool Answers(const practice::Call& call) const;
    bool FitsCall(const nlohmann::json& rule, const practice::Call& call) const;
    bool Fits(const nlohmann::json& rule, const Cell& cell) const;
    bool FitsNeighbours(const nlohmann::json& rule, const Cell& cell) const;
    Told Read(const nlohmann::json& outcome, const Cell& cell) const;
    std::vector<std::string> Patterns(const nlohmann::json& outcome, const char* name,
                                      const Cell& cell) const;
    std::string Filled(std::string pattern, const Cell& cell) const;

    nlohmann::json mTable;
};

} // namespace kestrelmoor::tests
