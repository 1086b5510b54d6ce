// The failures of the language's standard library as run-time errors, as all others are. Its own kinds of
// them would bring 90 KB of texts and string code along.
#include "runtime/errors.h"

namespace std { // NOLINT(cert-dcl58-cpp): the library's own, defined in its place

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

// NOLINTNEXTLINE(cert-dcl50-cpp): as the library declares it
void __throw_out_of_range_fmt(const char* /*where*/, ...) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kSubscript);
}

void __throw_logic_error(const char* /*where*/) {
    kestrelmoor::RaiseError(kestrelmoor::error_number::kInvalidArgument);
}

} // namespace std
