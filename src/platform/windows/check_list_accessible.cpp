#include "platform/windows/check_list_accessible.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/component_library.h"
#include "platform/windows/control_window.h"
#include "platform/windows/owned_interface.h"
#include "runtime/forms/controls.h"

#include <oleacc.h>

namespace kestrelmoor::platform {

namespace {

constexpr GUID kUnknown{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kAccessible{0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

using OwnedAccessible = OwnedInterface<IAccessible>;

BoundLibrary& OleAcc() {
    static BoundLibrary library{L"oleacc.dll"};
    return library;
}

/// The list behind a window; null: it is gone.
const ListBox* ListOf(HWND window) {
    const ControlWindow* const list = ControlWindow::Of(window);
    return list ? dynamic_cast<const ListBox*>(&list->Model()) : nullptr;
}

/// The row that a child stands for, children being counted from 1; -1: none.
int RowOf(const ListBox* list, const VARIANT& child) {
    const bool is_row = list && child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= list->ListCount();
    return is_row ? static_cast<int>(child.lVal) - 1 : -1;
}

bool IsInView(HWND window, int row) {
    RECT client{};
    RECT place{};
    RECT shared{};
    ::GetClientRect(window, &client);
    ::SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return ::IntersectRect(&shared, &client, &place) != FALSE;
}

LONG StateOf(HWND window, const ListBox& list, int row) {
    const bool is_current = row == list.ListIndex();
    const bool is_focused = is_current && ::GetFocus() == window;
    return (list.IsUsable() ? STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE : STATE_SYSTEM_UNAVAILABLE) |
           (list.Selected(row) ? STATE_SYSTEM_CHECKED : 0) | (is_current ? STATE_SYSTEM_SELECTED : 0) |
           (is_focused ? STATE_SYSTEM_FOCUSED : 0) |
           (IsInView(window, row) ? 0 : STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN);
}

HRESULT Answer(VARIANT* answer, LONG value) {
    answer->vt = VT_I4;
    answer->lVal = value;
    return S_OK;
}

/// The system's object for a list, but for what its rows are and in which state. Clients may hold it longer
/// than the window lives.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM's interfaces have none; Release ends the object
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the same
class CheckListAccessible final : public IAccessible {
  public:
    CheckListAccessible(HWND list, OwnedAccessible inner) : mList(list), mInner(std::move(inner)) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override {
        if (!::IsEqualGUID(id, kUnknown) && !::IsEqualGUID(id, kDispatch) && !::IsEqualGUID(id, kAccessible))
            return mInner.Get()->QueryInterface(id, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++mReferences; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --mReferences;
        if (left == 0)
            delete this;
        return left;
    }

    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) noexcept override {
        const ListBox* const list = ListOf(mList);
        const int row = RowOf(list, child);
        return row >= 0 ? Answer(state, StateOf(mList, *list, row))
                        : mInner.Get()->get_accState(child, state);
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) noexcept override {
        return RowOf(ListOf(mList), child) >= 0 ? Answer(role, ROLE_SYSTEM_CHECKBUTTON)
                                                : mInner.Get()->get_accRole(child, role);
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) noexcept override {
        const ListBox* const list = ListOf(mList);
        const int row = RowOf(list, child);
        if (row < 0)
            return mInner.Get()->accDoDefaultAction(child);
        return ::PostMessageW(mList, kPressMark, static_cast<WPARAM>(row), 0) ? S_OK : E_FAIL;
    }

    // What follows is the system's own answer.
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        return mInner.Get()->GetTypeInfoCount(count);
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override {
        return mInner.Get()->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override {
        return mInner.Get()->GetIDsOfNames(id, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) noexcept override {
        return mInner.Get()->Invoke(member, id, locale, flags, parameters, result, exception, wrong);
    }
    STDMETHODIMP get_accParent(IDispatch** parent) noexcept override {
        return mInner.Get()->get_accParent(parent);
    }
    STDMETHODIMP get_accChildCount(LONG* count) noexcept override {
        return mInner.Get()->get_accChildCount(count);
    }
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) noexcept override {
        return mInner.Get()->get_accChild(child, object);
    }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) noexcept override {
        return mInner.Get()->get_accName(child, name);
    }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) noexcept override {
        return mInner.Get()->get_accValue(child, value);
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) noexcept override {
        return mInner.Get()->get_accDescription(child, description);
    }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) noexcept override {
        return mInner.Get()->get_accHelp(child, help);
    }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) noexcept override {
        return mInner.Get()->get_accHelpTopic(file, child, topic);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) noexcept override {
        return mInner.Get()->get_accKeyboardShortcut(child, shortcut);
    }
    STDMETHODIMP get_accFocus(VARIANT* child) noexcept override { return mInner.Get()->get_accFocus(child); }
    STDMETHODIMP get_accSelection(VARIANT* children) noexcept override {
        return mInner.Get()->get_accSelection(children);
    }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) noexcept override {
        return mInner.Get()->get_accDefaultAction(child, action);
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) noexcept override {
        return mInner.Get()->accSelect(flags, child);
    }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                             VARIANT child) noexcept override {
        return mInner.Get()->accLocation(left, top, width, height, child);
    }
    STDMETHODIMP accNavigate(LONG direction, VARIANT from, VARIANT* to) noexcept override {
        return mInner.Get()->accNavigate(direction, from, to);
    }
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) noexcept override {
        return mInner.Get()->accHitTest(left, top, child);
    }
    STDMETHODIMP put_accName(VARIANT child, BSTR name) noexcept override {
        return mInner.Get()->put_accName(child, name);
    }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) noexcept override {
        return mInner.Get()->put_accValue(child, value);
    }

  private:
    HWND mList;
    OwnedAccessible mInner;
    ULONG mReferences = 1;
};
#pragma GCC diagnostic pop

OwnedAccessible SystemsObject(HWND list) {
    static BoundEntry<decltype(::CreateStdAccessibleObject)> create{OleAcc(), "CreateStdAccessibleObject"};
    void* object = nullptr;
    auto* const CreateStdAccessibleObject = create.Find();
    if (!CreateStdAccessibleObject ||
        FAILED(CreateStdAccessibleObject(list, OBJID_CLIENT, kAccessible, &object)))
        return {};
    return OwnedAccessible(static_cast<IAccessible*>(object));
}

} // namespace

LRESULT AccessibleAnswer(HWND list, WPARAM flags, LPARAM object) {
    static BoundEntry<decltype(::LresultFromObject)> convert{OleAcc(), "LresultFromObject"};
    auto* const LresultFromObject = convert.Find();
    if (static_cast<LONG>(object) != static_cast<LONG>(OBJID_CLIENT) || !LresultFromObject)
        return 0;
    NeedComponents(); // for handing an object to another process
    OwnedAccessible inner = SystemsObject(list);
    if (!inner)
        return 0;
    const OwnedAccessible accessible(new CheckListAccessible(list, std::move(inner)));
    const LRESULT answer = LresultFromObject(kAccessible, flags, accessible.Get());
    return answer > 0 ? answer : 0;
}

void TellMarkChanged(HWND list, int row) {
    static BoundEntry<decltype(::NotifyWinEvent)> notify{User32(), "NotifyWinEvent"};
    if (auto* const NotifyWinEvent = notify.Find())
        NotifyWinEvent(EVENT_OBJECT_STATECHANGE, list, OBJID_CLIENT, row + 1);
}

} // namespace kestrelmoor::platform
