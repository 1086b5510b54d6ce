#include "forms/about/icon_picture.h"

#include "platform/pictures.h"

namespace kestrelmoor {

SharedPicture IconToPicture(std::uintptr_t hIcon, std::uint32_t nType) {
    SharedPicture picture;
    if (hIcon != 0) {
        platform::PictureDescription description;
        description.type = nType;
        description.image = hIcon;
        platform::OleCreatePictureIndirect(description, true, picture);
    }
    return picture;
}

} // namespace kestrelmoor
