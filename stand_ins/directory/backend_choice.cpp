#include "bridge_directory.h"
#include "directory_backend.h"
#include "practice_directory.h"
#include "stand_ins/common/environment.h"

#include <utility>

namespace kestrelmoor::stand_in {
namespace {

class AbsentDirectory final : public DirectoryBackend {
  public:
    std::unique_ptr<DirectoryEntry> Bind(const String&) override {
        throw practice::DirectoryFailure{practice::directory_code::kSyntax};
    }
};

constexpr std::array kChoices = {
    BackendChoice<DirectoryBackend>{L"KESTRELMOOR_BRIDGE", MakeBridgeDirectory},
    BackendChoice<DirectoryBackend>{L"KESTRELMOOR_WORLD", MakePracticeDirectory},
};

std::unique_ptr<DirectoryBackend> Chosen() {
    std::unique_ptr<DirectoryBackend> backend = ChooseBackend(kChoices);
    return backend ? std::move(backend) : std::make_unique<AbsentDirectory>();
}

} // namespace

DirectoryBackend& Backend() {
    static const std::unique_ptr<DirectoryBackend> backend = Chosen();
    return *backend;
}

} // namespace kestrelmoor::stand_in
