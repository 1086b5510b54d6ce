#include "window_services/item_rect.h"

#include "platform/window_messages.h"
#include "runtime/forms/application.h"

namespace kestrelmoor {

bool GetItemRect(const ListBox& list, const Form& form, int row, Twips& left, Twips& top, Twips& width,
                 Twips& height, WindowHandle hWndContainer) {
    const WindowHandle list_window = list.Peer() != nullptr ? list.Peer()->Window() : 0;
    const auto item = platform::GetListItemRectangle(list_window, row);
    if (!item)
        return false;
    const platform::PixelRectangle client = platform::GetClientRect(list_window);
    if (item->top < client.top || item->bottom > client.bottom)
        return false;
    const auto mapped =
        platform::MapWindowPoints(list_window, hWndContainer != 0 ? hWndContainer : form.Window(), *item);
    const Desktop& desktop = *Application::Current().CurrentDesktop();
    const Twips across = desktop.TwipsPerPixelX();
    const Twips down = desktop.TwipsPerPixelY();
    left = static_cast<Twips>(mapped.left) * across;
    top = static_cast<Twips>(mapped.top) * down;
    width = static_cast<Twips>(mapped.right - mapped.left) * across;
    height = static_cast<Twips>(mapped.bottom - mapped.top) * down;
    return true;
}

} // namespace kestrelmoor
