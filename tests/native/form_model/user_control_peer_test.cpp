#include "tests/form_model_shared/entry_form.h"
#include "tests/native/support/raised.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

using Record = RecordingDesktop::Record;

class UserControlPeers : public testing::Test {
  protected:
    void TearDown() override { Application::Current().UnloadAll(); }

    RecordingDesktop desktop;
    std::shared_ptr<EntryForm> form = Application::Current().Make<EntryForm>();
};

TEST_F(UserControlPeers, AreMadeAheadOfThoseOfTheirParts) {
    form->Load();
    EXPECT_EQ(desktop.Take(), (Record{"frmEntry made", "txtDays made", "fraNames made", "lstNames made",
                                      "ucEntry made", "cmdPick made", "txtEntry made", "cbTongue made",
                                      "cmdAdd made", "cmdOK made", "cmdCancel made"}));
}

TEST_F(UserControlPeers, EndBehindThoseOfTheirParts) {
    form->Show();
    desktop.Take();
    form->Unload();
    const Record ended = desktop.Take();
    const auto part = std::find(ended.begin(), ended.end(), "cmdPick ended");
    const auto whole = std::find(ended.begin(), ended.end(), "ucEntry ended");
    ASSERT_NE(whole, ended.end());
    EXPECT_LT(part, whole);
}

TEST_F(UserControlPeers, LeaveTheFocusToThatOfTheirPart) {
    form->Show();
    desktop.Take();
    form->ucEntry.SetFocus();
    EXPECT_EQ(desktop.Take(), (Record{"txtEntry takes focus"}));
}

TEST_F(UserControlPeers, AreShownAheadOfTheNewsThatTheyAreHiddenOrOfAnotherSize) {
    form->Show();
    form->ucEntry.Hide = [this] { desktop.Note("Hide"); };
    form->ucEntry.Resize = [this] { desktop.Note("Resize"); };
    desktop.Take();
    form->ucEntry.SetWidth(2000);
    form->ucEntry.SetVisible(false);
    EXPECT_EQ(desktop.Take(), (Record{"ucEntry Place", "Resize", "ucEntry Visible", "Hide"}));
}

TEST_F(UserControlPeers, AnEscapeIsUsedUpByTheCancelButton) {
    int clicks = 0;
    form->cmdCancel.Click = [&clicks] { ++clicks; };
    form->Show();
    EXPECT_TRUE(form->KeyDown(key::kEscape, 0));
    EXPECT_EQ(clicks, 1);
}

TEST_F(UserControlPeers, AMarkThatIsTurnedReplacesNoRow) {
    form->Show();
    form->lstNames.AddItem(u"alpha");
    desktop.Take();
    form->lstNames.SetSelected(0, true);
    EXPECT_EQ(desktop.Take(), (Record{"lstNames row marked 0"}));
}

TEST_F(UserControlPeers, AFocusThatNoPartCanTakeRaises) {
    form->Show();
    form->ucEntry.SetVisible(false);
    EXPECT_EQ(RaisedNumber([this] { form->ucEntry.SetFocus(); }), 5);
    form->ucEntry.SetVisible(true);
    form->ucEntry.txtEntry.SetEnabled(false);
    form->ucEntry.cmdPick.SetEnabled(false);
    EXPECT_EQ(RaisedNumber([this] { form->ucEntry.SetFocus(); }), 5);
}

TEST_F(UserControlPeers, APartIsFoundInItsUserControlAndNotOnTheForm) {
    EXPECT_EQ(&form->ucEntry.Find(u"txtEntry"), &form->ucEntry.txtEntry);
    EXPECT_EQ(RaisedNumber([this] { form->Find(u"txtEntry"); }), 5);
    EXPECT_EQ(RaisedNumber([this] { form->ucEntry.Find(u"txtDays"); }), 5);
}

TEST_F(UserControlPeers, ThePartsTakeAFontByItsValues) {
    int told = 0;
    form->ucEntry.Font().SetName(u"Tahoma");
    form->ucEntry.Font().SetCharset(204);
    form->ucEntry.Font().SetBold(true);
    form->ucEntry.txtEntry.Font().FontChanged = [&told] { ++told; };
    form->ucEntry.txtEntry.Font().Assign(form->ucEntry.Font());
    EXPECT_EQ(form->ucEntry.txtEntry.Font().Name(), u"Tahoma");
    EXPECT_EQ(form->ucEntry.txtEntry.Font().Charset(), 204);
    EXPECT_TRUE(form->ucEntry.txtEntry.Font().Bold());
    EXPECT_EQ(told, 3);
}

} // namespace

} // namespace kestrelmoor::tests
