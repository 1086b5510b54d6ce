#include "platform/directory_service.h"

#include "platform/practice/world/world.h"
#include "runtime/errors.h"

namespace kestrelmoor::platform {

namespace {

using practice::DirectoryFailure;
using practice::DirectoryUser;
using practice::HandleKind;
using practice::TheWorld;

constexpr std::uint32_t kCodeMask = 0xFFFF;

/// The system's words for a number that the service gave none for.
String WordsFor(std::uint32_t number) {
    const bool of_system = (number & ~kCodeMask) == practice::directory_code::kSystem;
    const auto& messages = TheWorld().machine.system_messages;
    const auto found = messages.find(of_system ? number & kCodeMask : number);
    return found == messages.end() ? ErrorDescription(static_cast<std::int32_t>(number)) : found->second;
}

/// Records a call and makes it; a failure, told in advance or true, is raised.
template <class Action>
auto Call(std::string_view name, std::initializer_list<practice::CallArgument> arguments, Action action) {
    try {
        if (const auto fault = TheWorld().calls.Enter(name, arguments))
            throw DirectoryFailure{*fault};
        return action();
    } catch (const DirectoryFailure& failure) {
        throw RuntimeError(ErrorNumberOfComResult(static_cast<std::int32_t>(failure.number)), u"WinNT",
                           failure.description.empty() ? WordsFor(failure.number) : failure.description);
    }
}

const DirectoryUser& Bound(const OwnedDirectoryObject& object) {
    const auto* const user =
        TheWorld().handles.Find<DirectoryUser>(HandleKind::DirectoryObject, object.Get());
    if (!user)
        RaiseError(error_number::kObjectNotSet);
    return *user;
}

Variant ValueOf(const OwnedDirectoryObject& user, const String& sName) {
    return practice::DirectoryValue(TheWorld().network, TheWorld().clock.Now(), Bound(user), ToUtf8(sName));
}

} // namespace

void DirectoryObjectTraits::Release(Value object) noexcept {
    TheWorld().handles.Close(HandleKind::DirectoryObject, object);
}

OwnedDirectoryObject BindObject(const String& sPath) {
    return Call("GetObject", {sPath}, [&] {
        return OwnedDirectoryObject(TheWorld().handles.Open(
            HandleKind::DirectoryObject, practice::BindDirectoryUser(TheWorld().network, sPath)));
    });
}

Variant GetAttribute(const OwnedDirectoryObject& user, const String& sName) {
    return Call("IADsUser.Get", {sName}, [&] { return ValueOf(user, sName); });
}

Variant GetProperty(const OwnedDirectoryObject& user, const String& sName) {
    return Call("IADsUser." + ToUtf8(sName), {}, [&] { return ValueOf(user, sName); });
}

void ChangePassword(const OwnedDirectoryObject& user, const String& sOldPass, const String& sNewPass) {
    using practice::Secret;
    Call("IADsUser.ChangePassword", {Secret{sOldPass}, Secret{sNewPass}}, [&] {
        practice::ChangeDirectoryPassword(TheWorld().network, TheWorld().clock.Now(), Bound(user), sOldPass,
                                          sNewPass);
    });
}

} // namespace kestrelmoor::platform
