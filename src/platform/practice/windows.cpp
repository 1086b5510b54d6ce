#include "platform/practice/windows.h"

#include "platform/practice/world/world.h"

#include <utility>

namespace kestrelmoor::practice {

Windows& Windows::Current() {
    static Windows windows;
    return windows;
}

WindowHandle Windows::Add(Window window) {
    mLast += 2;
    mWindows.emplace(mLast, std::move(window));
    return mLast;
}

WindowHandle Windows::Add(Form& form) {
    Window window;
    window.form = &form;
    return Add(std::move(window));
}

WindowHandle Windows::Add(Control& control) {
    Window window;
    window.control = &control;
    return Add(std::move(window));
}

WindowHandle Windows::AddBox() {
    return Add(Window());
}

// Its icons go without a call of the program's.
void Windows::Remove(WindowHandle window) {
    const auto found = mWindows.find(window);
    if (found == mWindows.end())
        return;
    for (auto& [size, icon] : found->second.icons)
        if (const auto own = icon.Detach(); own != platform::IconTraits::kNone)
            TheWorld().handles.Close(HandleKind::Icon, own);
    mWindows.erase(found);
}

const Windows::Window* Windows::Find(WindowHandle window) const {
    const auto found = mWindows.find(window);
    return found == mWindows.end() ? nullptr : &found->second;
}

Form* Windows::FindForm(WindowHandle window) const {
    const Window* const found = Find(window);
    return found ? found->form : nullptr;
}

Control* Windows::FindControl(WindowHandle window) const {
    const Window* const found = Find(window);
    return found ? found->control : nullptr;
}

platform::PreviousProcedure Windows::Procedure(WindowHandle window) const {
    const Window* const found = Find(window);
    return found ? found->procedure : 0;
}

void Windows::SetProcedure(WindowHandle window, platform::PreviousProcedure procedure) {
    if (const auto found = mWindows.find(window); found != mWindows.end())
        found->second.procedure = procedure;
}

platform::OwnedIcon Windows::ExchangeIcon(WindowHandle window, std::uint32_t size, platform::OwnedIcon icon) {
    const auto found = mWindows.find(window);
    return found == mWindows.end() ? std::move(icon)
                                   : std::exchange(found->second.icons[size], std::move(icon));
}

std::optional<IconImage> Windows::Icon(WindowHandle window, std::uint32_t size) const {
    const Window* const found = Find(window);
    if (!found || !found->icons.contains(size))
        return std::nullopt;
    const auto* const image =
        TheWorld().handles.Find<IconImage>(HandleKind::Icon, found->icons.at(size).Get());
    return image ? std::optional(*image) : std::nullopt;
}

std::intptr_t DeliverMessage(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                             std::intptr_t lParam) {
    const platform::PreviousProcedure procedure = Windows::Current().Procedure(hWnd);
    return procedure == 0 ? 0 : platform::CallWindowProcW(procedure, hWnd, uMsg, wParam, lParam);
}

} // namespace kestrelmoor::practice
