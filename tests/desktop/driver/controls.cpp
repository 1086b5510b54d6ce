#include "commands.h"

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

constexpr UINT kPatienceMs = 5000;

/// The messages of the two kinds of list that mean the same.
struct ListMessages {
    UINT count, selected, text_length, text, data, current, top;
};
constexpr ListMessages kList = {LB_GETCOUNT,    LB_GETSEL,    LB_GETTEXTLEN, LB_GETTEXT,
                                LB_GETITEMDATA, LB_GETCURSEL, LB_GETTOPINDEX};
constexpr ListMessages kDropDown = {
    CB_GETCOUNT, 0, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETITEMDATA, CB_GETCURSEL, CB_GETTOPINDEX};

const ListMessages& MessagesOf(HWND list) {
    const std::wstring name = ClassOf(list);
    if (lstrcmpiW(name.c_str(), L"ListBox") == 0 || lstrcmpiW(name.c_str(), L"ComboLBox") == 0)
        return kList;
    if (lstrcmpiW(name.c_str(), L"ComboBox") == 0)
        return kDropDown;
    throw std::runtime_error("the window is no list");
}

std::wstring RowText(HWND list, const ListMessages& messages, WPARAM row) {
    const LRESULT length = Ask(list, messages.text_length, row, 0);
    if (length < 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    Ask(list, messages.text, row, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool IsSelected(HWND list, const ListMessages& messages, WPARAM row) {
    if (messages.selected != 0)
        return Ask(list, messages.selected, row, 0) > 0;
    return Ask(list, messages.current, 0, 0) == static_cast<LRESULT>(row);
}

} // namespace

HWND WindowArgument(const Arguments& arguments, std::size_t index) {
    HWND window = reinterpret_cast<HWND>(arguments.Number(index));
    if (!IsWindow(window))
        throw std::runtime_error("there is no such window (any more)");
    return window;
}

LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kPatienceMs, &result))
        throw std::runtime_error("the window does not answer");
    return static_cast<LRESULT>(result);
}

std::wstring TextOf(HWND window) {
    const LRESULT length = Ask(window, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = L"";
    return std::wstring(name, static_cast<std::size_t>(GetClassNameW(window, name, 256)));
}

long long Number(const void* handle) {
    return static_cast<long long>(reinterpret_cast<ULONG_PTR>(handle));
}

void FailWithLastError(const std::string& what) {
    throw std::runtime_error(what + " failed with code " + std::to_string(GetLastError()));
}

Answer ReadText(const Arguments& arguments) {
    return {Record().Add(TextOf(WindowArgument(arguments, 0)))};
}

Answer SendTo(const Arguments& arguments) {
    const LRESULT result = Ask(WindowArgument(arguments, 0), arguments.Number(1), arguments.Number(2),
                               static_cast<LPARAM>(arguments.Number(3)));
    return {Record().Add(result)};
}

Answer PostTo(const Arguments& arguments) {
    if (!PostMessageW(WindowArgument(arguments, 0), arguments.Number(1), arguments.Number(2),
                      static_cast<LPARAM>(arguments.Number(3))))
        FailWithLastError("PostMessage");
    return {};
}

Answer SendTextTo(const Arguments& arguments) {
    const std::wstring text = arguments.Text(3);
    return {Record().Add(Ask(WindowArgument(arguments, 0), arguments.Number(1), arguments.Number(2),
                             reinterpret_cast<LPARAM>(text.c_str())))};
}

Answer ListItems(const Arguments& arguments) {
    HWND list = WindowArgument(arguments, 0);
    const ListMessages& messages = MessagesOf(list);
    const LRESULT count = Ask(list, messages.count, 0, 0);
    Answer answer;
    for (LRESULT row = 0; row < count; ++row) {
        const WPARAM index = static_cast<WPARAM>(row);
        answer.push_back(Record()
                             .Add(RowText(list, messages, index))
                             .Add(IsSelected(list, messages, index))
                             .Add(Ask(list, messages.data, index, 0)));
    }
    return answer;
}

Answer ListState(const Arguments& arguments) {
    HWND list = WindowArgument(arguments, 0);
    const ListMessages& messages = MessagesOf(list);
    return {Record().Add(Ask(list, messages.current, 0, 0)).Add(Ask(list, messages.top, 0, 0))};
}

} // namespace kestrelmoor::driver
