#include "bridge_directory.h"

#include "stand_ins/common/bridge_connection.h"
#include "stand_ins/common/bridge_texts.h"

#include <windows.h>

#include <lmerr.h>

namespace kestrelmoor::stand_in {
namespace {

using Json = nlohmann::json;
using practice::DirectoryFailure;
namespace member_name = practice::directory_member;

constexpr std::uint32_t kFailed = 0x80000000;

[[noreturn]] void FailWith(std::uint32_t code, String description = {}) {
    throw DirectoryFailure{(code & kFailed) != 0 ? code : practice::directory_code::kSystem + code,
                           std::move(description)};
}

Variant ValueOf(const Json& value, std::string_view member) {
    if (value.is_null())
        return NullValue{};
    if (value.is_boolean())
        return value.get<bool>();
    if (value.is_string())
        return FromUtf8(value.get<std::string>());
    if (member == member_name::kExpirationDate)
        return DateValue{value.get<double>()};
    if (value.is_number_integer())
        return value.get<std::int32_t>();
    return value.get<double>();
}

template <class Work>
auto Guarded(Work work) {
    try {
        return work();
    } catch (const UnsendableText&) {
        FailWith(ERROR_INVALID_PARAMETER);
    } catch (const Json::exception&) {
        FailWith(ERROR_UNEXP_NET_ERR);
    }
}

/// The conversation about one path.
class BridgeEntry final : public DirectoryEntry {
  public:
    BridgeEntry(const BridgeConnection& connection, String path)
        : mConnection(connection), mPath(std::move(path)) {}

    void Bind() {
        Call("GetObject", [](Json&) {});
    }
    Variant Value(std::string_view member) override {
        const bool attribute = member == member_name::kFlags || member == member_name::kExpired;
        const std::string call = attribute ? "IADsUser.Get" : "IADsUser." + std::string(member);
        const Json answer = Call(call, [&](Json& request) {
            if (attribute)
                request["name"] = member;
        });
        return Guarded([&] { return ValueOf(answer.at("value"), member); });
    }
    void ChangePassword(const String& old_password, const String& new_password) override {
        Call("IADsUser.ChangePassword", [&](Json& request) {
            request["oldpassword"] = JsonOf(old_password);
            request["newpassword"] = JsonOf(new_password);
        });
    }

  private:
    template <class Fill>
    Json Call(const std::string& name, Fill fill) const {
        return Guarded([&] {
            Json request{{"call", name}, {"path", JsonOf(mPath)}};
            fill(request);
            const std::optional<std::string> line = mConnection.Exchange(request.dump());
            if (!line)
                FailWith(NERR_WkstaNotStarted);
            Json answer = Json::parse(*line);
            if (const std::uint32_t code = answer.at("code"); code != 0)
                FailWith(code, answer.contains("description") ? TextOf(answer, "description") : String());
            return answer;
        });
    }

    const BridgeConnection& mConnection;
    String mPath;
};

class BridgeDirectory final : public DirectoryBackend {
  public:
    explicit BridgeDirectory(const String& address) : mConnection(ToUtf8(address)) {}

    std::unique_ptr<DirectoryEntry> Bind(const String& path) override {
        auto entry = std::make_unique<BridgeEntry>(mConnection, path);
        entry->Bind();
        return entry;
    }

  private:
    BridgeConnection mConnection;
};

} // namespace

std::unique_ptr<DirectoryBackend> MakeBridgeDirectory(const String& address) {
    return std::make_unique<BridgeDirectory>(address);
}

} // namespace kestrelmoor::stand_in
