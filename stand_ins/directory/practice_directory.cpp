#include "practice_directory.h"

#include "platform/practice/world/world_file.h"
#include "stand_ins/common/kept_world.h"

#include <cstdio>

namespace kestrelmoor::stand_in {
namespace {

class PracticeEntry final : public DirectoryEntry {
  public:
    PracticeEntry(KeptWorld& world, practice::DirectoryUser user) : mWorld(world), mUser(std::move(user)) {}

    Variant Value(std::string_view member) override {
        return mWorld.Ask([&](practice::World& world) {
            return practice::DirectoryValue(world.network, world.clock.Now(), mUser, member);
        });
    }
    void ChangePassword(const String& old_password, const String& new_password) override {
        mWorld.Change([&](practice::World& world) {
            practice::ChangeDirectoryPassword(world.network, world.clock.Now(), mUser, old_password,
                                              new_password);
            return true;
        });
    }

  private:
    KeptWorld& mWorld;
    practice::DirectoryUser mUser;
};

class PracticeDirectory final : public DirectoryBackend {
  public:
    explicit PracticeDirectory(const String& path) : mWorld(path) {}

    std::unique_ptr<DirectoryEntry> Bind(const String& path) override {
        return std::make_unique<PracticeEntry>(mWorld, mWorld.Ask([&](practice::World& world) {
            return practice::BindDirectoryUser(world.network, path);
        }));
    }

  private:
    KeptWorld mWorld;
};

} // namespace

std::unique_ptr<DirectoryBackend> MakePracticeDirectory(const String& path) {
    try {
        return std::make_unique<PracticeDirectory>(path);
    } catch (const practice::WorldFileError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return nullptr;
    }
}

} // namespace kestrelmoor::stand_in
