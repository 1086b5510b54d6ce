#include "platform/practice/world/host_file.h"

#include "platform/practice/world/world_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <unistd.h>

namespace kestrelmoor::practice {

namespace {

using OpenFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

[[noreturn]] void Refuse(const std::string& path, const char* deed) {
    throw WorldFileError(path + ": can't be " + deed + ": " + std::strerror(errno));
}

bool WriteAll(const std::string& path, std::string_view content) {
    const OpenFile file(std::fopen(path.c_str(), "wb"), &std::fclose);
    return file && std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() &&
           std::fflush(file.get()) == 0 && fsync(fileno(file.get())) == 0;
}

} // namespace

std::string ReadHostFile(const std::string& path) {
    const OpenFile file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file)
        Refuse(path, "opened");
    std::string content;
    char block[65536];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
        content.append(block, count);
    if (std::ferror(file.get()))
        Refuse(path, "read");
    return content;
}

void ReplaceHostFile(const std::string& path, std::string_view content) {
    const std::string fresh = path + ".new";
    if (!WriteAll(fresh, content) || std::rename(fresh.c_str(), path.c_str()) != 0) {
        const int reason = errno;
        std::remove(fresh.c_str());
        errno = reason;
        Refuse(path, "written");
    }
}

} // namespace kestrelmoor::practice
