#include "com_object.h"
#include "user_object.h"

#include <objbase.h>
#include <oleauto.h>

using namespace kestrelmoor;
using namespace kestrelmoor::stand_in;

namespace {

/// The words of a failure, left for the thread as a caller of a moniker finds them.
HRESULT LeaveWords(const practice::DirectoryFailure& failure) {
    const auto result = static_cast<HRESULT>(failure.number);
    ICreateErrorInfo* words = nullptr;
    IErrorInfo* left = nullptr;
    if (failure.description.empty() || CreateErrorInfo(&words) != S_OK)
        return result;
    std::wstring text(failure.description.begin(), failure.description.end());
    words->SetDescription(text.data());
    if (words->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&left)) == S_OK) {
        SetErrorInfo(0, left);
        left->Release();
    }
    words->Release();
    return result;
}

/// The provider's class object, which lives as long as the library. A path is bound while it is parsed, and
/// what comes of it is a moniker of the object itself.
class Provider final : public IParseDisplayName {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** place) override {
        const bool known = wanted == IID_IUnknown || wanted == IID_IParseDisplayName;
        *place = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE ParseDisplayName(IBindCtx*, LPOLESTR name, ULONG* eaten,
                                               IMoniker** moniker) override {
        *eaten = 0;
        *moniker = nullptr;
        return BehindInterface(
            [&] {
                const std::wstring path = name;
                IDispatch* const user = MakeUserObject(Backend().Bind(String(path.begin(), path.end())));
                const HRESULT made = CreatePointerMoniker(user, moniker);
                user->Release();
                *eaten = static_cast<ULONG>(path.size());
                return made;
            },
            LeaveWords);
    }
};

Provider gProvider;

} // namespace

extern "C" {

/// Every class is the provider's: the registry alone says which one leads here.
HRESULT WINAPI DllGetClassObject(REFCLSID, REFIID wanted, void** place) {
    return gProvider.QueryInterface(wanted, place);
}

HRESULT WINAPI DllCanUnloadNow() {
    return S_FALSE;
}

} // extern "C"
