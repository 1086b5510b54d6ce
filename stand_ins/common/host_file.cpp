#include "platform/practice/world/host_file.h"

#include "platform/practice/world/world_file.h"
#include "runtime/text.h"

#include <windows.h>

namespace kestrelmoor::practice {

namespace {

class HostFile {
  public:
    HostFile(const std::string& path, DWORD access, DWORD disposition)
        : mHandle(CreateFileW(Wide(path).c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~HostFile() {
        if (IsOpen())
            CloseHandle(mHandle);
    }
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;

    bool IsOpen() const { return mHandle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return mHandle; }

    static std::wstring Wide(const std::string& path) {
        const String text = FromUtf8(path);
        return std::wstring(text.begin(), text.end());
    }

  private:
    HANDLE mHandle;
};

[[noreturn]] void Refuse(const std::string& path, const char* deed) {
    throw WorldFileError(path + ": can't be " + deed + ": system code " + std::to_string(GetLastError()));
}

bool WriteAll(const std::string& path, std::string_view content) {
    const HostFile file(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    return file.IsOpen() &&
           WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) &&
           written == content.size() && FlushFileBuffers(file.Get());
}

} // namespace

std::string ReadHostFile(const std::string& path) {
    const HostFile file(path, GENERIC_READ, OPEN_EXISTING);
    if (!file.IsOpen())
        Refuse(path, "opened");
    std::string content;
    char block[65536];
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(file.Get(), block, sizeof block, &count, nullptr))
            Refuse(path, "read");
        if (count == 0)
            return content;
        content.append(block, count);
    }
}

void ReplaceHostFile(const std::string& path, std::string_view content) {
    const std::string fresh = path + ".new";
    if (!WriteAll(fresh, content) ||
        !MoveFileExW(HostFile::Wide(fresh).c_str(), HostFile::Wide(path).c_str(), MOVEFILE_REPLACE_EXISTING))
        Refuse(path, "written");
}

} // namespace kestrelmoor::practice
