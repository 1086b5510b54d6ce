#include "tests/fuzz/sessions/session.h"

#include <cstddef>
#include <cstdint>

/// The bytes are a whole session: the world, the command line, and what the person does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static kestrelmoor::practice::ScopedWorld world;
    kestrelmoor::fuzz::Session(world, kestrelmoor::fuzz::SessionBytes({data, size})).Run();
    return 0;
}
