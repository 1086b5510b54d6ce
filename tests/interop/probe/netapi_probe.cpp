// Reads calls from standard input, one a line: a word and its arguments in UTF-8 with tabs between, "-" for a
// null pointer. Answers one line each: the code and, after a success, what was read, with tabs between.

#include "runtime/text.h"

#include <windows.h>

#include <dsgetdc.h>
#include <lm.h>

#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

using namespace kestrelmoor;

namespace {

using Arguments = std::vector<std::optional<std::wstring>>;

template <typename Function>
Function Bind(const char* name) {
    static const HMODULE library = LoadLibraryW(L"netapi32.dll");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

#define BOUND(name) Bind<decltype(&::name)>(#name)

std::string Utf8(const wchar_t* text) {
    const std::wstring_view view(text);
    return ToUtf8(String(view.begin(), view.end()));
}

LPCWSTR Pointer(const Arguments& arguments, std::size_t index) {
    const auto& argument = arguments.at(index);
    return argument ? argument->c_str() : nullptr;
}

/// The answer's line; `read` tells what a record of the type holds. The buffer goes back, as it must.
template <typename Record, typename Read>
std::string Told(NET_API_STATUS code, const void* buffer, Read read) {
    std::string line = std::to_string(code);
    if (code == NERR_Success)
        line += '\t' + read(*static_cast<const Record*>(buffer));
    if (buffer != nullptr)
        BOUND(NetApiBufferFree)(const_cast<void*>(buffer));
    return line;
}

/// The text of a code: whether it ends in CR LF, then the text.
std::string Message(const Arguments& given) {
    const auto code = static_cast<DWORD>(std::stoul(given.at(0).value()));
    const HMODULE texts = LoadLibraryExW(L"netmsg.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    wchar_t buffer[256] = {};
    const DWORD flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_HMODULE;
    FormatMessageW(flags, texts, code, 0, buffer, 256, nullptr);
    std::string text = Utf8(buffer);
    const bool ended = text.ends_with("\r\n");
    return (ended ? "ended\t" + text.substr(0, text.size() - 2) : "open\t" + text);
}

std::string WorkstationUser(const Arguments&) {
    LPBYTE buffer = nullptr;
    const auto code = BOUND(NetWkstaUserGetInfo)(nullptr, 0, &buffer);
    return Told<WKSTA_USER_INFO_0>(code, buffer, [](auto& info) { return Utf8(info.wkui0_username); });
}

std::string Workstation(const Arguments&) {
    LPBYTE buffer = nullptr;
    const auto code = BOUND(NetWkstaGetInfo)(nullptr, 100, &buffer);
    return Told<WKSTA_INFO_100>(code, buffer, [](auto& info) {
        return Utf8(info.wki100_computername) + '\t' + Utf8(info.wki100_langroup);
    });
}

std::string PrimaryController(const Arguments& given) {
    LPBYTE buffer = nullptr;
    const auto code = BOUND(NetGetDCName)(nullptr, Pointer(given, 0), &buffer);
    return Told<wchar_t>(code, buffer, [](auto& text) { return Utf8(&text); });
}

std::string Controller(const Arguments& given) {
    PDOMAIN_CONTROLLER_INFOW buffer = nullptr;
    const ULONG flags = DS_RETURN_DNS_NAME | DS_PDC_REQUIRED;
    const auto code = BOUND(DsGetDcNameW)(nullptr, Pointer(given, 0), nullptr, nullptr, flags, &buffer);
    return Told<DOMAIN_CONTROLLER_INFOW>(code, buffer,
                                         [](auto& info) { return Utf8(info.DomainControllerName); });
}

std::string User(const Arguments& given) {
    LPBYTE buffer = nullptr;
    const auto code = BOUND(NetUserGetInfo)(Pointer(given, 0), Pointer(given, 1), 3, &buffer);
    return Told<USER_INFO_3>(code, buffer, [](auto& info) {
        return Utf8(info.usri3_name) + '\t' + std::to_string(info.usri3_password_age) + '\t' +
               std::to_string(info.usri3_flags) + '\t' + std::to_string(info.usri3_password_expired);
    });
}

std::string Modals(const Arguments& given) {
    LPBYTE buffer = nullptr;
    const auto code = BOUND(NetUserModalsGet)(Pointer(given, 0), 0, &buffer);
    return Told<USER_MODALS_INFO_0>(code, buffer, [](auto& info) {
        return std::to_string(info.usrmod0_min_passwd_len) + '\t' +
               std::to_string(info.usrmod0_max_passwd_age);
    });
}

std::string ChangePassword(const Arguments& given) {
    return std::to_string(BOUND(NetUserChangePassword)(Pointer(given, 0), Pointer(given, 1),
                                                       Pointer(given, 2), Pointer(given, 3)));
}

/// The codes of giving two buffers back, and then the second one again.
std::string Releases(const Arguments&) {
    LPBYTE first = nullptr;
    LPBYTE second = nullptr;
    BOUND(NetWkstaUserGetInfo)(nullptr, 0, &first);
    BOUND(NetWkstaUserGetInfo)(nullptr, 0, &second);
    std::string codes;
    for (const LPBYTE buffer : {first, second, second})
        codes += (codes.empty() ? "" : "\t") + std::to_string(BOUND(NetApiBufferFree)(buffer));
    return codes;
}

const std::map<std::string, std::string (*)(const Arguments&)> kCalls = {
    {"NetWkstaUserGetInfo", WorkstationUser},
    {"NetWkstaGetInfo", Workstation},
    {"NetGetDCName", PrimaryController},
    {"DsGetDcNameW", Controller},
    {"NetUserGetInfo", User},
    {"NetUserModalsGet", Modals},
    {"NetUserChangePassword", ChangePassword},
    {"Releases", Releases},
    {"Message", Message},
};

std::string Answer(const std::string& line) {
    StringList words = Split(FromUtf8(line), u'\t');
    Arguments arguments;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i] == u"-")
            arguments.emplace_back(std::nullopt);
        else
            arguments.emplace_back(std::wstring(words[i].begin(), words[i].end()));
    }
    return kCalls.at(ToUtf8(words[0]))(arguments);
}

} // namespace

int main() {
    std::string line;
    for (int c = std::getchar(); c != EOF; c = std::getchar()) {
        if (c == '\n') {
            std::printf("%s\n", Answer(line).c_str());
            std::fflush(stdout);
            line.clear();
        } else if (c != '\r') {
            line += static_cast<char>(c);
        }
    }
}
