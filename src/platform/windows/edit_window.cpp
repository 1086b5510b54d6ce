#include "platform/windows/edit_window.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/wide_text.h"

#include <imm.h>

#include <utility>

namespace kestrelmoor::platform {

namespace {

/// Lifts the limit to the most that an edit window takes.
constexpr WPARAM kNoLimit = 0;

// A box with a scroll bar draws the bar anew at each change of its text, which takes many times as long as
// the change. Of many texts that come fast the first ones are shown one by one, the others a few at a time.
constexpr std::uint32_t kShowingsAtOnce = 100;
constexpr UINT kPause = 100;
constexpr UINT_PTR kHeldTextTimer = 1000;

DWORD EditStyle(const TextBox& box) {
    const DWORD lines = box.MultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL : ES_AUTOHSCROLL;
    const DWORD mask = box.PasswordChar().empty() || box.MultiLine() ? 0 : ES_PASSWORD;
    const DWORD bar = box.ScrollBars() == ScrollBars::Vertical ? WS_VSCROLL : 0;
    const DWORD locked = box.Locked() ? ES_READONLY : 0;
    return WS_TABSTOP | lines | mask | bar | locked;
}

DWORD BorderOf(const TextBox& box) {
    return box.BorderStyle() == 0 ? 0 : WS_EX_CLIENTEDGE;
}

/// Messages that neither read nor change the text, nor come from the user.
bool IsOfDrawing(UINT message) {
    return message == WM_PAINT || message == WM_NCPAINT || message == WM_ERASEBKGND || message == WM_TIMER;
}

} // namespace

EditWindow::EditWindow(FormWindow& form, TextBox& box)
    : ControlWindow(form, box, {L"EDIT", EditStyle(box), BorderOf(box)}), mShowings(kShowingsAtOnce, kPause) {
    const Quiet quiet(*this);
    Send(EM_LIMITTEXT, kNoLimit);
    ShowMargins();
    ShowMask();
    ShowText();
    ShowSelection();
    if (box.ImeOff())
        TurnInputMethodOff();
}

void EditWindow::Show(Property what) {
    const Quiet quiet(*this);
    switch (what) {
    case Property::Text:
        return ShowText();
    case Property::Selection:
        return ShowSelection();
    case Property::PasswordChar:
        return ShowMask();
    case Property::BorderStyle:
        return ShowBorder();
    default:
        return ControlWindow::Show(what);
    }
}

void EditWindow::ShowText() {
    TakeHeldText();
    ::SetWindowTextW(Handle(), Wide(Box().Text()));
}

void EditWindow::ShowSelection() const {
    if (mHeldText && CaretStandsAtEnd())
        return; // the text brings the caret along
    const int start = Box().SelStart();
    Send(EM_SETSEL, static_cast<WPARAM>(start), start + Box().SelLength());
    Send(EM_SCROLLCARET);
}

void EditWindow::ShowMask() const {
    Send(EM_SETPASSWORDCHAR, Box().PasswordChar().empty() ? 0 : Box().PasswordChar().front());
    Repaint();
}

void EditWindow::ShowBorder() const {
    const auto others =
        static_cast<DWORD>(::GetWindowLongW(Handle(), GWL_EXSTYLE)) & ~DWORD{WS_EX_CLIENTEDGE};
    ::SetWindowLongW(Handle(), GWL_EXSTYLE, static_cast<LONG>(others | BorderOf(Box())));
    ::SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    ShowMargins();
}

// A box without a border lies over other text, and its own is to stand in line with that.
void EditWindow::ShowMargins() const {
    const WORD margin = Box().BorderStyle() == 0 ? 0 : EC_USEFONTINFO;
    Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(margin, margin));
}

void EditWindow::ShowFont() {
    ControlWindow::ShowFont();
    ShowMargins();
}

// Not every system has input methods.
void EditWindow::TurnInputMethodOff() const {
    static BoundLibrary imm32{L"imm32.dll"};
    static BoundEntry<decltype(::ImmAssociateContext)> associate{imm32, "ImmAssociateContext"};
    if (auto* const ImmAssociateContext = associate.Find())
        ImmAssociateContext(Handle(), nullptr);
}

// While the model shows its own selection the window's is not asked for. Text that is held has the caret
// behind it: whatever the user does brings it in.
bool EditWindow::ReadSelection(int& start, int& length) {
    if (IsQuiet() || mHeldText)
        return false;
    DWORD from = 0;
    DWORD to = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    start = static_cast<int>(from);
    length = static_cast<int>(to - from);
    return true;
}

void EditWindow::ReplaceSelection(StringView text) {
    const Quiet quiet(*this);
    if (!mHeldText)
        mHeldText.emplace();
    *mHeldText += text;
    if (Box().MultiLine() && CaretStandsAtEnd() && !mShowings.Take(::GetTickCount()))
        ::SetTimer(Handle(), kHeldTextTimer, kPause, nullptr);
    else
        BringHeldTextIn();
}

bool EditWindow::CaretStandsAtEnd() const {
    return Box().SelLength() == 0 && Box().SelStart() == static_cast<int>(Box().Text().size());
}

String EditWindow::TakeHeldText() {
    ::KillTimer(Handle(), kHeldTextTimer);
    return std::exchange(mHeldText, std::nullopt).value_or(String());
}

void EditWindow::BringHeldTextIn() {
    if (!mHeldText)
        return;
    const Quiet quiet(*this);
    const String text = TakeHeldText();
    const DWORD start = ::GetTickCount();
    SendText(EM_REPLACESEL, FALSE, text);
    Send(EM_SCROLLCARET);
    mShowings.Passed(start, ::GetTickCount());
}

// Nobody ever sees or reads the window without the text that is held.
LRESULT EditWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (!IsOfDrawing(message) || (message == WM_TIMER && wide == kHeldTextTimer))
        BringHeldTextIn();
    return ControlWindow::Process(message, wide, parameter);
}

String EditWindow::WindowText() const {
    String text(static_cast<std::size_t>(::GetWindowTextLengthW(Handle())), u'\0');
    const int length = ::GetWindowTextW(Handle(), WideBuffer(text), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void EditWindow::Notified(int) {
    Box().Edited(WindowText());
}

// The question for a static control comes from a box that can't be typed in. A disabled one keeps the
// system's grey; a locked one is there to be read.
HBRUSH EditWindow::Colours(HDC context, UINT question) const {
    const bool greyed = question == WM_CTLCOLORSTATIC && !::IsWindowEnabled(Handle());
    return greyed ? nullptr : ControlWindow::Colours(context, question);
}

} // namespace kestrelmoor::platform
