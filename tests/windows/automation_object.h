#pragma once

#include <windows.h>

#include <oaidl.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

// COM's objects are released and never deleted through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kestrelmoor::tests {

/// An automation object whose members answer as a test says. Lives on the test's own stack.
class AutomationObject final : public IDispatch {
  public:
    struct Use {
        std::wstring member;
        WORD kind;
        const DISPPARAMS& arguments;
        VARIANT& answer;
        EXCEPINFO& exception;
    };

    explicit AutomationObject(std::vector<std::wstring> members) : mMembers(std::move(members)) {}

    std::function<HRESULT(const Use&)> on_use = [](const Use&) { return S_OK; };
    LONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** place) override {
        if (wanted != IID_IUnknown && wanted != IID_IDispatch)
            return E_NOINTERFACE;
        AddRef();
        *place = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) override {
        const auto found = std::find_if(mMembers.begin(), mMembers.end(), [&](const std::wstring& member) {
            return ::lstrcmpiW(member.c_str(), names[0]) == 0;
        });
        *members = static_cast<DISPID>(found - mMembers.begin());
        return found == mMembers.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments,
                                     VARIANT* answer, EXCEPINFO* exception, UINT*) override {
        return on_use({mMembers[static_cast<std::size_t>(member)], kind, *arguments, *answer, *exception});
    }

  private:
    std::vector<std::wstring> mMembers;
};

} // namespace kestrelmoor::tests
