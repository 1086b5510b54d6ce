#include "bridge_backend.h"

#include "stand_ins/common/bridge_connection.h"
#include "stand_ins/common/bridge_texts.h"

#include <windows.h>

#include <lmerr.h>

namespace kestrelmoor::stand_in {
namespace {

using Json = nlohmann::json;

class BridgeBackend final : public NetworkBackend {
  public:
    explicit BridgeBackend(const String& address) : mConnection(ToUtf8(address)) {}

    NetStatus NetWkstaUserGetInfo(platform::WkstaUserInfo0& info) override {
        return Call(
            [] {
                return Json{{"call", "NetWkstaUserGetInfo"}, {"reserved", nullptr}, {"level", 0}};
            },
            [&](const Json& answer) { info.username = TextOf(answer, "username"); });
    }

    NetStatus NetWkstaGetInfo(platform::WkstaInfo100& info) override {
        return Call(
            [] {
                return Json{{"call", "NetWkstaGetInfo"}, {"servername", nullptr}, {"level", 100}};
            },
            [&](const Json& answer) {
                info.computername = TextOf(answer, "computername");
                info.langroup = TextOf(answer, "langroup");
            });
    }

    NetStatus NetGetDCName(const OptionalString& domainname, String& name) override {
        return Call(
            [&] {
                return Json{
                    {"call", "NetGetDCName"}, {"servername", nullptr}, {"domainname", JsonOf(domainname)}};
            },
            [&](const Json& answer) { name = TextOf(answer, "name"); });
    }

    NetStatus DsGetDcNameW(const OptionalString& domainname, std::uint32_t flags, String& name) override {
        return Call(
            [&] {
                return Json{{"call", "DsGetDcNameW"}, {"domainname", JsonOf(domainname)}, {"flags", flags}};
            },
            [&](const Json& answer) { name = TextOf(answer, "name"); });
    }

    NetStatus NetUserGetInfo(const OptionalString& servername, const String& username,
                             platform::UserInfo3& info) override {
        return Call(
            [&] {
                return Json{{"call", "NetUserGetInfo"},
                            {"servername", JsonOf(servername)},
                            {"username", JsonOf(username)},
                            {"level", 3}};
            },
            [&](const Json& answer) {
                info.password_age = answer.at("password_age");
                info.flags = answer.at("flags");
                info.password_expired = answer.at("password_expired");
            });
    }

    NetStatus NetUserModalsGet(const OptionalString& servername, platform::UserModalsInfo0& info) override {
        return Call(
            [&] {
                return Json{{"call", "NetUserModalsGet"}, {"servername", JsonOf(servername)}, {"level", 0}};
            },
            [&](const Json& answer) {
                info.min_passwd_len = answer.at("min_passwd_len");
                info.max_passwd_age = answer.at("max_passwd_age");
            });
    }

    NetStatus NetUserChangePassword(const OptionalString& domainname, const OptionalString& username,
                                    const String& oldpassword, const String& newpassword) override {
        return Call(
            [&] {
                return Json{{"call", "NetUserChangePassword"},
                            {"domainname", JsonOf(domainname)},
                            {"username", JsonOf(username)},
                            {"oldpassword", JsonOf(oldpassword)},
                            {"newpassword", JsonOf(newpassword)}};
            },
            [](const Json&) {});
    }

    void NetApiBufferFree(bool known, std::size_t outstanding) override {
        Call(
            [&] {
                return Json{{"call", "NetApiBufferFree"}, {"known", known}, {"outstanding", outstanding}};
            },
            [](const Json&) {});
    }

  private:
    template <typename Request, typename Read>
    NetStatus Call(Request request, Read read) {
        try {
            const std::optional<std::string> line = mConnection.Exchange(request().dump());
            if (!line)
                return NERR_WkstaNotStarted;
            const Json answer = Json::parse(*line);
            const NetStatus code = answer.at("code");
            if (code == NERR_Success)
                read(answer);
            return code;
        } catch (const UnsendableText&) {
            return ERROR_INVALID_PARAMETER;
        } catch (const Json::exception&) {
            return ERROR_UNEXP_NET_ERR;
        }
    }

    BridgeConnection mConnection;
};

} // namespace

std::unique_ptr<NetworkBackend> MakeBridgeBackend(const String& address) {
    return std::make_unique<BridgeBackend>(address);
}

} // namespace kestrelmoor::stand_in
