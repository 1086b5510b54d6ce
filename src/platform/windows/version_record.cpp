#include "platform/version_record.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/program_path.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <vector>

namespace kestrelmoor::platform {

namespace {

/// The block of texts in English, United States, and Unicode.
constexpr char16_t kTexts[] = u"\\StringFileInfo\\040904B0\\";

BoundLibrary& Version() {
    static BoundLibrary library{L"version.dll"};
    return library;
}

std::vector<std::uint8_t> RecordOf(const wchar_t* file) {
    static BoundEntry<decltype(::GetFileVersionInfoSizeW)> size_entry{Version(), "GetFileVersionInfoSizeW"};
    static BoundEntry<decltype(::GetFileVersionInfoW)> read_entry{Version(), "GetFileVersionInfoW"};
    const auto size_of = size_entry.Find();
    const auto read = read_entry.Find();
    DWORD unused = 0;
    std::vector<std::uint8_t> record(size_of && read ? size_of(file, &unused) : 0);
    if (record.empty() || !read(file, 0, static_cast<DWORD>(record.size()), record.data()))
        record.clear();
    return record;
}

/// What stands under a name of the record; null: nothing.
const void* Find(const std::vector<std::uint8_t>& record, const String& name) {
    static BoundEntry<decltype(::VerQueryValueW)> entry{Version(), "VerQueryValueW"};
    void* found = nullptr;
    UINT size = 0;
    const auto query = entry.Find();
    const bool is_there = query && !record.empty() && query(record.data(), Wide(name), &found, &size);
    return is_there && size > 0 ? found : nullptr;
}

String TextOf(const std::vector<std::uint8_t>& record, StringView name) {
    return FromWide(static_cast<const wchar_t*>(Find(record, kTexts + String(name))));
}

} // namespace

VersionRecord ReadVersionRecord() {
    const std::vector<std::uint8_t> record = RecordOf(Wide(ProgramPath()));
    VersionRecord own{TextOf(record, u"ProductName"), TextOf(record, u"LegalCopyright")};
    if (const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(Find(record, u"\\"))) {
        own.major = HIWORD(fixed->dwFileVersionMS);
        own.minor = LOWORD(fixed->dwFileVersionMS);
        own.revision = LOWORD(fixed->dwFileVersionLS);
    }
    return own;
}

} // namespace kestrelmoor::platform
