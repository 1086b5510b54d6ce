#include "tests/form_model_shared/entry_form.h"
#include "tests/windows/form_windows/pixels_shown.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

namespace {

constexpr Colour kTint = 0xBFFFFF;

class FormMarks : public Shown<EntryForm> {
  protected:
    void SetUp() override {
        Shown<EntryForm>::SetUp();
        list.SetBackColor(kTint);
        list.AddItem(u"alpha");
        list.AddItem(u"beta");
        list.SetSelected(1, true);
        Seen();
    }

    RECT Row(int row) const {
        RECT place{};
        Send(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
        return place;
    }
    int RowHeight() const { return static_cast<int>(Row(0).bottom - Row(0).top); }

    /// The pixels of a row from column `from` up to column `to`.
    std::vector<COLORREF> Pixels(int row, int from, int to) {
        hand->Settle();
        const RECT place = Row(row);
        const PixelsShown shown(WindowOf(list));
        std::vector<COLORREF> pixels;
        for (LONG y = place.top; y < place.bottom; ++y)
            for (int x = from; x < to; ++x)
                pixels.push_back(shown.At(x, static_cast<int>(y)));
        return pixels;
    }
    std::vector<COLORREF> Mark(int row) { return Pixels(row, 0, Column()); }
    static int Column() { return AtResolution(15, 19, 23, 30); }

    ListBox& list = form->lstNames;
};

TEST_F(FormMarks, StandInAListOfTheSystemThatKeepsTheTexts) {
    const auto style = static_cast<DWORD>(::GetWindowLongW(WindowOf(list), GWL_STYLE));
    EXPECT_EQ(style & (LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_SORT),
              DWORD{LBS_OWNERDRAWFIXED | LBS_HASSTRINGS});
    wchar_t text[16]{};
    Send(list, LB_GETTEXT, 1, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"beta");
}

TEST_F(FormMarks, HaveRowsAsHighAsTheirSquare) {
    EXPECT_EQ(RowHeight(), AtResolution(15, 19, 23, 30));
}

TEST_F(FormMarks, AreBoxesOfThirteenPixelsAtAnyScale) {
    const RECT place = Row(0);
    const PixelsShown shown(WindowOf(list));
    const int middle = static_cast<int>(place.top) + RowHeight() / 2;
    int first = Column();
    int last = -1;
    for (int x = 0; x < Column(); ++x)
        if (shown.At(x, middle) != kTint) {
            first = std::min(first, x);
            last = x;
        }
    EXPECT_EQ(last - first + 1, AtResolution(13, 16, 20, 26));
    EXPECT_GE(first, 1);
}

TEST_F(FormMarks, LookDifferentWhenTheyAreSet) {
    const std::vector<COLORREF> off = Mark(0);
    const std::vector<COLORREF> on = Mark(1);
    EXPECT_NE(off, on);
    list.SetSelected(0, true);
    EXPECT_EQ(Mark(0), on);
    list.SetSelected(0, false);
    EXPECT_EQ(Mark(0), off);
}

// The style of the tests' desktop has no pale picture at 120 dots per inch.
TEST_F(FormMarks, ArePaleInADisabledListLikeItsTexts) {
    const std::vector<COLORREF> off = Mark(0);
    const std::vector<COLORREF> on = Mark(1);
    list.SetEnabled(false);
    const bool has_pale_picture = AtResolution(1, 0, 1, 1) != 0;
    EXPECT_EQ(Mark(0) != off || Mark(1) != on, has_pale_picture);
    const std::vector<COLORREF> text = Pixels(1, Column(), static_cast<int>(Row(1).right));
    EXPECT_NE(std::find(text.begin(), text.end(), ::GetSysColor(COLOR_GRAYTEXT)), text.end());
    list.SetEnabled(true);
    EXPECT_EQ(Mark(0), off);
    EXPECT_EQ(Mark(1), on);
}

TEST_F(FormMarks, StayOutOfTheColourOfTheChoice) {
    list.SetListIndex(0);
    hand->Settle();
    const PixelsShown shown(WindowOf(list));
    EXPECT_EQ(shown.At(0, 1), kTint);
    EXPECT_EQ(shown.At(static_cast<int>(Row(0).right) - 2, 1), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(shown.At(static_cast<int>(Row(1).right) - 2, static_cast<int>(Row(1).top) + 1), kTint);
}

TEST_F(FormMarks, LeaveTheTextToBeginBehindTheirSquare) {
    const RECT place = Row(0);
    const int ink = PixelsShown(WindowOf(list))
                        .FirstInk(Column(), static_cast<int>(place.top), static_cast<int>(place.bottom));
    EXPECT_GE(ink, Column());
    EXPECT_LE(ink, Column() + AtResolution(3, 4, 5, 6));
}

TEST_F(FormMarks, AreTurnedByEachPressOfADoubleClick) {
    StartFrom(list);
    const LONG middle = RowHeight() / 2;
    const LPARAM place = MAKELPARAM(middle, middle);
    for (const UINT press : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONDBLCLK}}) {
        Send(list, press, MK_LBUTTON, place);
        Send(list, WM_LBUTTONUP, 0, place);
    }
    EXPECT_EQ(Seen(), (Events{"lstNames Click 0", "lstNames ItemCheck 0 on", "lstNames ItemCheck 0 off"}));
}

TEST_F(FormMarks, AreLetBeWhenTheButtonIsLetGoElsewhere) {
    StartFrom(list);
    const LONG middle = RowHeight() / 2;
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(middle, middle));
    Send(list, WM_LBUTTONUP, 0, MAKELPARAM(Column() + 20, middle));
    EXPECT_EQ(Seen(), (Events{"lstNames Click 0"}));
}

