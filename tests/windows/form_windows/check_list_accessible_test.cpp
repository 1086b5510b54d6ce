#include "tests/form_model_shared/entry_form.h"
#include "tests/windows/form_windows/windows_of_form.h"

#include <oleacc.h>

namespace kestrelmoor::tests {

namespace {

std::vector<LONG> told_rows;

void CALLBACK NoteStateChange(HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
    if (object == OBJID_CLIENT)
        told_rows.push_back(child);
}

/// A screen reader's view of the list.
class FormAccessibility : public Shown<EntryForm> {
  protected:
    void SetUp() override {
        Shown<EntryForm>::SetUp();
        list.AddItem(u"alpha");
        list.AddItem(u"beta");
        list.SetSelected(1, true);
        object = ObjectOf(list);
    }
    void TearDown() override {
        if (object)
            object->Release();
        Shown<EntryForm>::TearDown();
    }

    static IAccessible* ObjectOf(const Control& control) {
        using Convert = HRESULT WINAPI(LRESULT, REFIID, WPARAM, void**);
        auto* const convert = reinterpret_cast<Convert*>(
            reinterpret_cast<void*>(::GetProcAddress(::LoadLibraryW(L"oleacc.dll"), "ObjectFromLresult")));
        const LRESULT answer = Send(control, WM_GETOBJECT, 0, static_cast<LPARAM>(OBJID_CLIENT));
        void* found = nullptr;
        if (!convert || answer <= 0 || FAILED(convert(answer, __uuidof(IAccessible), 0, &found)))
            return nullptr;
        return static_cast<IAccessible*>(found);
    }
    static VARIANT Child(LONG number) {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = number;
        return child;
    }
    LONG State(LONG child) const {
        VARIANT state{};
        EXPECT_EQ(object->get_accState(Child(child), &state), S_OK) << child;
        return state.lVal;
    }
    LONG Role(LONG child) const {
        VARIANT role{};
        EXPECT_EQ(object->get_accRole(Child(child), &role), S_OK) << child;
        return role.lVal;
    }

