#pragma once

#include "runtime/errors.h"

#include <optional>

namespace kestrelmoor::tests {

/// The error that an action raises, none when it ends in order.
template <class Action>
std::optional<RuntimeError> Raised(Action action) {
    try {
        action();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return error;
    }
}

/// Its number alone; 0: none was raised.
template <class Action>
std::int32_t RaisedNumber(Action action) {
    const std::optional<RuntimeError> error = Raised(action);
    return error ? error->number() : 0;
}

} // namespace kestrelmoor::tests
