#include "platform/text_measure.h"
#include "platform/window_messages.h"
#include "tests/form_model_shared/entry_form.h"
#include "tests/windows/form_windows/pixels_shown.h"

namespace kestrelmoor::tests {

namespace {

using namespace platform;

class FormParts : public Shown<EntryForm> {
  protected:
    Entry& entry = form->ucEntry;
};

TEST_F(FormParts, StandInTheWindowOfTheirUserControl) {
    EXPECT_EQ(::GetParent(WindowOf(entry)), WindowOf(form->fraNames));
    EXPECT_EQ(::GetParent(WindowOf(entry.txtEntry)), WindowOf(entry));
    EXPECT_EQ(::GetParent(WindowOf(entry.cmdPick)), WindowOf(entry));
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(entry)), 103);
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(entry.txtEntry)), 100);
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(entry.cmdPick)), 101);
}

TEST_F(FormParts, StandInTabOrderToScreenReaders) {
    EXPECT_EQ(::GetWindow(WindowOf(entry.txtEntry), GW_HWNDNEXT), WindowOf(entry.cmdPick));
    EXPECT_NE(::GetWindowLongW(WindowOf(entry), GWL_EXSTYLE) & WS_EX_CONTROLPARENT, 0);
}

// Laid over the list, three pixels in from the edges at 96 dots per inch.
TEST_F(FormParts, LieOnTopOfTheListThatTheyAreLaidOver) {
    entry.Move(285, 285, 2925, 225);
    hand->Settle();
    POINT point{4, 4};
    ::ClientToScreen(WindowOf(entry.txtEntry), &point);
    EXPECT_EQ(::WindowFromPoint(point), WindowOf(entry.txtEntry));
}

TEST_F(FormParts, MoveWithTheirUserControl) {
    const RECT before = PlaceOnForm(entry.cmdPick);
    entry.SetTop(entry.Top() + 150);
    const RECT after = PlaceOnForm(entry.cmdPick);
    EXPECT_EQ(after.top - before.top, AtResolution(10, 13, 15, 20));
    EXPECT_EQ(after.left, before.left);
    EXPECT_EQ(after.bottom - after.top, AtResolution(20, 25, 30, 40));
}

TEST_F(FormParts, AreHiddenAndDisabledWithTheirUserControl) {
    entry.SetVisible(false);
    EXPECT_FALSE(::IsWindowVisible(WindowOf(entry.txtEntry)));
    entry.SetVisible(true);
    EXPECT_TRUE(::IsWindowVisible(WindowOf(entry.txtEntry)));
    entry.SetEnabled(false);
    EXPECT_FALSE(::IsWindowEnabled(WindowOf(entry)));
}

TEST_F(FormParts, LeaveTheSurfaceInItsOwnColour) {
    entry.SetBackColor(0xBFFFFF);
    entry.cmdPick.SetVisible(false);
    hand->Settle();
    EXPECT_EQ(PixelsShown(WindowOf(entry)).InCorner(), 0xBFFFFFU);
}

TEST_F(FormParts, AreTextBoxesInTheirOwnColour) {
    entry.txtEntry.SetBackColor(0xC0FFC0);
    hand->Settle();
    EXPECT_EQ(PixelsShown(WindowOf(entry.txtEntry)).InCorner(), 0xC0FFC0U);
}

TEST_F(FormParts, GiveTheFocusToTheFirstOfThemForAPressBesideThem) {
    entry.cmdPick.SetVisible(false);
    Seen();
    const int x = AtResolution(180, 225, 270, 360);
    Send(entry, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 4));
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to ucEntry", "ucEntry GotFocus", "txtEntry GotFocus"}));
    EXPECT_EQ(::GetFocus(), WindowOf(entry.txtEntry));
}

// A list at 240 twips in its frame, with an edge of its own.
TEST_F(FormParts, AreLaidOverARowInTheFramesClientArea) {
    form->lstNames.AddItem(u"alpha");
    form->lstNames.AddItem(u"beta");
    const WindowHandle list = form->lstNames.Peer()->Window();
    const PixelRectangle row =
        MapWindowPoints(list, form->fraNames.Peer()->Window(), *GetListItemRectangle(list, 1));
    EXPECT_EQ(row.left, AtResolution(16, 20, 24, 32) + ::GetSystemMetrics(SM_CXEDGE));
    EXPECT_EQ(row.top,
              AtResolution(16, 20, 24, 32) + ::GetSystemMetrics(SM_CYEDGE) + AtResolution(15, 19, 23, 30));
    EXPECT_EQ(row.bottom - row.top, AtResolution(15, 19, 23, 30));
}

class FormMeasures : public ShownForm {};

TEST_F(FormMeasures, OfTextsAreThoseOfTheFontInTwips) {
    class Font font;
    EXPECT_FLOAT_EQ(TextWidth(font, u""), 0);
    const Twips one = TextWidth(font, u"Warn me");
    EXPECT_FLOAT_EQ(TextWidth(font, u"Warn meWarn me"), 2 * one);
    EXPECT_GT(TextWidth(font, u"&Warn me"), one);
    font.SetSize(16.5F);
    EXPECT_NEAR(TextWidth(font, u"Warn me"), 2 * one, one / 4);
}

TEST_F(FormMeasures, OfACaptionFitTheWindowThatShowsIt) {
    const HDC context = ::GetDC(WindowOf(form->chkMark));
    const auto font = reinterpret_cast<HFONT>(Send(form->chkMark, WM_GETFONT));
    const HGDIOBJ before = ::SelectObject(context, font);
    RECT drawn{};
    ::DrawTextW(context, L"Warn me", -1, &drawn, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    ::SelectObject(context, before);
    ::ReleaseDC(WindowOf(form->chkMark), context);
    const Twips pixel = Application::Current().CurrentDesktop()->TwipsPerPixelX();
    EXPECT_FLOAT_EQ(TextWidth(form->chkMark.Font(), u"Warn me"), static_cast<Twips>(drawn.right) * pixel);
}

class FormDialogs : public ShownForm {
  protected:
    RECT Place(const Form& shown) const {
        RECT place{};
        ::GetWindowRect(WindowOf(shown), &place);
        return place;
    }
    std::shared_ptr<EntryForm> dialog = Application::Current().Make<EntryForm>();
};

TEST_F(FormDialogs, HoldTheirOwnerOffAndStandInItsMiddleOutsideTheTaskBar) {
    ::SetWindowPos(WindowOf(*form), nullptr, 200, 120, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    hand->Later([this] {
        EXPECT_FALSE(::IsWindowEnabled(WindowOf(*form)));
        EXPECT_EQ(::GetWindow(WindowOf(*dialog), GW_OWNER), WindowOf(*form));
        EXPECT_EQ(::GetWindowLongW(WindowOf(*dialog), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
        const RECT own = Place(*dialog);
        const RECT around = Place(*form);
        EXPECT_NEAR(own.left - around.left, around.right - own.right, 1);
        EXPECT_NEAR(own.top - around.top, around.bottom - own.bottom, 1);
        hand->CloseWindow(*dialog);
    });
    dialog->Show(true, form.get());
    EXPECT_TRUE(dialog->IsUnloaded());
    EXPECT_TRUE(::IsWindowEnabled(WindowOf(*form)));
    EXPECT_EQ(::GetForegroundWindow(), WindowOf(*form));
}

} // namespace

} // namespace kestrelmoor::tests
