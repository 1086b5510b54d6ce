#include "platform/practice/world/world_file.h"
#include "tests/fuzz/support.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>

namespace kestrelmoor::fuzz {

namespace {

constexpr std::string_view kName = "world.json";

using practice::World;

/// A refusal is one line that names the file, a line of it, and a reason.
void CheckRefusal(std::string_view refusal, std::string_view text) {
    Require(refusal.starts_with(std::string(kName) + ":") && refusal.find('\n') == std::string_view::npos);
    refusal.remove_prefix(kName.size() + 1);
    std::int64_t line = 0;
    const auto [end, failure] = std::from_chars(refusal.data(), refusal.data() + refusal.size(), line);
    Require(failure == std::errc() && line >= 1 && line <= std::count(text.begin(), text.end(), '\n') + 1);
    refusal.remove_prefix(static_cast<std::size_t>(end - refusal.data()));
    Require(refusal.starts_with(": ") && refusal.size() > 2);
}

/// False: it was refused.
bool Read(World& world, std::string_view text) {
    try {
        practice::ReadWorld(world, text, std::string(kName));
        return true;
    } catch (const practice::WorldFileError& error) {
        CheckRefusal(error.what(), text);
        return false;
    }
}

/// What is written is read as the same world.
void CheckRoundTrip(const World& world) {
    const std::string text = practice::WriteWorld(world);
    World again;
    Require(Read(again, text));
    Require(practice::WriteWorld(again) == text);
    Require(again.clock.Now() == world.clock.Now() && again.shell == world.shell);
    Require(again.libraries.all == world.libraries.all && again.calls.Faults() == world.calls.Faults());
    Require(again.registry.Keys().size() == world.registry.Keys().size());
    Require(again.files.Files().size() == world.files.Files().size());
}

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are a world file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor::fuzz;
    World world;
    if (Read(world, {reinterpret_cast<const char*>(data), size}))
        CheckRoundTrip(world);
    return 0;
}
