#include "platform/files.h"

#include "platform/practice/world/file_search.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

#include <utility>

namespace kestrelmoor::platform {

namespace {

using practice::File;
using practice::HandleKind;
using practice::TheWorld;

/// What a search has not handed out yet, by folded name: in the order in which a folder lists its files.
using Matches = practice::FilesByName;

constexpr std::uint32_t kFileNotFound = 2;
constexpr std::uint32_t kPathNotFound = 3;
constexpr std::uint32_t kAccessDenied = 5;

/// The run-time's own error for the codes that have one, otherwise the code itself.
[[noreturn]] void RaiseForCode(std::uint32_t code) {
    switch (code) {
    case kFileNotFound:
        RaiseError(error_number::kFileNotFound);
    case kPathNotFound:
        RaiseError(error_number::kPathNotFound);
    case kAccessDenied:
        RaiseError(error_number::kPermissionDenied);
    default:
        RaiseError(ErrorNumberOfSystemCode(code));
    }
}

[[noreturn]] void RaiseForMissing(const String& path) {
    RaiseForCode(TheWorld().files.FolderOf(path) ? kFileNotFound : kPathNotFound);
}

void TakeNext(Matches& matches, FoundFile& found) {
    const auto first = matches.begin();
    found = {first->second.name, first->second.attributes};
    matches.erase(first);
}

bool RefusesNewFile(const String& path) {
    const File* const folder = TheWorld().files.FolderOf(path);
    return folder && folder->refuses_writing;
}

bool RefusesWriting(const File& file) {
    return file.IsDirectory() || file.refuses_writing ||
           (file.attributes & practice::file_attribute::kReadOnly) != 0;
}

} // namespace

std::uint32_t GetFileAttributesW(const String& sPath) {
    practice::World& world = TheWorld();
    if (const auto fault = world.calls.Enter("GetFileAttributesW", {sPath}))
        RaiseForCode(*fault);
    if (const File* const file = world.files.Find(sPath)) {
        if (file->refuses_reading)
            RaiseForCode(kAccessDenied);
        return file->attributes;
    }
    if (world.libraries.Find(world.files.FullPath(sPath)))
        return practice::file_attribute::kArchive;
    RaiseForMissing(sPath);
}

void FileSearchTraits::Release(Value search) noexcept {
    TheWorld().calls.Enter("FindClose");
    TheWorld().handles.Close(HandleKind::FileSearch, static_cast<std::uintptr_t>(search));
}

OwnedFileSearch FindFirstFileW(const String& sPattern, FoundFile& found) {
    practice::World& world = TheWorld();
    if (world.calls.Enter("FindFirstFileW", {sPattern}))
        return {};
    Matches matches = practice::FilesMatching(world, sPattern);
    if (matches.empty())
        return {};
    TakeNext(matches, found);
    return OwnedFileSearch(
        static_cast<std::intptr_t>(world.handles.Open(HandleKind::FileSearch, std::move(matches))));
}

bool FindNextFileW(const OwnedFileSearch& search, FoundFile& found) {
    auto* const matches =
        TheWorld().handles.Find<Matches>(HandleKind::FileSearch, static_cast<std::uintptr_t>(search.Get()));
    if (TheWorld().calls.Enter("FindNextFileW") || !matches || matches->empty())
        return false;
    TakeNext(*matches, found);
    return true;
}

String ProgramFolder() {
    return TheWorld().machine.program_folder;
}

String ProgramBaseName() {
    return TheWorld().machine.program_name;
}

void AppendFileTraits::Release(Value file) noexcept {
    TheWorld().calls.Enter("CloseAppendFile");
    TheWorld().handles.Close(HandleKind::AppendFile, static_cast<std::uintptr_t>(file));
}

OwnedAppendFile OpenForAppending(const String& sPath) {
    practice::World& world = TheWorld();
    if (const auto fault = world.calls.Enter("OpenForAppending", {sPath}))
        RaiseForCode(*fault);
    const String path = world.files.FullPath(sPath);
    const File* const file = world.files.Find(path);
    if (file ? RefusesWriting(*file) : RefusesNewFile(path))
        RaiseForCode(kAccessDenied);
    if (!file && !world.files.FolderOf(path))
        RaiseForCode(kPathNotFound);
    if (!file)
        world.files.CreateFile(path);
    return OwnedAppendFile(static_cast<std::intptr_t>(world.handles.Open(HandleKind::AppendFile, path)));
}

void Append(const OwnedAppendFile& file, std::string_view bytes) {
    practice::World& world = TheWorld();
    world.calls.Pass("Append", bytes);
    if (const auto fault = world.calls.Enter("Append"))
        RaiseForCode(*fault);
    const auto* const path =
        world.handles.Find<String>(HandleKind::AppendFile, static_cast<std::uintptr_t>(file.Get()));
    File* const found = path ? world.files.Find(*path) : nullptr;
    if (!found || RefusesWriting(*found))
        RaiseForCode(kAccessDenied);
    found->content += bytes;
}

} // namespace kestrelmoor::platform
