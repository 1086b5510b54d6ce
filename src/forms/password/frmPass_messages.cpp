#include "forms/password/frmPass.h"

#include "platform/visual_style.h"
#include "platform/window_messages.h"
#include "runtime/errors.h"
#include "runtime/forms/application.h"
#include "shell/program_state.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

namespace {

/// The plain procedure handed to the system.
std::intptr_t RedirectWndProc(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                              std::intptr_t lParam) {
    std::intptr_t result = 0;
    if (gRedirectTarget != nullptr)
        gRedirectTarget->WndProc(hWnd, uMsg, wParam, lParam, result);
    return result;
}

/// This window is the one that listens, and it speaks for all forms.
void UpdateAllForms() {
    const auto forms = Application::Current().Forms();
    for (const auto& form : forms) {
        try {
            if (auto* themed = dynamic_cast<IThemed*>(form.get()))
                themed->UpdateUI();
        } catch (const RuntimeError&) {
            // The next form is recoloured all the same.
        }
    }
}

void SysColorsChanged() {
    // A program that has been unthemed stays so.
    if (gThemeApiPresent && !gThemed && platform::IsAppThemed())
        platform::SetThemeAppProperties(0);
    UpdateAllForms();
}

} // namespace

void frmPass::SubclassWindow() {
    gRedirectTarget = this;
    mPrevWndProc = platform::SetWindowProcedure(Window(), RedirectWndProc);
}

void frmPass::UnsubclassWindow() {
    if (mPrevWndProc != 0)
        platform::RestoreWindowProcedure(Window(), mPrevWndProc);
    mPrevWndProc = 0;
    gRedirectTarget = nullptr;
}

void frmPass::WndProc(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam, std::intptr_t lParam,
                      std::intptr_t& result) {
    if (hWnd != Window())
        return;
    // The answer is the window's own, also where handling the message ends the subclassing.
    const platform::PreviousProcedure previous = mPrevWndProc;
    switch (uMsg) {
    case platform::window_message::kSysColorChange:
        SysColorsChanged();
        break;
    case platform::window_message::kSettingChange:
        RefreshWindowIcons(hWnd);
        break;
    case platform::window_message::kThemeChanged:
        UpdateThemeState();
        break;
    default:
        break;
    }
    result = platform::CallWindowProcW(previous, hWnd, uMsg, wParam, lParam);
}

void frmPass::UpdateUI() {
    ApplyThemedColors(*this);
    RefreshWindowIcons(Window());
    RefreshMasks();
}

} // namespace kestrelmoor
