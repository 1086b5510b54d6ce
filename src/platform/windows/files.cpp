#include "platform/files.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/program_path.h"
#include "platform/windows/wide_text.h"
#include "runtime/errors.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

static_assert(kDirectoryAttribute == FILE_ATTRIBUTE_DIRECTORY);

[[noreturn]] void RaiseFileError(DWORD code) {
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
        RaiseError(error_number::kFileNotFound);
    case ERROR_PATH_NOT_FOUND:
        RaiseError(error_number::kPathNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
        RaiseError(error_number::kPermissionDenied);
    default:
        RaiseError(ErrorNumberOfSystemCode(code));
    }
}

HANDLE Handle(const OwnedAppendFile& file) {
    return reinterpret_cast<HANDLE>(file.Get());
}

void Take(const WIN32_FIND_DATAW& data, FoundFile& found) {
    found.name = FromWide(data.cFileName);
    found.attributes = data.dwFileAttributes;
}

} // namespace

std::uint32_t GetFileAttributesW(const String& sPath) {
    const DWORD attributes = ::GetFileAttributesW(Wide(sPath));
    if (attributes == INVALID_FILE_ATTRIBUTES)
        RaiseFileError(::GetLastError());
    return attributes;
}

void FileSearchTraits::Release(Value search) noexcept {
    const LastErrorKept kept;
    ::FindClose(reinterpret_cast<HANDLE>(search));
}

OwnedFileSearch FindFirstFileW(const String& sPattern, FoundFile& found) {
    WIN32_FIND_DATAW data{};
    OwnedFileSearch search(
        reinterpret_cast<FileSearchTraits::Value>(::FindFirstFileW(Wide(sPattern), &data)));
    if (search)
        Take(data, found);
    return search;
}

bool FindNextFileW(const OwnedFileSearch& search, FoundFile& found) {
    WIN32_FIND_DATAW data{};
    if (!::FindNextFileW(reinterpret_cast<HANDLE>(search.Get()), &data))
        return false;
    Take(data, found);
    return true;
}

String ProgramFolder() {
    const String path = ProgramPath();
    const std::size_t end = path.rfind(u'\\');
    if (end == String::npos)
        return {};
    const bool is_root = end > 0 && path[end - 1] == u':';
    return path.substr(0, is_root ? end + 1 : end);
}

String ProgramBaseName() {
    const String path = ProgramPath();
    const String name = path.substr(path.rfind(u'\\') + 1);
    return name.substr(0, name.rfind(u'.'));
}

void AppendFileTraits::Release(Value file) noexcept {
    const LastErrorKept kept;
    ::CloseHandle(reinterpret_cast<HANDLE>(file));
}

OwnedAppendFile OpenForAppending(const String& sPath) {
    const HANDLE file = ::CreateFileW(Wide(sPath), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        RaiseFileError(::GetLastError());
    return OwnedAppendFile(reinterpret_cast<AppendFileTraits::Value>(file));
}

void Append(const OwnedAppendFile& file, std::string_view bytes) {
    const DWORD length = static_cast<DWORD>(bytes.size());
    DWORD written = 0;
    if (!::WriteFile(Handle(file), bytes.data(), length, &written, nullptr))
        RaiseFileError(::GetLastError());
    if (written != length)
        RaiseFileError(ERROR_DISK_FULL);
}

} // namespace kestrelmoor::platform
