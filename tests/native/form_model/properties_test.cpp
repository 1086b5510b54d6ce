#include "tests/form_model_shared/entry_form.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/raised.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

using Record = RecordingDesktop::Record;

class Properties : public testing::Test {
  protected:
    void TearDown() override { Application::Current().UnloadAll(); }

    std::shared_ptr<ProbeForm> form = MakeProbe();
};

TEST_F(Properties, OfAControlAreKept) {
    Label& label = form->lblText;
    label.Move(10, 20, 30, 40);
    label.SetLeft(15);
    EXPECT_EQ(label.Left(), 15);
    EXPECT_EQ(label.Width(), 30);
    label.SetToolTipText(u"tip");
    EXPECT_EQ(label.ToolTipText(), u"tip");
    label.SetForeColor(0xFF);
    EXPECT_EQ(label.ForeColor(), 0xFFU);
    label.SetBackColor(0xFF00);
    EXPECT_EQ(label.BackColor(), 0xFF00U);
    form->txtText.SetPasswordChar(u"x");
    EXPECT_EQ(form->txtText.PasswordChar(), u"x");
    form->txtText.SetBorderStyle(0);
    EXPECT_EQ(form->txtText.BorderStyle(), 0);
    form->lstRows.SetTabStops({89, 120});
    EXPECT_EQ(form->lstRows.TabStops(), (std::vector<int>{89, 120}));
}

TEST_F(Properties, OfAFormAreKept) {
    form->SetCaption(u"caption");
    EXPECT_EQ(form->Caption(), u"caption");
    form->SetMousePointer(mouse_pointer::kHourglass);
    EXPECT_EQ(form->MousePointer(), mouse_pointer::kHourglass);
    form->SetForeColor(0xFF);
    EXPECT_EQ(form->ForeColor(), 0xFFU);
    form->SetBackColor(0xFF00);
    EXPECT_EQ(form->BackColor(), 0xFF00U);
}

TEST_F(Properties, AFormWithoutAWindowHasNoFrame) {
    EXPECT_EQ(form->Width(), 5175);
    form->SetHeight(1000);
    EXPECT_EQ(form->ClientHeight(), 1000);
    EXPECT_EQ(form->Height(), 1000);
}

TEST_F(Properties, LinesAndShapesHaveNoFont) {
    EXPECT_FALSE(form->linRule.HasFont());
    EXPECT_FALSE(form->shpBand.HasFont());
    EXPECT_TRUE(form->lblText.HasFont());
}

TEST_F(Properties, AFontIsTakenOverWithAllItsValues) {
    Font font;
    font.SetName(u"Serif");
    font.SetCharset(238);
    font.SetSize(18);
    font.SetBold(true);
    font.SetItalic(true);
    font.SetUnderline(true);
    Font other;
    other.Assign(font);
    EXPECT_EQ(other.Name(), u"Serif");
    EXPECT_EQ(other.Charset(), 238);
    EXPECT_EQ(other.Size(), 18);
    EXPECT_TRUE(other.Bold());
    EXPECT_TRUE(other.Italic());
    EXPECT_TRUE(other.Underline());
}

TEST_F(Properties, TheDefaultButtonLooksSoWhereNoButtonHasTheFocus) {
    EXPECT_TRUE(form->cmdOK.LooksDefault());
    form->Show();
    ASSERT_EQ(form->ActiveControl(), &form->txtText);
    EXPECT_TRUE(form->cmdOK.LooksDefault());
    form->cmdOK.SetDefault(false);
    EXPECT_FALSE(form->cmdOK.LooksDefault());
}

TEST_F(Properties, AUserControlWithoutAMakerIsRefused) {
    static constexpr ControlDesign kControls[] = {{.name = u"ucNone", .kind = ControlKind::UserControl}};
    class Unmade : public Form {
      public:
        Unmade() : Form({u"frmUnmade", u"", 900, 900, false, true, false, kControls}) {}
    };
    EXPECT_EQ(RaisedNumber([] { Application::Current().Make<Unmade>(); }), 5);
}

class ShownProperties : public testing::Test {
  protected:
    void SetUp() override {
        form->Show();
        desktop.Take();
    }
    void TearDown() override { Application::Current().UnloadAll(); }

    RecordingDesktop desktop;
    std::shared_ptr<EntryForm> form = Application::Current().Make<EntryForm>();
};

TEST_F(ShownProperties, ABoxMayBeDesignedWithoutABorder) {
    EXPECT_EQ(form->txtDays.BorderStyle(), 1);
    EXPECT_EQ(form->ucEntry.txtEntry.BorderStyle(), 0);
}

TEST_F(ShownProperties, ANewDefaultButtonIsShownBehindTheOneThatWas) {
    form->cmdAdd.SetDefault(true);
    EXPECT_EQ(desktop.Take(), (Record{"cmdOK Default", "cmdAdd Default"}));
    form->cmdAdd.SetDefault(true);
    EXPECT_EQ(desktop.Take(), Record{});
    form->cmdAdd.SetDefault(false);
    EXPECT_EQ(desktop.Take(), Record{"cmdAdd Default"});
    form->cmdCancel.SetDefault(true);
    EXPECT_EQ(desktop.Take(), Record{"cmdCancel Default"});
}

TEST_F(ShownProperties, OnlyTheButtonsWhoseLookChangesAreShownAnewAsTheFocusMoves) {
    form->cmdAdd.SetFocus();
    EXPECT_EQ(desktop.Take(), (Record{"cmdAdd takes focus", "cmdAdd Default", "cmdOK Default"}));
    form->cmdCancel.SetFocus();
    EXPECT_EQ(desktop.Take(),
              (Record{"cmdCancel takes focus", "cmdAdd Default", "cmdOK Default", "cmdCancel Default"}));
}

TEST_F(ShownProperties, TheFocusThatAKeyMovesIsTheWindowsToo) {
    EXPECT_TRUE(form->KeyDown(key::kTab, 0));
    EXPECT_EQ(desktop.Take(), Record{"lstNames takes focus"});
}

TEST_F(ShownProperties, AUserControlCanTakeTheFocusWhereOneOfItsPartsCan) {
    EXPECT_TRUE(form->ucEntry.CanTakeFocus());
    form->ucEntry.txtEntry.SetEnabled(false);
    EXPECT_TRUE(form->ucEntry.CanTakeFocus());
    form->ucEntry.cmdPick.SetEnabled(false);
    EXPECT_FALSE(form->ucEntry.CanTakeFocus());
}

} // namespace

} // namespace kestrelmoor::tests
