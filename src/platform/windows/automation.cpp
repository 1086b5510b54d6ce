#include "platform/automation.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/last_error_kept.h"
#include "runtime/errors.h"
#include "runtime/owned.h"

#include <algorithm>
#include <utility>

#include <windows.h>

#include <oleauto.h>

namespace kestrelmoor::platform {
namespace {

struct TextTraits {
    using Value = BSTR;
    static constexpr Value kNone = nullptr;
    static void Release(Value text) noexcept {
        static BoundEntry<decltype(::SysFreeString)> entry{OleAut32(), "SysFreeString"};
        const LastErrorKept kept;
        if (const auto free_text = entry.Find())
            free_text(text);
    }
};

struct ArrayTraits {
    using Value = SAFEARRAY*;
    static constexpr Value kNone = nullptr;
    static void Release(Value array) noexcept {
        static BoundEntry<decltype(::SafeArrayDestroy)> entry{OleAut32(), "SafeArrayDestroy"};
        const LastErrorKept kept;
        if (const auto destroy = entry.Find())
            destroy(array);
    }
};

/// The oldest system's arrays don't tell the type of their elements, only its size.
bool HoldsNumbers(SAFEARRAY* array) {
    static BoundEntry<decltype(::SafeArrayGetDim)> dimensions{OleAut32(), "SafeArrayGetDim"};
    static BoundEntry<decltype(::SafeArrayGetElemsize)> size{OleAut32(), "SafeArrayGetElemsize"};
    static BoundEntry<decltype(::SafeArrayGetVartype)> type{OleAut32(), "SafeArrayGetVartype"};
    if (dimensions.Get()(array) != 1 || size.Get()(array) != sizeof(std::int16_t))
        return false;
    VARTYPE kind = VT_I2;
    const auto get_type = type.Find();
    return !get_type || FAILED(get_type(array, &kind)) || kind == VT_I2;
}

struct Bounds {
    LONG first = 0;
    LONG last = -1;
};

Bounds BoundsOf(SAFEARRAY* array) {
    static BoundEntry<decltype(::SafeArrayGetLBound)> lower{OleAut32(), "SafeArrayGetLBound"};
    static BoundEntry<decltype(::SafeArrayGetUBound)> upper{OleAut32(), "SafeArrayGetUBound"};
    Bounds bounds;
    RaiseIfFailed(lower.Get()(array, 1, &bounds.first));
    RaiseIfFailed(upper.Get()(array, 1, &bounds.last));
    return bounds;
}

} // namespace

String TakeText(char16_t* text) {
    static BoundEntry<decltype(::SysStringLen)> length{OleAut32(), "SysStringLen"};
    if (!text)
        return {};
    const Owned<TextTraits> owned{reinterpret_cast<BSTR>(text)};
    return String(text, length.Get()(owned.Get()));
}

Array<std::int16_t> TakeNumbers(void* array) {
    static BoundEntry<decltype(::SafeArrayAccessData)> access{OleAut32(), "SafeArrayAccessData"};
    static BoundEntry<decltype(::SafeArrayUnaccessData)> leave{OleAut32(), "SafeArrayUnaccessData"};
    const Owned<ArrayTraits> owned{static_cast<SAFEARRAY*>(array)};
    if (!owned || !HoldsNumbers(owned.Get()))
        return {};
    const Bounds bounds = BoundsOf(owned.Get());
    std::vector<std::int16_t> numbers(static_cast<std::size_t>(bounds.last - bounds.first + 1));
    const auto unlock = leave.Get();
    void* data = nullptr;
    RaiseIfFailed(access.Get()(owned.Get(), &data));
    const auto* const first = static_cast<const std::int16_t*>(data);
    std::copy(first, first + numbers.size(), numbers.begin());
    unlock(owned.Get());
    return {bounds.first, std::move(numbers)};
}

} // namespace kestrelmoor::platform
