#include "platform/practice/world/libraries.h"

#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::practice {

const Library* Libraries::Find(StringView path) const {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Library& library) { return SameName(library.path, path); });
    return found == all.end() ? nullptr : &*found;
}

Library& Libraries::Put(Library library) {
    Remove(library.path);
    return all.emplace_back(std::move(library));
}

void Libraries::Remove(StringView path) {
    std::erase_if(all, [&](const Library& library) { return SameName(library.path, path); });
}

} // namespace kestrelmoor::practice
