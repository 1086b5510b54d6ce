#include "platform/practice/world/handles.h"

#include <numeric>

namespace kestrelmoor::practice {

std::uintptr_t HandleTable::Open(HandleKind kind, std::any content) {
    mNext += 4;
    OpenAt(kind, mNext, std::move(content));
    return mNext;
}

void HandleTable::OpenAt(HandleKind kind, std::uintptr_t address, std::any content) {
    mOpen.insert_or_assign(address, Entry{kind, std::move(content)});
}

void HandleTable::Share(std::uintptr_t handle) {
    ++mOpen.at(handle).holders;
}

bool HandleTable::Close(HandleKind kind, std::uintptr_t handle) {
    const auto found = mOpen.find(handle);
    if (found == mOpen.end() || found->second.kind != kind) {
        ++mWrongReleases;
        return false;
    }
    if (--found->second.holders > 0)
        return false;
    mOpen.erase(found);
    return true;
}

std::size_t HandleTable::Outstanding() const {
    return std::accumulate(mOpen.begin(), mOpen.end(), std::size_t{0},
                           [](std::size_t count, const auto& open) { return count + open.second.holders; });
}

std::size_t HandleTable::Outstanding(HandleKind kind) const {
    return std::accumulate(mOpen.begin(), mOpen.end(), std::size_t{0},
                           [&](std::size_t count, const auto& open) {
                               return open.second.kind == kind ? count + open.second.holders : count;
                           });
}

} // namespace kestrelmoor::practice
