#pragma once

#include "platform/practice/world/world.h"
#include "tests/native/support/fresh_start.h"
#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrelmoor::tests {

using Lines = std::vector<std::string>;

/// A message box, as its text, style and title.
struct ShownBox {
    std::string text;
    std::uint32_t style = 0;
    std::string title;

    bool operator==(const ShownBox&) const = default;
};
void PrintTo(const ShownBox& box, std::ostream* stream);

/// A box with the program's own title: 48 for an exclamation mark, 64 for information.
ShownBox Exclamation(std::string text);
ShownBox Information(std::string text);

/// A test of the program's logic: a fresh copy of the stock world, the program's state as at its start, and
/// the tests' language. At the end everything that the platform handed out has to be back.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest();
    ~ProgramTest() override;

    /// Turns diagnosing on, with a log of its own.
    void StartDiagnosing();

    /// Opens the log without turning diagnosing on.
    void OpenLog();

    /// The lines of that log so far.
    Lines Log() const { return LinesOf(kLogFile); }
    Lines LinesOf(const String& sPath) const;

    Lines Names() const { return world.calls.Names(); }

    /// The calls of these names in their order, each with its arguments: GetTokenInformation("1", "0").
    Lines CallsOf(std::initializer_list<std::string_view> names) const;

    std::vector<ShownBox> Boxes() const;

    static constexpr char16_t kLogFile[] = u"C:\\Users\\user\\Documents\\test.log";

    practice::ScopedWorld world;

    /// Libraries that the behaviour under test leaves in the process for good.
    std::size_t modules_left = 0;
};

} // namespace kestrelmoor::tests
