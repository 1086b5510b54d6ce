#include "tests/fuzz/sessions/session.h"
#include "tests/native/support/fresh_start.h"

#include <cstddef>
#include <cstdint>

/// Without a language library every session would end ahead of its first window, and nothing be found.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    kestrelmoor::fuzz::Session session(kestrelmoor::tests::LastingWorld(),
                                       kestrelmoor::fuzz::SessionBytes({}));
    session.Run();
    session.RequireWindow();
    return 0;
}

/// The bytes are a whole session: the world, the command line, and what the person does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kestrelmoor::fuzz::Session(kestrelmoor::tests::LastingWorld(),
                               kestrelmoor::fuzz::SessionBytes({data, size}))
        .Run();
    return 0;
}
