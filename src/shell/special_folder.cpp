#include "shell/special_folder.h"

#include "platform/shell_folders.h"
#include "runtime/errors.h"

namespace kestrelmoor {

String GetSpecialFolder(std::int32_t nFolder) {
    platform::OwnedItemList list;
    RaiseIfFailed(platform::SHGetSpecialFolderLocation(nFolder, list));
    String buffer;
    if (!list || !platform::SHGetPathFromIDListW(list, buffer))
        return {};
    return TrimAtNul(buffer);
}

} // namespace kestrelmoor
