#include "platform/practice/world/file_tree.h"

#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

constexpr std::size_t kDriveLength = 2; // "C:"

bool HasDrive(StringView path) {
    return path.size() >= kDriveLength && path[1] == u':';
}

StringView FolderPart(StringView full_path) {
    return full_path.substr(0, std::min(full_path.rfind(u'\\'), full_path.size()));
}

/// A drive's root stands in the tree without its backslash.
String Key(StringView full_path) {
    return FoldName(full_path.ends_with(u'\\') ? full_path.substr(0, full_path.size() - 1) : full_path);
}

File FileAt(const String& path) {
    File file;
    file.path = path;
    return file;
}

File FolderAt(const String& path) {
    File folder = FileAt(path);
    folder.attributes = file_attribute::kDirectory;
    return folder;
}

} // namespace

String FileTree::FullPath(StringView path) const {
    String start(path);
    std::replace(start.begin(), start.end(), u'/', u'\\');
    if (start.starts_with(u'\\'))
        start.insert(0, current_directory.substr(0, kDriveLength));
    else if (!HasDrive(start))
        start.insert(0, AddBackslash(current_directory));

    StringList pieces;
    for (String& piece : Split(start, u'\\')) {
        if (piece == u".." && pieces.size() > 1)
            pieces.pop_back();
        else if (!piece.empty() && piece != u"." && piece != u"..")
            pieces.push_back(std::move(piece));
    }
    return pieces.size() == 1 ? pieces.front() + u'\\' : Join(pieces, u'\\');
}

File* FileTree::Find(StringView path) {
    const auto found = mFiles.find(Key(FullPath(path)));
    return found == mFiles.end() ? nullptr : &found->second;
}

const File* FileTree::Find(StringView path) const {
    const auto found = mFiles.find(Key(FullPath(path)));
    return found == mFiles.end() ? nullptr : &found->second;
}

const File* FileTree::FolderOf(StringView path) const {
    const File* const folder = Find(AddBackslash(FolderPart(FullPath(path))));
    return folder && folder->IsDirectory() ? folder : nullptr;
}

File& FileTree::CreateFolder(StringView path) {
    const String full = FullPath(path);
    for (std::size_t end = full.find(u'\\'); end != String::npos; end = full.find(u'\\', end + 1)) {
        const String above = full.substr(0, end);
        mFiles.try_emplace(Key(above), FolderAt(AddBackslash(above)));
    }
    return mFiles.try_emplace(Key(full), FolderAt(full)).first->second;
}

File& FileTree::CreateFile(StringView path, std::string content) {
    const String full = FullPath(path);
    CreateFolder(AddBackslash(FolderPart(full)));
    File& file = mFiles.try_emplace(Key(full), FileAt(full)).first->second;
    file.content = std::move(content);
    return file;
}

void FileTree::Remove(StringView path) {
    mFiles.erase(Key(FullPath(path)));
}

} // namespace kestrelmoor::practice
