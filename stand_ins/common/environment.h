#pragma once

#include "runtime/text.h"

#include <array>
#include <memory>

namespace kestrelmoor::stand_in {

/// A variable of the process's environment; empty when it is not set.
String EnvironmentVariable(const wchar_t* name);

/// How to make a back end out of a variable's value; null where the value is of no use.
template <class Backend>
struct BackendChoice {
    const wchar_t* variable;
    std::unique_ptr<Backend> (*make)(const String& value);
};

/// The first back end that the environment asks for; null: none.
template <class Backend, std::size_t count>
std::unique_ptr<Backend> ChooseBackend(const std::array<BackendChoice<Backend>, count>& choices) {
    for (const BackendChoice<Backend>& choice : choices) {
        const String value = EnvironmentVariable(choice.variable);
        if (std::unique_ptr<Backend> backend = value.empty() ? nullptr : choice.make(value))
            return backend;
    }
    return nullptr;
}

} // namespace kestrelmoor::stand_in
