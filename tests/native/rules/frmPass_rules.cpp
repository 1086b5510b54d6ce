#include "tests/native/rules/frmPass_rules.h"

#include "platform/collation.h"
#include "platform/practice/list_views.h"
#include "platform/practice/window_places.h"
#include "shell/program_state.h"
#include "tests/native/rules/form_rules.h"

#include <algorithm>
#include <set>

namespace kestrelmoor::tests {

namespace {

bool IsSingle(const Form& form) {
    return On<CheckBox>(form, u"chkSame").Value() != 0;
}

/// The results stand in place of the entries: a run has been made.
bool ShowsResults(const Form& form) {
    return On<TextBox>(form, u"txtStatus").Visible();
}

const ListBox& Rows(const Form& form) {
    return On<ListBox>(form, u"lstOldPass");
}

const TextBox& OldPassword(const Form& form) {
    return On<TextBox>(form, u"txtOldPass");
}

String NameOfRow(const ListBox& list, int row) {
    const String& text = list.List(row);
    return text.substr(0, text.find(u'\t'));
}

/// Nothing, or something that sorts as the local computer's own row does.
bool IsBlank(const String& name) {
    return name.empty() || name.starts_with(u' ');
}

/// The length of the mask for a password.
std::int32_t MaskOf(std::size_t length) {
    return length == 0 ? 8 : static_cast<std::int32_t>(length);
}

/// Where controls stand from the top, in twips.
struct Layout {
    Twips height; ///< of the client area
    std::map<StringView, Twips> tops;
};

const Layout kSingle{2775,
                     {{u"chkSame", 600},
                      {u"txtOldPass", 960},
                      {u"lblOldPass", 1005},
                      {u"txtNewPass", 1440},
                      {u"lblNewPass", 1485},
                      {u"txtConfirm", 1800},
                      {u"lblConfirm", 1845},
                      {u"lblWait", 2400},
                      {u"cmdSettings", 2280},
                      {u"cmdOK", 2280},
                      {u"cmdCancel", 2280}}};
const Layout kList{3615,
                   {{u"chkSame", 600},
                    {u"lblOldPass", 1005},
                    {u"lstOldPass", 1320},
                    {u"txtNewPass", 2280},
                    {u"lblNewPass", 2325},
                    {u"txtConfirm", 2640},
                    {u"lblConfirm", 2685},
                    {u"lblWait", 3240},
                    {u"cmdSettings", 3120},
                    {u"cmdOK", 3120},
                    {u"cmdCancel", 3120}}};
const Layout kResults{3345, {{u"txtStatus", 600}, {u"cmdOK", 2850}, {u"cmdCancel", 2850}}};

void CheckLayout(const Form& form, Findings& found) {
    const Layout& told = ShowsResults(form) ? kResults : IsSingle(form) ? kSingle : kList;
    found.Expect(form.ClientHeight() == told.height, "the window is as high as its mode asks");
    for (const auto& [name, top] : told.tops)
        found.Expect(form.Find(name).Top() == top, "stands where its mode has it", String(name));
}

void CheckVisibility(const Form& form, Findings& found) {
    std::set<StringView> seen{u"txtUser", u"lblUser", u"cmdOK", u"cmdCancel"};
    if (ShowsResults(form))
        seen.insert(u"txtStatus");
    else
        seen.insert({u"chkSame", u"lblOldPass", u"lblNewPass", u"txtNewPass", u"lblConfirm", u"txtConfirm",
                     u"cmdSettings", IsSingle(form) ? u"txtOldPass" : u"lstOldPass"});
    if (!ShowsResults(form) && form.ActiveControl() == &OldPassword(form))
        seen.insert(u"txtOldPass");
    for (const auto& control : form.Controls())
        found.Expect(control->Visible() == seen.contains(control->Name()), "is seen in its mode alone",
                     control->Name());
}

void CheckBoxes(const Form& form, Findings& found) {
    for (const StringView name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"}) {
        const auto& box = On<TextBox>(form, name);
        found.Expect((box.PasswordChar() == u"*" || box.PasswordChar() == u"•") && box.ImeOff(),
                     "a password box is masked, without input method", String(name));
    }
    const auto& user = On<TextBox>(form, u"txtUser");
    found.Expect(!user.Enabled() && user.Text() == gUserName, "the user is shown and can't be changed");
    found.Expect(On<TextBox>(form, u"txtStatus").Locked(), "the results can't be typed in");
    const bool framed = OldPassword(form).BorderStyle() == 1;
    found.Expect(framed == IsSingle(form), "the old password's box has a border in the single mode alone");
}

void CheckCaptions(const Form& form, Findings& found) {
    constexpr std::pair<StringView, std::int16_t> kTexts[] = {
        {u"lblUser", 304},    {u"chkSame", 313},     {u"lblNewPass", 314},
        {u"lblConfirm", 315}, {u"cmdSettings", 305},
    };
    for (const auto& [name, number] : kTexts)
        found.Expect(ShowsText(form.Find(name), TextOf(number)), "shows its text", String(name));
    // A change of language in the list mode brings the single mode's text, until the mode is switched.
    const Control& old_password = form.Find(u"lblOldPass");
    found.Expect(ShowsText(old_password, TextOf(301)) ||
                     (!IsSingle(form) && ShowsText(old_password, TextOf(302))),
                 "the label of the old passwords says what the mode asks for");
}

/// Before a run; after one they tell its outcome.
void CheckEntry(const Form& form, Findings& found) {
    const auto& ok = On<CommandButton>(form, u"cmdOK");
    const auto& cancel = On<CommandButton>(form, u"cmdCancel");
    found.Expect(ok.Default() && cancel.Cancel(), "Enter clicks OK and Escape Cancel");
    found.Expect(ok.Caption() == TextOf(1001) && cancel.Caption() == TextOf(1002), "the buttons' words");
    found.Expect(form.Caption() == TextOf(303), "the window's title");
    found.Expect(form.FocusHolder() != nullptr, "some control has the focus");
    for (const StringView name :
         {u"cmdCancel", u"cmdSettings", u"txtNewPass", u"txtConfirm", u"txtOldPass", u"lstOldPass"})
        found.Expect(form.Find(name).Enabled(), "is enabled before a run", String(name));
    const int rows = Rows(form).ListCount();
    const bool offered = form.Find(u"chkSame").Enabled();
    found.Expect(rows == 0 || offered == (rows >= 2), "one password for each target from two targets on");
}

void CheckOutcome(const Form& form, Findings& found) {
    const auto& ok = On<CommandButton>(form, u"cmdOK");
    const auto& cancel = On<CommandButton>(form, u"cmdCancel");
    found.Expect(cancel.Default() && cancel.Cancel() && cancel.Enabled(), "Cancel can be used after a run");
    found.Expect(form.Caption() == TextOf(324), "the window's title after a run");
    found.Expect(ok.Caption() == TextOf(316), "OK leads back after a run");
    const bool logs_off = cancel.Caption() == TextOf(317);
    found.Expect(logs_off || cancel.Caption() == TextOf(1001), "Cancel has the words of OK after a run");
    found.Expect(!logs_off || !ok.Enabled(), "no way back where the session will end");
    found.Expect(!ok.Enabled() || form.FocusHolder() != nullptr, "a way back takes the focus");
    const String& results = On<TextBox>(form, u"txtStatus").Text();
    const bool closing_line = results.ends_with(u"\r\n\r\n" + TextOf(318));
    found.Expect(logs_off == closing_line, "the results end with the line on the end of the session");
    found.Expect(Rows(form).ListCount() == 0 || !results.empty(), "a paragraph for each target");
}

/// The box that is laid over the row in edit.
void CheckRowInEdit(const Form& form, Findings& found) {
    const ListBox& list = Rows(form);
    const TextBox& box = OldPassword(form);
    found.Expect(list.TabStop() != box.Visible(), "the list is a tab stop while no row is in edit");
    if (!box.Visible())
        return;
    found.Expect(form.ActiveControl() == &box, "the box of a row in edit has the focus");
    const int row = list.ListIndex();
    const platform::PixelRectangle client = practice::ClientArea(list);
    const int top = (row - practice::ListViews::Current().TopRow(list)) * practice::kRowHeight;
    const bool whole = row >= 0 && top >= 0 && top + practice::kRowHeight <= client.bottom;
    found.Expect(whole, "the row in edit is chosen and seen whole");
    const platform::ScreenPoint corner = practice::Corner(list);
    const platform::ScreenPoint origin = practice::Corner(form);
    const auto twips = [](int pixels) { return static_cast<Twips>(pixels) * practice::kTwipsPerPixel; };
    found.Expect(!whole || (box.Top() == twips(corner.y - origin.y + top) &&
                            box.Height() == twips(practice::kRowHeight) && box.Left() == 2160 &&
                            box.Left() + box.Width() == twips(corner.x - origin.x + client.right)),
                 "the box lies over its row");
}

} // namespace

std::size_t PasswordWindowRules::LengthOf(const String& folded_name) const {
    const auto found = mLengths.find(folded_name);
    return found == mLengths.end() ? 0 : found->second;
}

std::size_t PasswordWindowRules::TotalLength() const {
    std::size_t total = 0;
    for (const auto& [name, length] : mLengths)
        total += length;
    return total;
}

/// What is typed over a row is kept when the box is left, and comes back with the row.
void PasswordWindowRules::FollowEdit(const Form& form, Findings& found) {
    const ListBox& list = Rows(form);
    const bool editing = !IsSingle(form) && OldPassword(form).Visible() && list.ListIndex() >= 0;
    const String now = editing ? platform::FoldCase(NameOfRow(list, list.ListIndex())) : String();
    const std::size_t length = OldPassword(form).Text().size();
    // A row can be left and come back to at once: then its mask tells that the edit was kept.
    const bool kept = now != mEdited || (editing && MaskOf(mEditedLength) == list.ItemData(list.ListIndex()));
    if (!mEdited.empty() && kept)
        mLengths[mEdited] = mEditedLength;
    if (!now.empty() && now != mEdited)
        found.Expect(length == LengthOf(now), "a row's old password comes back when it is edited again",
                     std::to_string(length) + " in place of " + std::to_string(LengthOf(now)));
    mEdited = now;
    mEditedLength = length;
}

/// The single mode's old password waits while the list mode is on.
void PasswordWindowRules::FollowMode(const Form& form, Findings& found) {
    const bool single = IsSingle(form);
    const String& text = OldPassword(form).Text();
    if (single && !mWasSingle && mKnowsSingle)
        found.Expect(text == mSinglePassword, "the single mode's old password comes back with it");
    if (single) {
        mSinglePassword = text;
        mKnowsSingle = true;
    }
    mWasSingle = single;
}

bool PasswordWindowRules::KeepsPassword(const Form& form) const {
    return IsFor(form) && !mWasSingle && !mSinglePassword.empty();
}

void PasswordWindowRules::CheckButton(const Form& form, Findings& found) const {
    const TextBox& box = OldPassword(form);
    bool expected = !On<TextBox>(form, u"txtNewPass").Text().empty();
    if (IsSingle(form))
        expected = expected || !box.Text().empty();
    else if (box.Visible())
        expected = expected || box.Text().size() + TotalLength() - LengthOf(mEdited) > 0;
    else
        expected = expected || TotalLength() != 0;
    found.Expect(form.Find(u"cmdOK").Enabled() == expected,
                 "OK asks for a new password or at least one old password");
}

void PasswordWindowRules::CheckRows(const Form& form, Findings& found) const {
    const ListBox& list = Rows(form);
    std::set<String> names;
    for (int row = 0; row < list.ListCount(); ++row) {
        const String& text = list.List(row);
        const String name = NameOfRow(list, row);
        const String mask = text.substr(std::min(text.size(), name.size() + 1));
        found.Expect(names.insert(platform::FoldCase(name)).second, "a target has one row", name);
        found.Expect(mask.find_first_not_of(mask.empty() ? u'*' : mask[0]) == String::npos &&
                         (mask.empty() || mask[0] == u'*' || mask[0] == u'•'),
                     "a row shows nothing but a mask", name);
        found.Expect(static_cast<std::size_t>(list.ItemData(row)) == mask.size(),
                     "a row knows the length of its mask", name);
        const std::size_t length = LengthOf(platform::FoldCase(name));
        found.Expect(length != 0 ? mask.size() == length : mask.empty() || mask.size() == 8,
                     "the mask is as long as the password, and eight for none", name);
        found.Expect(row == 0 || platform::CompareRows(NameOfRow(list, row - 1), name) <= 0,
                     "the rows are in order", name);
        found.Expect(row == 0 || !name.starts_with(u' ') || IsBlank(NameOfRow(list, row - 1)),
                     "the local computer comes first", name);
    }
}

void PasswordWindowRules::Look(const Form& form, Findings& found) {
    CheckForm(form, found);
    CheckLayout(form, found);
    CheckVisibility(form, found);
    CheckBoxes(form, found);
    found.Expect(form.MousePointer() == mouse_pointer::kDefault, "no hourglass between inputs");
    if (ShowsResults(form)) {
        CheckOutcome(form, found);
        mRun.Look(form, found);
        return;
    }
    mRun.Remember();
    CheckEntry(form, found);
    CheckCaptions(form, found);
    FollowEdit(form, found);
    FollowMode(form, found);
    CheckButton(form, found);
    CheckRows(form, found);
    if (!IsSingle(form))
        CheckRowInEdit(form, found);
}

} // namespace kestrelmoor::tests
