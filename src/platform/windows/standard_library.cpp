// What the language's standard library would otherwise bring along, a quarter of the program's size: errors
// of its own kind with their texts, and the words that it has for an exception that nobody catches. Its
// failures are run-time errors here as all others are.
#include "runtime/errors.h"

#include <cstdlib>

namespace std {

void __throw_bad_alloc() {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kOutOfMemory);
}

void __throw_bad_array_new_length() {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kOutOfMemory);
}

void __throw_length_error(const char* /*where*/) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kOutOfMemory);
}

void __throw_out_of_range(const char* /*where*/) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kSubscript);
}

void __throw_out_of_range_fmt(const char* /*where*/, ...) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kSubscript);
}

void __throw_logic_error(const char* /*where*/) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kInvalidArgument);
}

} // namespace std

namespace __gnu_cxx {

/// The program has a handler of its own for this case; the library names this one all the same.
void __verbose_terminate_handler() {
    std::abort();
}

} // namespace __gnu_cxx
