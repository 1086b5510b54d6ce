#include "platform/practice/world/calls.h"

#include "runtime/errors.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor::practice {

namespace {

constexpr std::uint32_t kErrorNumbers = 1000; ///< so many, from 0

String Mark(std::size_t index) {
    return u"<secret " + FromUtf8(std::to_string(index + 1)) + u">";
}

} // namespace

std::optional<std::uint32_t> Calls::Enter(std::string_view name,
                                          std::initializer_list<CallArgument> arguments) {
    Call call{std::string(name), {}};
    for (const CallArgument& argument : arguments)
        call.arguments.push_back(Shown(argument));
    mCalls.push_back(std::move(call));
    if (Entered)
        Entered(mCalls.back());
    RunActions(name);
    const std::optional<std::uint32_t> code = TakeFault(name);
    if (code && *code >= kNotBound && *code < kNotBound + kErrorNumbers)
        RaiseError(static_cast<std::int32_t>(*code - kNotBound));
    return code;
}

void Calls::Pass(std::string_view name, std::string_view bytes) const {
    if (Passed)
        Passed(name, bytes);
}

void Calls::Pass(std::string_view name, StringView text) const {
    Pass(name, std::string_view(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)));
}

String Calls::Shown(const CallArgument& argument) {
    if (!argument.is_secret)
        return argument.text;
    const auto known = std::find(mSecrets.begin(), mSecrets.end(), argument.text);
    const auto index = static_cast<std::size_t>(known - mSecrets.begin());
    if (known == mSecrets.end())
        mSecrets.push_back(argument.text);
    return Mark(index);
}

void Calls::RunActions(std::string_view name) {
    std::vector<std::function<void()>> due;
    std::erase_if(mActions, [&](Action& action) {
        if (action.name != name || --action.nth > 0)
            return false;
        due.push_back(std::move(action.run));
        return true;
    });
    for (const auto& run : due)
        run();
}

std::optional<std::uint32_t> Calls::TakeFault(std::string_view name) {
    std::optional<std::uint32_t> code;
    std::erase_if(mFaults, [&](Fault& fault) {
        if (fault.name != name)
            return false;
        if (fault.nth == 0)
            code = fault.code;
        else if (--fault.nth == 0) {
            code = fault.code;
            return true;
        }
        return false;
    });
    return code;
}

void Calls::Fail(std::string_view name, std::uint32_t code, int nth) {
    mFaults.push_back({std::string(name), code, nth});
}

void Calls::Before(std::string_view name, std::function<void()> action, int nth) {
    mActions.push_back({std::string(name), std::move(action), nth});
}

std::vector<Call> Calls::Of(std::string_view name) const {
    std::vector<Call> found;
    std::copy_if(mCalls.begin(), mCalls.end(), std::back_inserter(found),
                 [&](const Call& call) { return call.name == name; });
    return found;
}

std::vector<std::string> Calls::Names() const {
    std::vector<std::string> names;
    for (const Call& call : mCalls)
        names.push_back(call.name);
    return names;
}

std::size_t Calls::Count(std::string_view name) const {
    return Of(name).size();
}

String Calls::MarkOf(StringView secret) const {
    const auto known = std::find(mSecrets.begin(), mSecrets.end(), secret);
    return known == mSecrets.end() ? String() : Mark(static_cast<std::size_t>(known - mSecrets.begin()));
}

std::string TextOf(const Call& call) {
    std::string text = call.name + "(";
    const char* separator = "";
    for (const String& argument : call.arguments) {
        text += separator + ToUtf8(Quoted(argument));
        separator = ", ";
    }
    return text + ")";
}

} // namespace kestrelmoor::practice
