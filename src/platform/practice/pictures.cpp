#include "platform/pictures.h"

#include "platform/practice/surfaces.h"
#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::TheWorld;

constexpr std::int32_t kOk = 0;
constexpr std::int32_t kInvalidArgument = static_cast<std::int32_t>(0x80070057);

class PracticePicture : public Picture {
  public:
    explicit PracticePicture(const PictureDescription& description)
        : mImage(description.image), mPicture(TheWorld().handles.Open(HandleKind::Picture, description)) {}
    ~PracticePicture() override { TheWorld().handles.Close(HandleKind::Picture, mPicture); }
    std::uintptr_t Handle() const override { return mImage; }

  private:
    std::uintptr_t mImage;
    std::uintptr_t mPicture;
};

} // namespace

bool DrawIconEx(std::uintptr_t hDC, int x, int y, const OwnedIcon& icon, int nWidth, int nHeight,
                std::uint32_t nFlags) {
    if (TheWorld().calls.Enter("DrawIconEx", {hDC, x, y, icon.Get(), nWidth, nHeight, nFlags}))
        return false;
    const auto* const image = TheWorld().handles.Find<practice::IconImage>(HandleKind::Icon, icon.Get());
    return image && practice::Surfaces::Current().Draw(hDC, {*image, x, y});
}

std::int32_t OleCreatePictureIndirect(const PictureDescription& description, bool bOwn,
                                      SharedPicture& picture) {
    const auto fault = TheWorld().calls.Enter("OleCreatePictureIndirect",
                                              {description.size, description.type, description.image, bOwn});
    picture.reset();
    if (fault)
        return static_cast<std::int32_t>(*fault);
    if (description.image == 0)
        return kInvalidArgument;
    picture = std::make_shared<PracticePicture>(description);
    return kOk;
}

} // namespace kestrelmoor::platform
