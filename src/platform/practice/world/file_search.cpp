#include "platform/practice/world/file_search.h"

#include "platform/practice/world/names.h"

namespace kestrelmoor::practice {

namespace {

/// Both with their case folded.
bool Fits(StringView name, StringView pattern) {
    if (pattern.empty())
        return name.empty();
    if (pattern.front() != u'*')
        return !name.empty() && name.front() == pattern.front() && Fits(name.substr(1), pattern.substr(1));
    return Fits(name, pattern.substr(1)) || (!name.empty() && Fits(name.substr(1), pattern));
}

/// Where the name begins in a whole path.
std::size_t NameStart(StringView path) {
    return path.rfind(u'\\') + 1;
}

} // namespace

FilesByName FilesMatching(const World& world, StringView pattern) {
    const String sought = FoldName(world.files.FullPath(pattern));
    const std::size_t start = NameStart(sought);
    FilesByName found;
    const auto add = [&](const String& path, std::uint32_t attributes) {
        const String folded = FoldName(path);
        const bool same_folder =
            NameStart(folded) == start && folded.compare(0, start, sought, 0, start) == 0;
        const String name = path.substr(NameStart(path));
        if (same_folder && !name.empty() && Fits(folded.substr(start), sought.substr(start)))
            found.try_emplace(FoldName(name), MatchingFile{name, attributes});
    };
    for (const auto& [key, file] : world.files.Files())
        add(file.path, file.attributes);
    for (const Library& library : world.libraries.all)
        add(library.path, file_attribute::kArchive);
    return found;
}

} // namespace kestrelmoor::practice
