#include "platform/practice/system_windows.h"

#include "platform/child_windows.h"
#include "platform/practice/world/world.h"
#include "platform/window_messages.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor {

namespace practice {

SystemWindows& SystemWindows::Current() {
    static SystemWindows windows;
    return windows;
}

WindowHandle SystemWindows::Add(SystemWindow window) {
    mLast += 2;
    mWindows.emplace(mLast, std::move(window));
    return mLast;
}

void SystemWindows::Remove(WindowHandle window) {
    for (const WindowHandle child : Within(window))
        mWindows.erase(child);
    mWindows.erase(window);
}

SystemWindow* SystemWindows::Find(WindowHandle window) {
    const auto found = mWindows.find(window);
    return found == mWindows.end() ? nullptr : &found->second;
}

std::vector<WindowHandle> SystemWindows::Within(WindowHandle parent) const {
    std::vector<WindowHandle> within;
    for (const auto& [handle, window] : mWindows) {
        if (window.parent != parent)
            continue;
        within.push_back(handle);
        const std::vector<WindowHandle> deeper = Within(handle);
        within.insert(within.end(), deeper.begin(), deeper.end());
    }
    return within;
}

std::intptr_t SystemWindows::Answer(SystemWindow& window, std::uint32_t message, std::uintptr_t wide,
                                    std::intptr_t parameter) {
    using namespace platform::window_message;
    if (message == kGetTextLength)
        return static_cast<std::intptr_t>(window.text.size());
    if (message == kSetText) {
        window.text = reinterpret_cast<const char16_t*>(parameter);
        return 1;
    }
    if (message == kGetText) {
        if (wide == 0)
            return 0;
        const std::size_t length = std::min<std::size_t>(window.text.size(), wide - 1);
        auto* const place = reinterpret_cast<char16_t*>(parameter);
        std::copy_n(window.text.begin(), length, place);
        place[length] = u'\0';
        return static_cast<std::intptr_t>(length);
    }
    if (window.received)
        window.received(message, parameter);
    return 0;
}

} // namespace practice

namespace platform {

using practice::SystemWindow;
using practice::SystemWindows;
using practice::TheWorld;

void EnumChildWindows(WindowHandle hWndParent, ChildWindowCallback callback, std::intptr_t lParam) {
    if (TheWorld().calls.Enter("EnumChildWindows", {hWndParent}))
        return;
    for (const WindowHandle child : SystemWindows::Current().Within(hWndParent))
        if (callback(child, lParam) == 0)
            return;
}

std::int32_t GetClassNameW(WindowHandle hWnd, String& sBuffer) {
    const SystemWindow* const window = SystemWindows::Current().Find(hWnd);
    if (TheWorld().calls.Enter("GetClassNameW", {hWnd, sBuffer.size()}) || !window || sBuffer.empty())
        return 0;
    const std::size_t length = std::min(window->class_name.size(), sBuffer.size() - 1);
    sBuffer.replace(0, length, window->class_name, 0, length);
    sBuffer[length] = u'\0';
    return static_cast<std::int32_t>(length);
}

} // namespace platform

} // namespace kestrelmoor
