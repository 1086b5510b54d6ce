#include "platform/windows/picture_window.h"

#include "platform/windows/colours.h"

namespace kestrelmoor::platform {

PictureWindow::PictureWindow(FormWindow& form, PictureBox& box)
    : ControlWindow(form, box, {L"STATIC", SS_NOTIFY}) {}

LRESULT PictureWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_ERASEBKGND)
        return TRUE;
    if (message != WM_PAINT)
        return ControlWindow::Process(message, wide, parameter);
    const HWND window = Handle();
    PAINTSTRUCT request{};
    Paint(::BeginPaint(window, &request));
    ::EndPaint(window, &request);
    return 0;
}

// A handler that unloads the form takes this object away.
void PictureWindow::Paint(HDC context) {
    const HWND window = Handle();
    mContext = context;
    Clear();
    static_cast<PictureBox&>(Model()).PaintRequested();
    if (Of(window) == this)
        mContext = nullptr;
}

void PictureWindow::Clear() {
    if (!mContext)
        return;
    RECT client{};
    ::GetClientRect(Handle(), &client);
    ::FillRect(mContext, &client, BrushOf(Model().BackColor()));
}

} // namespace kestrelmoor::platform
