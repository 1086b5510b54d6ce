#include "platform/practice/world/world.h"

#include "platform/practice/world/world_file.h"

#include <memory>
#include <utility>

namespace kestrelmoor::practice {

namespace {

World* present_world = nullptr;

World& FirstWorld() {
    static const std::unique_ptr<World> world = [] {
        auto made = std::make_unique<World>();
        LoadStockWorld(*made);
        return made;
    }();
    return *world;
}

} // namespace

World& TheWorld() {
    return present_world ? *present_world : FirstWorld();
}

ScopedWorld::ScopedWorld() {
    LoadStockWorld(*this);
    mFormer = std::exchange(present_world, this);
}

ScopedWorld::ScopedWorld(const std::string& path) {
    LoadWorld(*this, path);
    mFormer = std::exchange(present_world, this);
}

ScopedWorld::~ScopedWorld() {
    present_world = mFormer;
}

} // namespace kestrelmoor::practice
