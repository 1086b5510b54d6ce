#include "platform/windows/form_registry.h"

#include "platform/windows/form_window.h"

#include <algorithm>
#include <vector>

namespace kestrelmoor::platform {

namespace {

std::vector<FormWindow*>& FormWindows() {
    static std::vector<FormWindow*> windows;
    return windows;
}

} // namespace

void AddFormWindow(FormWindow& window) {
    FormWindows().push_back(&window);
}

void RemoveFormWindow(FormWindow& window) {
    std::erase(FormWindows(), &window);
}

FormWindow* FormWindowOf(HWND window) {
    const auto& windows = FormWindows();
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [window](const FormWindow* form) { return form->Handle() == window; });
    return found == windows.end() ? nullptr : *found;
}

} // namespace kestrelmoor::platform
