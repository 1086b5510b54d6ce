#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

class FormEdits : public ShownForm {
  protected:
    String Shown(const Control& control) const {
        String text(static_cast<std::size_t>(::GetWindowTextLengthW(WindowOf(control))) + 1, u'\0');
        const int length = ::GetWindowTextW(WindowOf(control), reinterpret_cast<wchar_t*>(text.data()),
                                            static_cast<int>(text.size()));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    void Paste(TextBox& box, const String& text) {
        ASSERT_TRUE(::OpenClipboard(WindowOf(*form)));
        ::EmptyClipboard();
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
        std::copy_n(text.c_str(), text.size() + 1, static_cast<char16_t*>(::GlobalLock(memory)));
        ::GlobalUnlock(memory);
        ::SetClipboardData(CF_UNICODETEXT, memory);
        ::CloseClipboard();
        Send(box, WM_PASTE);
    }
};

TEST_F(FormEdits, TakeCharactersOutsideTheBasicPlaneByTypingAndByPaste) {
    hand->Type(u"\U0001F600");
    EXPECT_EQ(form->txtFirst.Text(), u"\U0001F600");
    Paste(form->txtSecond, u"a\U0001D11E\u05D0");
    EXPECT_EQ(form->txtSecond.Text(), u"a\U0001D11E\u05D0");
}

TEST_F(FormEdits, TakeMoreThanTheirClassAllowsAtFirst) {
    const String text(70000, u'x');
    Paste(form->txtFirst, text);
    EXPECT_EQ(form->txtFirst.Text(), text);
    hand->Type(u"y");
    EXPECT_EQ(form->txtFirst.Text().size(), 70001U);
}

TEST_F(FormEdits, ShowWhatTheProgramSetsWithoutAnEcho) {
    form->txtFirst.SetText(u"abc");
    form->txtFirst.SetSelStart(3);
    form->txtFirst.SetSelText(u"de");
    EXPECT_EQ(Shown(form->txtFirst), u"abcde");
    EXPECT_EQ(Seen(), (Events{"txtFirst Change 'abc'", "txtFirst Change 'abcde'"}));
    EXPECT_EQ(form->txtFirst.SelStart(), 5);
}

TEST_F(FormEdits, ShowTheMaskOfTheModel) {
    EXPECT_EQ(Send(form->txtFirst, EM_GETPASSWORDCHAR), 0);
    form->txtFirst.SetPasswordChar(u"\u25CF");
    EXPECT_EQ(Send(form->txtFirst, EM_GETPASSWORDCHAR), 0x25CF);
    form->txtFirst.SetPasswordChar(u"");
    EXPECT_EQ(Send(form->txtFirst, EM_GETPASSWORDCHAR), 0);
}

TEST_F(FormEdits, TellTheirWindowsSelection) {
    form->txtFirst.SetText(u"abcdef");
    Send(form->txtFirst, EM_SETSEL, 2, 5);
    EXPECT_EQ(form->txtFirst.SelStart(), 2);
    EXPECT_EQ(form->txtFirst.SelLength(), 3);
}

class FormLists : public ShownForm {
  protected:
    void AddRows(int count) {
        for (int row = 0; row < count; ++row) {
            const std::string digits = std::to_string(100000 + row);
            form->lstRows.AddItem(String(digits.begin(), digits.end()));
        }
        Seen();
    }
    LRESULT TopRow() const { return Send(form->lstRows, LB_GETTOPINDEX); }
};

TEST_F(FormLists, HaveTheRowsWhereTheModelHasThem) {
    for (const char16_t* const text : {u"coop", u" This", u"co-op", u"9"})
        form->lstRows.AddItem(text);
    ASSERT_EQ(Send(form->lstRows, LB_GETCOUNT), 4);
    for (int row = 0; row < 4; ++row) {
        wchar_t shown[16]{};
        Send(form->lstRows, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(shown));
        EXPECT_EQ(form->lstRows.List(row), reinterpret_cast<const char16_t*>(shown));
    }
    EXPECT_EQ(form->lstRows.List(0), u" This");
}

TEST_F(FormLists, KeepChoiceAndTopRowWhenARowIsReplaced) {
    AddRows(50);
    form->lstRows.SetListIndex(12);
    Send(form->lstRows, LB_SETTOPINDEX, 10);
    Seen();
    form->lstRows.SetList(12, u"another");
    form->lstRows.SetList(3, u"far off");
    EXPECT_EQ(Send(form->lstRows, LB_GETCURSEL), 12);
    EXPECT_EQ(TopRow(), 10);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormLists, TellWhenAnotherRowStandsOnTop) {
    AddRows(50);
    form->lstRows.Scroll = [this] { form->Note("Scroll " + std::to_string(form->lstRows.TopIndex())); };
    Send(form->lstRows, WM_VSCROLL, SB_LINEDOWN);
    Send(form->lstRows, WM_VSCROLL, SB_LINEDOWN);
    Send(form->lstRows, WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(Seen(), (Events{"Scroll 1", "Scroll 2"}));
}

TEST_F(FormLists, TellOnceTheModelHasScrolledThem) {
    AddRows(50);
    form->lstRows.SetListIndex(49);
    Seen();
    EXPECT_EQ(form->lstRows.TopIndex(), TopRow());
    EXPECT_GT(TopRow(), 0);
}

TEST_F(FormLists, FollowTheChoiceWhenRowsComeAndGoAheadOfIt) {
    AddRows(3);
    form->lstRows.SetListIndex(1);
    form->lstRows.AddItem(u"0");
    EXPECT_EQ(form->lstRows.ListIndex(), 2);
    EXPECT_EQ(Send(form->lstRows, LB_GETCURSEL), 2);
    form->lstRows.RemoveItem(0);
    EXPECT_EQ(Send(form->lstRows, LB_GETCURSEL), 1);
    form->lstRows.RemoveItem(1);
    EXPECT_EQ(Send(form->lstRows, LB_GETCURSEL), -1);
}

// Far above what it takes (0.3 s here), far below what one painting per row takes.
TEST_F(FormLists, TakeTenThousandRowsQuickly) {
    const DWORD start = ::GetTickCount();
    AddRows(10000);
    const DWORD spent = ::GetTickCount() - start;
    EXPECT_EQ(Send(form->lstRows, LB_GETCOUNT), 10000);
    EXPECT_LT(spent, 5000U);
    RecordProperty("milliseconds", static_cast<int>(spent));
}

} // namespace

} // namespace kestrelmoor::tests
