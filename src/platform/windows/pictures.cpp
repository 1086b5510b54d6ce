#include "platform/pictures.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/owned_interface.h"

#include <windows.h>

#include <olectl.h>

namespace kestrelmoor::platform {

namespace {

constexpr GUID kPictureInterface{
    0x7BF80980, 0xBF32, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

static_assert(kIconPicture == PICTYPE_ICON);
static_assert(kDrawNormal == DI_NORMAL);
static_assert(PictureDescription().size == sizeof(PICTDESC));

class WindowsPicture : public Picture {
  public:
    explicit WindowsPicture(OwnedInterface<IPicture> picture) : mPicture(std::move(picture)) {}

    std::uintptr_t Handle() const override {
        OLE_HANDLE handle = 0;
        return SUCCEEDED(mPicture.Get()->get_Handle(&handle)) ? handle : 0;
    }

  private:
    OwnedInterface<IPicture> mPicture;
};

} // namespace

bool DrawIconEx(std::uintptr_t hDC, int x, int y, const OwnedIcon& icon, int nWidth, int nHeight,
                std::uint32_t nFlags) {
    return ::DrawIconEx(reinterpret_cast<HDC>(hDC), x, y, reinterpret_cast<HICON>(icon.Get()), nWidth,
                        nHeight, 0, nullptr, nFlags) != FALSE;
}

std::int32_t OleCreatePictureIndirect(const PictureDescription& description, bool bOwn,
                                      SharedPicture& picture) {
    static BoundEntry<decltype(::OleCreatePictureIndirect)> entry{OleAut32(), "OleCreatePictureIndirect"};
    PICTDESC record{};
    record.cbSizeofstruct = description.size;
    record.picType = description.type;
    record.icon.hicon = reinterpret_cast<HICON>(description.image);
    void* made = nullptr;
    const HRESULT result = entry.Get()(&record, kPictureInterface, bOwn, &made);
    OwnedInterface<IPicture> owned(static_cast<IPicture*>(made));
    picture = SUCCEEDED(result) && owned ? std::make_shared<WindowsPicture>(std::move(owned)) : nullptr;
    return result;
}

} // namespace kestrelmoor::platform