    ListBox& list = form->lstNames;
    IAccessible* object = nullptr;
};

TEST_F(FormAccessibility, TellsWhichMarksAreSet) {
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(State(1) & STATE_SYSTEM_CHECKED, 0);
    EXPECT_EQ(State(2) & STATE_SYSTEM_CHECKED, STATE_SYSTEM_CHECKED);
    list.SetSelected(0, true);
    list.SetSelected(1, false);
    EXPECT_EQ(State(1) & STATE_SYSTEM_CHECKED, STATE_SYSTEM_CHECKED);
    EXPECT_EQ(State(2) & STATE_SYSTEM_CHECKED, 0);
    EXPECT_EQ(State(CHILDID_SELF) & STATE_SYSTEM_CHECKED, 0);
}

TEST_F(FormAccessibility, TellsTheRowWithTheFocus) {
    ASSERT_NE(object, nullptr);
    list.SetListIndex(0);
    StartFrom(list);
    constexpr LONG kBoth = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
    EXPECT_EQ(State(1) & kBoth, kBoth);
    EXPECT_EQ(State(2) & kBoth, 0);
    list.SetEnabled(false);
    EXPECT_EQ(State(2) & STATE_SYSTEM_UNAVAILABLE, STATE_SYSTEM_UNAVAILABLE);
}

TEST_F(FormAccessibility, TellsRowsThatAreScrolledOut) {
    ASSERT_NE(object, nullptr);
    for (int count = 0; count < 20; ++count)
        list.AddItem(u"gamma");
    EXPECT_EQ(State(1) & STATE_SYSTEM_OFFSCREEN, 0);
    EXPECT_EQ(State(20) & STATE_SYSTEM_OFFSCREEN, STATE_SYSTEM_OFFSCREEN);
}

TEST_F(FormAccessibility, CallsRowsCheckButtonsAndTheListAList) {
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(Role(1), ROLE_SYSTEM_CHECKBUTTON);
    EXPECT_NE(Role(CHILDID_SELF), ROLE_SYSTEM_CHECKBUTTON);
}

TEST_F(FormAccessibility, HearsOfEachMarkThatIsTurned) {
    told_rows.clear();
    const HWINEVENTHOOK hook =
        ::SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, nullptr, &NoteStateChange,
                          ::GetCurrentProcessId(), ::GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    list.SetSelected(1, false);
    list.SetSelected(0, true);
    hand->Settle();
    ::UnhookWinEvent(hook);
    EXPECT_EQ(told_rows, (std::vector<LONG>{2, 1}));
}

TEST_F(FormAccessibility, TurnsAMarkAsAClickOnItDoes) {
    ASSERT_NE(object, nullptr);
    StartFrom(form->txtDays);
    EXPECT_EQ(object->accDoDefaultAction(Child(1)), S_OK);
    EXPECT_EQ(form->Take(), Events{}); // whoever asks is answered first
    hand->Settle();
    EXPECT_EQ(Seen(), (Events{"txtDays LostFocus to lstNames", "lstNames GotFocus", "lstNames Click 0",
                              "lstNames ItemCheck 0 on"}));
    EXPECT_EQ(list.ListIndex(), 0);
    object->accDoDefaultAction(Child(2));
    object->accDoDefaultAction(Child(2));
    hand->Settle();
    EXPECT_EQ(Seen(), (Events{"lstNames Click 1", "lstNames ItemCheck 1 off", "lstNames Click 1",
                              "lstNames ItemCheck 1 on"}));
}

TEST_F(FormAccessibility, TurnsTheMarkThoughRowsGoWhenTheFocusComes) {
    ASSERT_NE(object, nullptr);
    form->On("txtDays LostFocus to lstNames", [this] { list.RemoveItem(0); });
    StartFrom(form->txtDays);
    object->accDoDefaultAction(Child(2));
    hand->Settle();
    ASSERT_EQ(list.ListCount(), 1);
    EXPECT_FALSE(list.Selected(0));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(FormAccessibility, BringsARowIntoViewToTurnIt) {
    ASSERT_NE(object, nullptr);
    for (int count = 0; count < 20; ++count)
        list.AddItem(u"gamma");
    Seen();
    EXPECT_EQ(object->accDoDefaultAction(Child(20)), S_OK);
    hand->Settle();
    EXPECT_TRUE(list.Selected(19));
    EXPECT_EQ(State(20) & STATE_SYSTEM_OFFSCREEN, 0);
}

TEST_F(FormAccessibility, TurnsNothingThatAClickCouldNot) {
    ASSERT_NE(object, nullptr);
    list.SetEnabled(false);
    object->accDoDefaultAction(Child(1));
    hand->Settle();
    list.SetEnabled(true);
    ::EnableWindow(WindowOf(*form), FALSE);
    object->accDoDefaultAction(Child(1));
    hand->Settle();
    ::EnableWindow(WindowOf(*form), TRUE);
    EXPECT_FALSE(list.Selected(0));
    object->accDoDefaultAction(Child(1));
    list.Clear();
    hand->Settle();
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(FormAccessibility, OutlivesTheWindowInPeace) {
    ASSERT_NE(object, nullptr);
    form->Unload();
    EXPECT_TRUE(FAILED(object->accDoDefaultAction(Child(2))));
    VARIANT state{};
    EXPECT_TRUE(FAILED(object->get_accState(Child(2), &state)) || (state.lVal & STATE_SYSTEM_CHECKED) == 0);
}

TEST_F(FormAccessibility, OfAListWithoutMarksIsTheSystemsOwn) {
    const LRESULT answer = Send(form->cbTongue, WM_GETOBJECT, 0, static_cast<LPARAM>(OBJID_CLIENT));
    EXPECT_EQ(answer, 0);
}

} // namespace

} // namespace kestrelmoor::tests
