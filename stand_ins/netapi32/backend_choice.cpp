#include "backend_choice.h"

#include "bridge_backend.h"
#include "practice_backend.h"
#include "stand_ins/common/environment.h"

#include <windows.h>

#include <lmerr.h>

#include <utility>

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

constexpr std::array kChoices = {
    BackendChoice<NetworkBackend>{L"KESTRELMOOR_BRIDGE", MakeBridgeBackend},
    BackendChoice<NetworkBackend>{L"KESTRELMOOR_WORLD", MakePracticeBackend},
};

std::unique_ptr<NetworkBackend> Chosen() {
    std::unique_ptr<NetworkBackend> backend = ChooseBackend(kChoices);
    return backend ? std::move(backend) : std::make_unique<AbsentBackend>();
}

} // namespace

NetworkBackend& Backend() {
    static const std::unique_ptr<NetworkBackend> backend = Chosen();
    return *backend;
}

} // namespace kestrelmoor::stand_in
