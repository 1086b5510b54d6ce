#include "tests/bench/bare/accounts.h"

#include <objbase.h>
#include <oleauto.h>

namespace kestrelmoor::bench {

namespace {

/// One use of a member; what it answers is given back at once.
void Use(IDispatch* object, const wchar_t* name, WORD kind, DISPPARAMS arguments) {
    auto* place = const_cast<wchar_t*>(name);
    DISPID member = 0;
    if (FAILED(object->GetIDsOfNames(IID_NULL, &place, 1, LOCALE_USER_DEFAULT, &member)))
        return;
    VARIANT answer{};
    EXCEPINFO exception{};
    object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, &answer, &exception, nullptr);
    ::VariantClear(&answer);
}

void Get(IDispatch* object, const wchar_t* attribute) {
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = ::SysAllocString(attribute);
    Use(object, L"Get", DISPATCH_METHOD, {&argument, nullptr, 1, 0});
    ::SysFreeString(argument.bstrVal);
}

IDispatch* Bind(const wchar_t* path) {
    IBindCtx* context = nullptr;
    if (FAILED(::CreateBindCtx(0, &context)))
        return nullptr;
    IMoniker* moniker = nullptr;
    ULONG eaten = 0;
    void* object = nullptr;
    if (SUCCEEDED(::MkParseDisplayName(context, path, &eaten, &moniker))) {
        moniker->BindToObject(context, nullptr, IID_IDispatch, &object);
        moniker->Release();
    }
    context->Release();
    return static_cast<IDispatch*>(object);
}

} // namespace

Accounts::Accounts() {
    wchar_t path[MAX_PATH + 16];
    ::GetSystemDirectoryW(path, MAX_PATH);
    ::lstrcatW(path, L"\\netapi32.dll");
    mNetwork = ::LoadLibraryW(path);
    mFree = Entry<decltype(::NetApiBufferFree)>("NetApiBufferFree");
}

void Accounts::AskForUser() {
    const auto ask = Entry<decltype(::NetWkstaUserGetInfo)>("NetWkstaUserGetInfo");
    WKSTA_USER_INFO_0* info = nullptr;
    if (ask(nullptr, 0, reinterpret_cast<BYTE**>(&info)) != NERR_Success)
        return;
    ::lstrcpynW(mUser, info->wkui0_username, UNLEN + 1);
    mFree(info);
}

void Accounts::AskForComputer() {
    const auto ask = Entry<decltype(::NetWkstaGetInfo)>("NetWkstaGetInfo");
    WKSTA_INFO_100* info = nullptr;
    if (ask(nullptr, 100, reinterpret_cast<BYTE**>(&info)) != NERR_Success)
        return;
    ::lstrcpynW(mComputer, info->wki100_computername, MAX_COMPUTERNAME_LENGTH + 1);
    mFree(info);
}

void Accounts::AskForPassword(const wchar_t* server) {
    if (!AskDirectory(server ? server + 2 : mComputer))
        AskNetwork(server);
}

bool Accounts::AskDirectory(const wchar_t* name) {
    static const HRESULT entered = ::CoInitialize(nullptr);
    wchar_t path[1024];
    ::wsprintfW(path, L"WinNT://%s/%s,user", name, mUser);
    IDispatch* const user = SUCCEEDED(entered) ? Bind(path) : nullptr;
    if (!user)
        return false;
    Get(user, L"UserFlags");
    Get(user, L"PasswordExpired");
    Use(user, L"PasswordExpirationDate", DISPATCH_PROPERTYGET, {});
    user->Release();
    return true;
}

void Accounts::AskNetwork(const wchar_t* server) {
    static const auto user_info = Entry<decltype(::NetUserGetInfo)>("NetUserGetInfo");
    static const auto modals = Entry<decltype(::NetUserModalsGet)>("NetUserModalsGet");
    BYTE* buffer = nullptr;
    if (user_info(server, mUser, 3, &buffer) == NERR_Success)
        mFree(buffer);
    buffer = nullptr;
    if (modals(server, 0, &buffer) == NERR_Success)
        mFree(buffer);
}

} // namespace kestrelmoor::bench
