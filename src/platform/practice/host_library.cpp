#include "platform/practice/host_library.h"

#include <filesystem>

#include <dlfcn.h>

namespace kestrelmoor::practice {

namespace {

std::filesystem::path Sought(const std::filesystem::path& wanted) {
    std::error_code failure;
    std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
    while (!std::filesystem::exists(folder / wanted, failure) && folder.has_relative_path())
        folder = folder.parent_path();
    return folder / wanted;
}

} // namespace

void* LoadHostLibrary(const std::string& path) {
    return dlopen(Sought(path).c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* HostEntry(void* library, const char* name) {
    return dlsym(library, name);
}

} // namespace kestrelmoor::practice
