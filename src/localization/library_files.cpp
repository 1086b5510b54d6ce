#include "localization/library_files.h"

#include "platform/files.h"
#include "runtime/errors.h"

namespace kestrelmoor {

String InProgramFolder(const String& sName) {
    return AddBackslash(platform::ProgramFolder()) + sName;
}

bool IsFile(const String& sPath) {
    try {
        return (platform::GetFileAttributesW(sPath) & platform::kDirectoryAttribute) == 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace kestrelmoor
