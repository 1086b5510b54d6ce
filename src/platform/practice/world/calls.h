#pragma once

#include "runtime/text.h"

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrelmoor::practice {

/// An argument whose text is never kept in the record of calls.
struct Secret {
    StringView text;
};

/// An argument as the record shows it: texts as they stand, numbers in decimal digits.
struct CallArgument {
    CallArgument(const String& value) : text(value) {}
    CallArgument(const char* value) : text(FromUtf8(value)) {}
    CallArgument(std::integral auto value) : text(FromUtf8(std::to_string(value))) {}
    CallArgument(Secret value) : text(value.text), is_secret(true) {}

    String text;
    bool is_secret = false;
};

/// One call that was made through the platform's seam. A secret stands as a mark, "<secret 1>": equal marks
/// are equal texts.
struct Call {
    std::string name;
    StringList arguments;
};

/// With the number of an error behind it, a code by which a call raises that error in place of an answer: its
/// library (53), or its entry there (453), can't be bound.
inline constexpr std::uint32_t kNotBound = 1000000;

/// A code that a call is to answer in place of its own answer.
struct Fault {
    std::string name;
    std::uint32_t code = 0;
    int nth = 1; ///< 1: the next call of that name, 2: the one behind it ...; 0: every call

    bool operator==(const Fault&) const = default;
};

/// The record of all calls in their order, and the faults that are laid into them.
class Calls {
  public:
    /// Records a call. A value: the call is to do nothing and to answer this code. Raises what a fault has it
    /// raise.
    std::optional<std::uint32_t> Enter(std::string_view name,
                                       std::initializer_list<CallArgument> arguments = {});

    /// Makes the `nth` call of that name from now on (0: every one) answer `code`.
    void Fail(std::string_view name, std::uint32_t code, int nth = 1);

    /// Runs `action` once, ahead of the `nth` call of that name from now on.
    void Before(std::string_view name, std::function<void()> action, int nth = 1);

    const std::vector<Call>& All() const { return mCalls; }
    std::vector<Call> Of(std::string_view name) const;
    std::vector<std::string> Names() const;
    std::size_t Count(std::string_view name) const;

    /// The mark that stands for a secret in the record; empty for a text that no call was given as one.
    String MarkOf(StringView secret) const;

    /// Told of each call when it stands in the record and has done nothing yet.
    std::function<void(const Call&)> Entered;

    /// Told of what calls are given and the record does not keep, bytes as they are and texts in UTF-16: the
    /// content of files and registry values, texts that are compared or sent to a window.
    std::function<void(std::string_view name, std::string_view bytes)> Passed;
    void Pass(std::string_view name, std::string_view bytes) const;
    void Pass(std::string_view name, StringView text) const;

    /// Forgets the calls; faults and actions stay.
    void Clear() { mCalls.clear(); }

    /// The faults that wait for their call.
    const std::vector<Fault>& Faults() const { return mFaults; }

  private:
    struct Action {
        std::string name;
        std::function<void()> run;
        int nth;
    };
    String Shown(const CallArgument& argument);
    void RunActions(std::string_view name);
    std::optional<std::uint32_t> TakeFault(std::string_view name);

    std::vector<Call> mCalls;
    StringList mSecrets;
    std::vector<Fault> mFaults;
    std::vector<Action> mActions;
};

/// A call in one line: NetUserChangePassword("\\DC1", "<secret 1>", "<secret 2>").
std::string TextOf(const Call& call);

} // namespace kestrelmoor::practice
