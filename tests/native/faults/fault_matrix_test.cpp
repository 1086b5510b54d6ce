#include "tests/native/faults/told_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>

namespace kestrelmoor::tests {

namespace {

/// Every call of a scenario that can be answered, with every code that it is failed with.
std::vector<Cell> CellsOf(const Scenario& scenario, const Outcome& run) {
    std::vector<Cell> cells;
    for (std::size_t place = 0; place < run.calls->size(); ++place)
        for (const std::uint32_t code : ToldTable::Current().CodesOf((*run.calls)[place].name))
            cells.push_back({&scenario, run.calls, place, code});
    return cells;
}

/// Each call that stands behind a cell's fault in the same operation, as it is when that fault is laid. One
/// code of a call stands for all.
std::vector<Cell> SecondCellsOf(const Cell& first, const Outcome& failed) {
    if (first.code != ToldTable::Current().CodesOf(first.Call().name).back())
        return {};
    Cell found = first;
    found.calls = failed.calls;
    std::vector<Cell> cells;
    for (const std::size_t place : ToldTable::Current().FollowersOf(found))
        cells.push_back({first.scenario, failed.calls, place,
                         ToldTable::Current().CodesOf((*failed.calls)[place].name).back()});
    return cells;
}

class FaultMatrix : public testing::TestWithParam<std::size_t> {
  protected:
    static void TearDownTestSuite() {
        std::printf("faults: %zu cells tried, %zu held\n", tried, held);
        std::fflush(stdout);
    }

    void Judge(const std::string& cell, const std::optional<Told>& told, const Outcome& from,
               const Outcome& outcome, std::size_t faults) {
        ++tried;
        std::string against = told ? told->Against(from, outcome, scenario) : "  no rule tells its outcome\n";
        if (outcome.failed.size() != faults)
            against += "  not every fault was met\n";
        held += against.empty() ? 1U : 0U;
        if (!against.empty())
            ADD_FAILURE() << cell << "\n" << against;
    }

    void TryPairs(const Cell& first, const Outcome& failed) {
        for (const Cell& second : SecondCellsOf(first, failed)) {
            const ToldTable::ForPair pair = ToldTable::Current().ToldForPair(first, second);
            Judge(first.Text() + "\n  and " + second.Text(), pair.told, pair.from_first ? failed : base,
                  RunScenario(scenario, {first.Fault(), second.Fault()}), 2);
        }
    }

    void Try(const Cell& cell) {
        const ToldTable& table = ToldTable::Current();
        const std::optional<std::size_t> rule = table.RuleFor(cell);
        const Outcome outcome = RunScenario(scenario, {cell.Fault()});
        Judge(cell.Text(), rule ? std::optional(table.ToldBy(*rule, cell)) : std::nullopt, base, outcome, 1);
        TryPairs(cell, outcome);
    }

    const Scenario& scenario = AllScenarios().at(GetParam());
    const Outcome base = RunScenario(scenario, {});

    static std::size_t tried;
    static std::size_t held;
};

std::size_t FaultMatrix::tried = 0;
std::size_t FaultMatrix::held = 0;

TEST_P(FaultMatrix, ShowsWhatIsTold) {
    for (const std::string& line : base.lines)
        EXPECT_FALSE(line.starts_with("refused:")) << line;
    EXPECT_EQ(base.handles_left, 0U);
    EXPECT_EQ(base.modules_left, scenario.modules_left);
    EXPECT_EQ(base.themes_left, scenario.themes_left);
    for (const Cell& cell : CellsOf(scenario, base))
        Try(cell);
}

std::string NameOf(const testing::TestParamInfo<std::size_t>& info) {
    std::string name = AllScenarios().at(info.param).name;
    std::ranges::replace(name, ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Scenario, FaultMatrix, testing::Range(std::size_t{0}, AllScenarios().size()),
                         NameOf);

TEST(ToldTable, HasNoRuleWithoutACell) {
    const ToldTable& table = ToldTable::Current();
    std::set<std::size_t> used;
    for (const Scenario& scenario : AllScenarios())
        for (const Cell& cell : CellsOf(scenario, RunScenario(scenario, {})))
            if (const auto rule = table.RuleFor(cell))
                used.insert(*rule);
    for (std::size_t rule = 0; rule < table.Rules(); ++rule)
        EXPECT_TRUE(used.contains(rule)) << table.RuleText(rule);
}

TEST(ToldTable, HasNoPairRuleWithoutAPair) {
    const ToldTable& table = ToldTable::Current();
    std::set<std::size_t> used;
    for (const Scenario& scenario : AllScenarios()) {
        if (scenario.pairs.empty())
            continue;
        for (const Cell& first : CellsOf(scenario, RunScenario(scenario, {})))
            for (const Cell& second : SecondCellsOf(first, RunScenario(scenario, {first.Fault()})))
                if (const auto rule = table.ToldForPair(first, second).rule)
                    used.insert(*rule);
    }
    for (std::size_t rule = 0; rule < table.PairRules(); ++rule)
        EXPECT_TRUE(used.contains(rule)) << table.PairRuleText(rule);
}

} // namespace

} // namespace kestrelmoor::tests
