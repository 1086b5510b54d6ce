#include "stand_ins/common/kept_world.h"

#include "platform/practice/world/world_file.h"

namespace kestrelmoor::stand_in {

KeptWorld::KeptWorld(const String& path) : mPath(ToUtf8(path)) {
    Refresh();
}

FILETIME KeptWorld::LastWrite() const {
    const String path = FromUtf8(mPath);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(std::wstring(path.begin(), path.end()).c_str(), GetFileExInfoStandard, &data))
        throw practice::WorldFileError(mPath + ": can't be found");
    return data.ftLastWriteTime;
}

void KeptWorld::Refresh() {
    const FILETIME written = LastWrite();
    if (mWorld && CompareFileTime(&written, &mRead) == 0)
        return;
    mWorld.emplace(mPath);
    mRead = written;
}

void KeptWorld::Save() {
    practice::SaveWorld(*mWorld, mPath);
    mRead = LastWrite();
}

} // namespace kestrelmoor::stand_in
