#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

class SettingsReminder : public SettingsWindow {
  protected:
    std::string Sentence() { return TagOf(u"lblRemind"); }

    /// The key as the box lets it through: 0 for a dropped one.
    int Passed(int key) {
        Days().KeyPress(key);
        return key;
    }
};

} // namespace

TEST_F(SettingsReminder, TheSentenceFollowsEveryKeystroke) {
    Open();
    ClearDays();
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 0");
    Type(u"1");
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 1");
    Type(u"2");
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 12");
    user.Press(key::kBack);
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 1");
}

TEST_F(SettingsReminder, TheSentencesCaptionHasItsMarkWhileCuesAreHidden) {
    Open();
    ASSERT_EQ(CaptionOf(u"lblRemind"), "text 411: noun 412 of 14");
    Days().SetText(u"7");
    EXPECT_EQ(CaptionOf(u"lblRemind"), "&text 411: noun 412 of 7");
    EXPECT_EQ(CaptionOf(u"lblLang"), "text 401");
}

TEST_F(SettingsReminder, TheSentenceCountsTheNumberThatTheTextBeginsWith) {
    Open();
    const std::pair<const char16_t*, const char*> counts[] = {
        {u"3 weeks", "3"}, {u"abc", "0"}, {u"", "0"},         {u"1.4", "1"},   {u"1.5", "2"},
        {u"2.5", "2"},     {u"-3", "-3"}, {u"1e2", "100"},    {u"100", "100"}, {u"  5", "5"},
        {u"007", "7"},     {u"0", "0"},   {u"99999", "99999"}};
    for (const auto& [text, count] : counts) {
        Days().SetText(text);
        EXPECT_EQ(Sentence(), std::string("&text 411: noun 412 of ") + count) << ToUtf8(text);
    }
}

TEST_F(SettingsReminder, AChangeEnablesOk) {
    Open();
    TypeDays(u"1");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsReminder, ANumberThatFitsIn32BitsReachesTheSentenceUnhindered) {
    Open();
    TypeDays(u"2147483647");
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 2147483647");
}

TEST_F(SettingsReminder, ANumberBeyond32BitsRaisesAnOverflowThatNobodyTraps) {
    Open();
    TypeDays(u"214748364");
    EXPECT_EQ(RaisedNumber([&] { user.Type(u"8"); }), 6);
    EXPECT_EQ(Sentence(), "&text 411: noun 412 of 214748364");
}

TEST_F(SettingsReminder, ADigitTooManyInAStoredTextOverflowsTheSameWay) {
    Open();
    EXPECT_EQ(RaisedNumber([&] { Days().SetText(u"99999999999999999999"); }), 6);
    EXPECT_EQ(RaisedNumber([&] { Days().SetText(u"-2147483649"); }), 6);
}

TEST_F(SettingsReminder, TheBoxTakesDigitsAndBackspaceAndNothingElse) {
    Open();
    for (int key = 1; key <= 0xFFFF; ++key) {
        const bool taken = key == 8 || (key >= 48 && key <= 57);
        ASSERT_EQ(Passed(key), taken ? key : 0) << key;
    }
}

TEST_F(SettingsReminder, WhatElseIsTypedIsDropped) {
    Open();
    TypeDays(u"-1.5e3 x7\u0663");
    EXPECT_EQ(Days().Text(), u"1537");
}

TEST_F(SettingsReminder, MoreThan99KeepsTheFocusAnd99LetsItGo) {
    Open();
    TypeDays(u"100");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Days());
    TypeDays(u"99");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Languages());
}

TEST_F(SettingsReminder, TheBoxMayBeLeftEmptyOrWithZero) {
    Open();
    ClearDays();
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Languages());
    TypeDays(u"0");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Languages());
}

TEST_F(SettingsReminder, AnyFractionAbove99KeepsTheFocus) {
    Open();
    Click(u"txtRemind");
    Days().SetText(u"99.5");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Days());
    Days().SetText(u"99 days");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Languages());
}

TEST_F(SettingsReminder, ThereIsNoLowerLimit) {
    Open();
    Click(u"txtRemind");
    Days().SetText(u"-5");
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &Languages());
}

TEST_F(SettingsReminder, MoreThan99SwallowsTheClickThatWouldLeave) {
    Open();
    TypeDays(u"100");
    user.ClickOn(At(u"chkRemind"));
    EXPECT_EQ(form->ActiveControl(), &Days());
    EXPECT_EQ(Check(u"chkRemind").Value(), 0);
    user.ClickOn(At(u"cmdOK"));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(gReminderTime, 1209600);
}

TEST_F(SettingsReminder, EnterLeavesTheBoxAloneSoThatMoreThan99IsTaken) {
    Open();
    TypeDays(u"100");
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(gReminderTime, 8640000);
}

TEST_F(SettingsReminder, TheBoxIsTintedWhileItHasTheFocus) {
    Open();
    EXPECT_EQ(Days().BackColor(), 0x80000005U);
    Click(u"txtRemind");
    EXPECT_EQ(Days().BackColor(), 0xBFFFFFU);
    EXPECT_EQ(Days().ForeColor(), 0x80000008U);
    Click(u"chkRemind");
    EXPECT_EQ(Days().BackColor(), 0x80000005U);
    EXPECT_EQ(Days().ForeColor(), 0x80000008U);
}

} // namespace kestrelmoor::tests