// The press takes the focus from a box whose row then goes, as that of an entry over the list does.
TEST_F(FormMarks, AreTurnedWhereTheyWerePressedThoughARowAboveHasGone) {
    list.AddItem(u"aardvark");
    StartFrom(form->txtDays);
    form->txtDays.LostFocus = [this] { list.RemoveItem(0); };
    hand->ToggleRow(list, 1);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_TRUE(list.Selected(1));
}

TEST_F(FormMarks, AreTurnedWhereTheyWerePressedThoughARowAboveHasComeAndIsChosen) {
    StartFrom(form->txtDays);
    form->txtDays.LostFocus = [this] {
        list.AddItem(u"aardvark");
        list.SetListIndex(0);
    };
    hand->ToggleRow(list, 1);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_FALSE(list.Selected(2));
    EXPECT_FALSE(list.Selected(0));
}

TEST_F(FormMarks, AreTurnedWhereTheyWerePressedThoughTheMouseTrembles) {
    list.AddItem(u"aardvark");
    StartFrom(form->txtDays);
    form->txtDays.LostFocus = [this] { list.RemoveItem(0); };
    const LONG half = RowHeight() / 2;
    const LPARAM place = MAKELPARAM(half, Row(1).top + half);
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
    hand->Settle();
    Send(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(half + 1, Row(1).top + half));
    EXPECT_EQ(Send(list, LB_GETCURSEL), 0);
    Send(list, WM_LBUTTONUP, 0, place);
    hand->Settle();
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_TRUE(list.Selected(0));
}

TEST_F(FormMarks, ForgetAPressThatEndedElsewhere) {
    StartFrom(list);
    const LONG half = RowHeight() / 2;
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(half, half));
    hand->Settle();
    ::ReleaseCapture();
    Send(list, WM_MOUSEMOVE, 0, MAKELPARAM(half, half));
    list.SetListIndex(1);
    list.AddItem(u"aardvark");
    Send(list, WM_MOUSEMOVE, 0, MAKELPARAM(half, half));
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(FormMarks, AreLetBeWhenThePressedRowItselfHasGone) {
    StartFrom(form->txtDays);
    form->txtDays.LostFocus = [this] { list.RemoveItem(0); };
    hand->ToggleRow(list, 0);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_EQ(list.ListCount(), 1);
}

WNDPROC own_procedure = nullptr;
LRESULT cue_state = 0;

// Stands in for a system that keeps the state of the cues.
LRESULT CALLBACK AnsweringState(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    return message == WM_QUERYUISTATE ? cue_state
                                      : ::CallWindowProcW(own_procedure, window, message, wide, parameter);
}

TEST_F(FormMarks, ShowTheFocusOnlyWhileCuesAreShown) {
    own_procedure = reinterpret_cast<WNDPROC>(
        ::SetWindowLongW(WindowOf(list), GWL_WNDPROC, reinterpret_cast<LONG>(&AnsweringState)));
    list.SetListIndex(0);
    StartFrom(list);
    const int right = static_cast<int>(Row(0).right);
    cue_state = 0;
    Send(list, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS));
    const std::vector<COLORREF> with_focus = Pixels(0, Column(), right);
    cue_state = UISF_HIDEFOCUS;
    Send(list, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS));
    const std::vector<COLORREF> without = Pixels(0, Column(), right);
    EXPECT_NE(with_focus, without);
    form->txtDays.SetFocus();
    EXPECT_EQ(Pixels(0, Column(), right), without);
    ::SetWindowLongW(WindowOf(list), GWL_WNDPROC, reinterpret_cast<LONG>(own_procedure));
}

TEST_F(FormMarks, StayWithTheirRowsAsOthersComeAndGo) {
    const std::vector<COLORREF> on = Mark(1);
    list.AddItem(u"aardvark");
    EXPECT_EQ(Mark(2), on);
    list.RemoveItem(0);
    list.RemoveItem(0);
    EXPECT_EQ(Mark(0), on);
}

} // namespace

} // namespace kestrelmoor::tests
