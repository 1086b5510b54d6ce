#include "practice_backend.h"

#include "platform/practice/world/names.h"
#include "platform/practice/world/world_file.h"
#include "runtime/errors.h"
#include "stand_ins/common/kept_world.h"

#include <windows.h>

#include <lmerr.h>

#include <cstdio>

namespace kestrelmoor::stand_in {
namespace {

/// The practice platform's own answers, for the world of a file.
class PracticeBackend final : public NetworkBackend {
  public:
    explicit PracticeBackend(const String& path) : mWorld(path) {}

    NetStatus NetWkstaUserGetInfo(platform::WkstaUserInfo0& info) override {
        return Answer([&] { return platform::NetWkstaUserGetInfo(info); });
    }
    NetStatus NetWkstaGetInfo(platform::WkstaInfo100& info) override {
        return Answer([&] { return platform::NetWkstaGetInfo(info); });
    }
    NetStatus NetGetDCName(const OptionalString& domainname, String& name) override {
        return Answer([&] { return platform::NetGetDCName(domainname.value_or(String()), name); });
    }
    NetStatus DsGetDcNameW(const OptionalString& domainname, std::uint32_t flags, String& name) override {
        return Answer([&] {
            const auto status = platform::DsGetDcNameW(domainname.value_or(String()), flags, name);
            return status.value_or(ERROR_CALL_NOT_IMPLEMENTED);
        });
    }
    NetStatus NetUserGetInfo(const OptionalString& servername, const String& username,
                             platform::UserInfo3& info) override {
        return Answer(
            [&] { return platform::NetUserGetInfo(servername.value_or(String()), username, info); });
    }
    NetStatus NetUserModalsGet(const OptionalString& servername, platform::UserModalsInfo0& info) override {
        return Answer([&] { return platform::NetUserModalsGet(servername.value_or(String()), info); });
    }
    NetStatus NetUserChangePassword(const OptionalString& domainname, const OptionalString& username,
                                    const String& oldpassword, const String& newpassword) override {
        return Guarded([&] {
            return mWorld.Change([&](practice::World& world) -> NetStatus {
                // The world knows one person, who changes no other one's password.
                if (username && !practice::SameName(*username, world.network.user.name))
                    return NERR_UserNotFound;
                return platform::NetUserChangePassword(domainname.value_or(String()), oldpassword,
                                                       newpassword);
            });
        });
    }
    void NetApiBufferFree(bool, std::size_t) override {}

  private:
    template <class Call>
    NetStatus Answer(const Call& call) {
        return Guarded([&] { return mWorld.Ask([&](practice::World&) { return call(); }); });
    }
    template <class Call>
    static NetStatus Guarded(const Call& call) {
        try {
            return call();
        } catch (const RuntimeError&) {
            return NERR_WkstaNotStarted;
        } catch (const practice::WorldFileError& error) {
            std::fprintf(stderr, "%s\n", error.what());
            return NERR_InternalError;
        }
    }

    KeptWorld mWorld;
};

} // namespace

std::unique_ptr<NetworkBackend> MakePracticeBackend(const String& path) {
    try {
        return std::make_unique<PracticeBackend>(path);
    } catch (const practice::WorldFileError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return nullptr;
    }
}

} // namespace kestrelmoor::stand_in
