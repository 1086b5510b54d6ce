#pragma once

#include "platform/practice/windows.h"
#include "runtime/forms/controls.h"

#include <cstdint>
#include <map>
#include <vector>

namespace kestrelmoor::practice {

/// An icon as it was drawn.
struct DrawnIcon {
    IconImage image;
    int x = 0;
    int y = 0;

    bool operator==(const DrawnIcon&) const = default;
};

/// What stands on the picture boxes of all loaded forms.
class Surfaces {
  public:
    static Surfaces& Current();

    void Add(const PictureBox& box);
    void Remove(const PictureBox& box);

    /// What a picture box draws into while it is asked to paint.
    std::uintptr_t DeviceContext(const PictureBox& box) const;

    void Clear(const PictureBox& box);

    /// False: no such device context.
    bool Draw(std::uintptr_t context, const DrawnIcon& icon);

    /// What was drawn since the box was cleared last.
    std::vector<DrawnIcon> On(const PictureBox& box) const;

  private:
    struct Surface {
        std::uintptr_t context = 0;
        std::vector<DrawnIcon> icons;
    };
    std::map<const PictureBox*, Surface> mSurfaces;
    std::uintptr_t mLast = 0x20000000;
};

} // namespace kestrelmoor::practice
