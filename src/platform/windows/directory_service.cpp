#include "platform/directory_service.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/com_failure.h"
#include "platform/windows/late_binding.h"
#include "platform/windows/owned_interface.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <objbase.h>

namespace kestrelmoor::platform {
namespace {

/// COM for this thread, single-threaded, entered once and not left until the process ends: providers keep
/// their threads and connections from one bind to the next.
void EnterCom() {
    static BoundEntry<decltype(::CoInitialize)> entry{Ole32(), "CoInitialize"};
    static bool entered = false;
    if (!entered)
        entered = SUCCEEDED(entry.Get()(nullptr));
}

IDispatch& ObjectOf(const OwnedDirectoryObject& user) {
    return *reinterpret_cast<IDispatch*>(user.Get());
}

} // namespace

void DirectoryObjectTraits::Release(Value object) noexcept {
    OwnedInterface<IDispatch>(reinterpret_cast<IDispatch*>(object));
}

OwnedDirectoryObject BindObject(const String& sPath) {
    static BoundEntry<decltype(::CreateBindCtx)> create{Ole32(), "CreateBindCtx"};
    static BoundEntry<decltype(::MkParseDisplayName)> parse{Ole32(), "MkParseDisplayName"};
    EnterCom();
    ForgetFailureWords();
    OwnedInterface<IBindCtx> context;
    RaiseIfServiceFailed(create.Get()(0, context.Receive()));
    OwnedInterface<IMoniker> moniker;
    ULONG eaten = 0;
    RaiseIfServiceFailed(parse.Get()(context.Get(), Wide(sPath), &eaten, moniker.Receive()));
    void* object = nullptr;
    RaiseIfServiceFailed(moniker.Get()->BindToObject(context.Get(), nullptr, IID_IDispatch, &object));
    return OwnedDirectoryObject{reinterpret_cast<std::uintptr_t>(object)};
}

Variant GetAttribute(const OwnedDirectoryObject& user, const String& sName) {
    return CallMethod(ObjectOf(user), L"Get", sName);
}

Variant GetProperty(const OwnedDirectoryObject& user, const String& sName) {
    return ReadProperty(ObjectOf(user), Wide(sName));
}

void ChangePassword(const OwnedDirectoryObject& user, const String& sOldPass, const String& sNewPass) {
    CallMethod(ObjectOf(user), L"ChangePassword", sOldPass, sNewPass);
}

} // namespace kestrelmoor::platform
