#include "backend_choice.h"

#include "bridge_backend.h"
#include "practice_backend.h"

#include <windows.h>

#include <lmerr.h>

#include <array>
#include <memory>
#include <string>

namespace kestrelmoor::stand_in {
namespace {

class AbsentBackend final : public NetworkBackend {
  public:
    NetStatus NetWkstaUserGetInfo(platform::WkstaUserInfo0&) override { return NERR_WkstaNotStarted; }
    NetStatus NetWkstaGetInfo(platform::WkstaInfo100&) override { return NERR_WkstaNotStarted; }
    NetStatus NetGetDCName(const OptionalString&, String&) override { return NERR_WkstaNotStarted; }
    NetStatus DsGetDcNameW(const OptionalString&, std::uint32_t, String&) override {
        return NERR_WkstaNotStarted;
    }
    NetStatus NetUserGetInfo(const OptionalString&, const String&, platform::UserInfo3&) override {
        return NERR_WkstaNotStarted;
    }
    NetStatus NetUserModalsGet(const OptionalString&, platform::UserModalsInfo0&) override {
        return NERR_WkstaNotStarted;
    }
    NetStatus NetUserChangePassword(const OptionalString&, const OptionalString&, const String&,
                                    const String&) override {
        return NERR_WkstaNotStarted;
    }
    void NetApiBufferFree(bool, std::size_t) override {}
};

struct Choice {
    const wchar_t* variable;
    std::unique_ptr<NetworkBackend> (*make)(const String& value);
};

constexpr std::array kChoices = {
    Choice{L"KESTRELMOOR_BRIDGE", MakeBridgeBackend},
    Choice{L"KESTRELMOOR_WORLD", MakePracticeBackend},
};

String EnvironmentVariable(const wchar_t* name) {
    const DWORD needed = GetEnvironmentVariableW(name, nullptr, 0);
    std::wstring value(needed, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), needed));
    return String(value.begin(), value.end());
}

std::unique_ptr<NetworkBackend> ChooseBackend() {
    for (const Choice& choice : kChoices) {
        const String value = EnvironmentVariable(choice.variable);
        std::unique_ptr<NetworkBackend> backend = value.empty() ? nullptr : choice.make(value);
        if (backend)
            return backend;
    }
    return std::make_unique<AbsentBackend>();
}

} // namespace

NetworkBackend& Backend() {
    static const std::unique_ptr<NetworkBackend> backend = ChooseBackend();
    return *backend;
}

} // namespace kestrelmoor::stand_in
