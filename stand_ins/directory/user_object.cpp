#include "user_object.h"

#include "com_object.h"

#include <oleauto.h>

#include <algorithm>
#include <array>

namespace kestrelmoor::stand_in {
namespace {

namespace member_name = practice::directory_member;

struct Member {
    const wchar_t* name;
    WORD kind;
    UINT arguments;
    const char* property; ///< null for a method
};

enum Method : DISPID { kGet, kChangePassword };

constexpr std::array<Member, 4> kMembers = {{
    {L"Get", DISPATCH_METHOD, 1, nullptr},
    {L"ChangePassword", DISPATCH_METHOD, 2, nullptr},
    {L"PasswordExpirationDate", DISPATCH_PROPERTYGET, 0, member_name::kExpirationDate},
    {L"PasswordMinimumLength", DISPATCH_PROPERTYGET, 0, member_name::kMinimumLength},
}};

/// What the visitor is given, in the platform's shape.
struct VariantMaker {
    VARIANT& place;

    void operator()(std::monostate) const { place.vt = VT_EMPTY; }
    void operator()(NullValue) const { place.vt = VT_NULL; }
    void operator()(ForeignValue) const { place.vt = VT_ERROR; }
    void operator()(bool value) const {
        place.vt = VT_BOOL;
        place.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int32_t value) const {
        place.vt = VT_I4;
        place.lVal = value;
    }
    void operator()(double value) const {
        place.vt = VT_R8;
        place.dblVal = value;
    }
    void operator()(DateValue value) const {
        place.vt = VT_DATE;
        place.date = value.date;
    }
    void operator()(const String& value) const {
        place.vt = VT_BSTR;
        place.bstrVal = CopyOf(value);
    }
};

String TextArgument(const VARIANT& argument) {
    const BSTR text = argument.bstrVal;
    return String(text, text + SysStringLen(text));
}

bool AreTexts(const DISPPARAMS& given) {
    return std::all_of(given.rgvarg, given.rgvarg + given.cArgs,
                       [](const VARIANT& argument) { return argument.vt == VT_BSTR; });
}

class UserObject final : public IDispatch {
  public:
    explicit UserObject(std::unique_ptr<DirectoryEntry> entry) : mEntry(std::move(entry)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** place) override {
        const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
        *place = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --mReferences;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* members) override {
        const auto found = std::find_if(kMembers.begin(), kMembers.end(), [&](const Member& member) {
            return lstrcmpiW(member.name, names[0]) == 0;
        });
        const bool known = found != kMembers.end() && count == 1;
        *members = known ? static_cast<DISPID>(found - kMembers.begin()) : DISPID_UNKNOWN;
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* answer,
                                     EXCEPINFO* exception, UINT*) override {
        if (id < 0 || static_cast<std::size_t>(id) >= kMembers.size())
            return DISP_E_MEMBERNOTFOUND;
        const Member& member = kMembers[static_cast<std::size_t>(id)];
        if ((kind & member.kind) == 0)
            return DISP_E_MEMBERNOTFOUND;
        if (given->cArgs != member.arguments)
            return DISP_E_BADPARAMCOUNT;
        if (!AreTexts(*given))
            return DISP_E_TYPEMISMATCH;
        return BehindInterface(
            [&] {
                Use(id, member, *given, *answer);
                return S_OK;
            },
            [&](const practice::DirectoryFailure& failure) {
                exception->scode = static_cast<SCODE>(failure.number);
                exception->bstrDescription = CopyOf(failure.description);
                return DISP_E_EXCEPTION;
            });
    }

  private:
    ~UserObject() = default;

    /// Arguments stand with the last one first.
    void Use(DISPID id, const Member& member, const DISPPARAMS& given, VARIANT& answer) {
        if (id == kChangePassword)
            mEntry->ChangePassword(TextArgument(given.rgvarg[1]), TextArgument(given.rgvarg[0]));
        else if (id == kGet)
            std::visit(VariantMaker{answer}, mEntry->Value(ToUtf8(TextArgument(given.rgvarg[0]))));
        else
            std::visit(VariantMaker{answer}, mEntry->Value(member.property));
    }

    std::unique_ptr<DirectoryEntry> mEntry;
    ULONG mReferences = 1;
};

} // namespace

IDispatch* MakeUserObject(std::unique_ptr<DirectoryEntry> entry) {
    return new UserObject(std::move(entry));
}

} // namespace kestrelmoor::stand_in
