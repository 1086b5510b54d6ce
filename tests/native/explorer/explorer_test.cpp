#include "tests/native/explorer/explorer.h"
#include "tests/native/explorer/starts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kestrelmoor::tests {

namespace {

/// A depth in the environment holds for every start, and has windows closed in each way.
const char* AskedDepth() {
    return std::getenv("EXPLORED_DEPTH");
}

class Explored : public testing::TestWithParam<std::size_t> {};

TEST_P(Explored, HoldsTheRulesOfTheWindowsInEveryState) {
    const StartOfExploration& start = StartsOfExploration().at(GetParam());
    const std::size_t depth =
        AskedDepth() != nullptr ? static_cast<std::size_t>(std::atoi(AskedDepth())) : start.depth;
    const Explorer::Result result = Explorer(start, depth, AskedDepth() != nullptr).Explore();
    for (const std::string& finding : result.findings)
        ADD_FAILURE() << finding;
    std::printf("explored: %s, depth %zu: %zu states, %zu inputs, %zu steps in %zu starts, %zu unreached\n",
                start.name.c_str(), depth, result.states, result.inputs, result.steps, result.starts,
                result.unreached);
    if (depth >= start.depth) {
        EXPECT_GE(result.states, start.states);
    }
    EXPECT_EQ(result.unreached, 0U);
}

std::string NameOf(const testing::TestParamInfo<std::size_t>& info) {
    std::string name = StartsOfExploration().at(info.param).name;
    std::ranges::replace(name, ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Start, Explored, testing::Range(std::size_t{0}, StartsOfExploration().size()),
                         NameOf);

} // namespace

} // namespace kestrelmoor::tests
