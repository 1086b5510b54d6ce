#include "platform/practice/surfaces.h"

namespace kestrelmoor::practice {

Surfaces& Surfaces::Current() {
    static Surfaces surfaces;
    return surfaces;
}

void Surfaces::Add(const PictureBox& box) {
    mSurfaces[&box].context = ++mLast;
}

void Surfaces::Remove(const PictureBox& box) {
    mSurfaces.erase(&box);
}

std::uintptr_t Surfaces::DeviceContext(const PictureBox& box) const {
    const auto found = mSurfaces.find(&box);
    return found == mSurfaces.end() ? 0 : found->second.context;
}

void Surfaces::Clear(const PictureBox& box) {
    if (const auto found = mSurfaces.find(&box); found != mSurfaces.end())
        found->second.icons.clear();
}

bool Surfaces::Draw(std::uintptr_t context, const DrawnIcon& icon) {
    for (auto& [box, surface] : mSurfaces)
        if (surface.context == context) {
            surface.icons.push_back(icon);
            return true;
        }
    return false;
}

std::vector<DrawnIcon> Surfaces::On(const PictureBox& box) const {
    const auto found = mSurfaces.find(&box);
    return found == mSurfaces.end() ? std::vector<DrawnIcon>() : found->second.icons;
}

} // namespace kestrelmoor::practice
