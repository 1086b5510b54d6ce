#include "tests/fuzz/sessions/session.h"
#include "tests/native/support/fresh_start.h"

#include <cstddef>
#include <cstdint>

/// The bytes are a whole session: the world, the command line, and what the person does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kestrelmoor::fuzz::Session(kestrelmoor::tests::LastingWorld(),
                               kestrelmoor::fuzz::SessionBytes({data, size}))
        .Run();
    return 0;
}
