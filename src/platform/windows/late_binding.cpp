#include "platform/windows/late_binding.h"

#include "platform/automation.h"
#include "platform/windows/bound_library.h"
#include "platform/windows/com_failure.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"
#include "runtime/errors.h"
#include "runtime/owned.h"

#include <array>

#include <oleauto.h>

namespace kestrelmoor::platform {
namespace {

/// Owns what a VARIANT holds, not the place where it stands.
struct ContentTraits {
    using Value = VARIANT*;
    static constexpr Value kNone = nullptr;
    static void Release(Value variant) noexcept {
        static BoundEntry<decltype(::VariantClear)> entry{OleAut32(), "VariantClear"};
        const LastErrorKept kept;
        if (const auto clear = entry.Find())
            clear(variant);
    }
};
using OwnedContent = Owned<ContentTraits>;

/// The same number in another kind; the content of both needs no release.
VARIANT Converted(VARIANT& number, VARTYPE kind) {
    static BoundEntry<decltype(::VariantChangeType)> entry{OleAut32(), "VariantChangeType"};
    VARIANT converted{};
    RaiseIfFailed(entry.Get()(&converted, &number, 0, kind));
    return converted;
}

Variant ValueOf(VARIANT& variant) {
    static BoundEntry<decltype(::SysStringLen)> length{OleAut32(), "SysStringLen"};
    switch (variant.vt) {
    case VT_EMPTY:
        return {};
    case VT_NULL:
        return NullValue{};
    case VT_BOOL:
        return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
        return std::int32_t{Converted(variant, VT_I4).lVal};
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
        return Converted(variant, VT_R8).dblVal;
    case VT_DATE:
        return DateValue{variant.date};
    case VT_BSTR:
        return String(reinterpret_cast<const char16_t*>(variant.bstrVal), length.Get()(variant.bstrVal));
    default:
        return ForeignValue{};
    }
}

[[noreturn]] void RaiseException(EXCEPINFO& exception) {
    if (exception.pfnDeferredFillIn)
        exception.pfnDeferredFillIn(&exception);
    String source = TakeText(reinterpret_cast<char16_t*>(exception.bstrSource));
    String description = TakeText(reinterpret_cast<char16_t*>(exception.bstrDescription));
    TakeText(reinterpret_cast<char16_t*>(exception.bstrHelpFile));
    std::int32_t code = exception.scode != 0 ? exception.scode : exception.wCode;
    if (code == 0)
        code = DISP_E_EXCEPTION;
    RaiseComFailure(code, std::move(source), std::move(description));
}

DISPID MemberOf(IDispatch& object, const wchar_t* name) {
    auto* place = const_cast<wchar_t*>(name);
    DISPID member = 0;
    const HRESULT result = object.GetIDsOfNames(IID_NULL, &place, 1, LOCALE_USER_DEFAULT, &member);
    if (result == DISP_E_UNKNOWNNAME)
        RaiseError(error_number::kNoSuchMember);
    RaiseIfServiceFailed(result);
    return member;
}

Variant Invoke(IDispatch& object, const wchar_t* name, WORD kind, DISPPARAMS arguments) {
    ForgetFailureWords();
    const DISPID member = MemberOf(object, name);
    VARIANT answer{};
    const OwnedContent owned{&answer};
    EXCEPINFO exception{};
    const HRESULT result =
        object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, &answer, &exception, nullptr);
    if (result == DISP_E_EXCEPTION)
        RaiseException(exception);
    RaiseIfServiceFailed(result);
    return ValueOf(answer);
}

void PutText(VARIANT& place, const String& text) {
    static BoundEntry<decltype(::SysAllocStringLen)> entry{OleAut32(), "SysAllocStringLen"};
    place.bstrVal = entry.Get()(Wide(text), static_cast<UINT>(text.size()));
    if (!place.bstrVal)
        RaiseError(error_number::kOutOfMemory);
    place.vt = VT_BSTR;
}

/// `texts` with the last one first, as the call wants them.
template <std::size_t count>
Variant InvokeMethod(IDispatch& object, const wchar_t* name, const std::array<const String*, count>& texts) {
    std::array<VARIANT, count> arguments{};
    std::array<OwnedContent, count> owners;
    for (std::size_t i = 0; i < count; ++i) {
        owners[i].Reset(&arguments[i]);
        PutText(arguments[i], *texts[i]);
    }
    return Invoke(object, name, DISPATCH_METHOD, {arguments.data(), nullptr, count, 0});
}

} // namespace

Variant ReadProperty(IDispatch& object, const wchar_t* name) {
    return Invoke(object, name, DISPATCH_PROPERTYGET, {});
}

Variant CallMethod(IDispatch& object, const wchar_t* name, const String& text) {
    return InvokeMethod<1>(object, name, {&text});
}

Variant CallMethod(IDispatch& object, const wchar_t* name, const String& first, const String& second) {
    return InvokeMethod<2>(object, name, {&second, &first});
}

} // namespace kestrelmoor::platform
