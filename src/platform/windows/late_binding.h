#pragma once

#include "runtime/variant.h"

#include <windows.h>

#include <oaidl.h>

namespace kestrelmoor::platform {

/// Members of an automation object, used by their names. A failure is raised, 438 for a name that the object
/// doesn't know; a member that raised an exception of its own has that exception's number and description.

/// Reads a property.
Variant ReadProperty(IDispatch& object, const wchar_t* name);

/// Calls a method with one text and gives its answer.
Variant CallMethod(IDispatch& object, const wchar_t* name, const String& text);

/// Calls a method with two texts, given in its own order.
Variant CallMethod(IDispatch& object, const wchar_t* name, const String& first, const String& second);

} // namespace kestrelmoor::platform
