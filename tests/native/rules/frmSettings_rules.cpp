#include "tests/native/rules/frmSettings_rules.h"

#include "platform/collation.h"
#include "runtime/conversions.h"
#include "runtime/forms/user_control.h"
#include "shell/program_state.h"
#include "shell/settings.h"
#include "tests/native/rules/form_rules.h"

#include <algorithm>
#include <set>

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kPlaceholder[] = u"...";
constexpr std::int32_t kDay = 86400;

bool IsChecked(const Form& form, StringView name) {
    return On<CheckBox>(form, name).Value() != 0;
}

std::size_t Placeholders(const ListBox& list) {
    std::size_t count = 0;
    for (int row = 0; row < list.ListCount(); ++row)
        count += list.List(row) == kPlaceholder ? 1U : 0U;
    return count;
}

void CheckEnabled(const Form& form, Findings& found) {
    found.Expect(form.Find(u"chkLocalPass").Enabled() == !gDomainMember,
                 "the local password is the user's to choose outside a domain");
    const auto& permanent = On<CheckBox>(form, u"chkPermanent");
    found.Expect(permanent.Enabled() == !gTargetsNarrowed, "what was narrowed can't be kept for good");
    found.Expect(permanent.Enabled() || permanent.Value() == 0, "what can't be kept for good isn't");
    found.Expect(form.Find(u"cmdHelp").Enabled() == !gHelpFile.empty(), "help where there is a help file");
    for (const StringView name : {u"cmdAddServer", u"cmdCancel", u"cmdAbout", u"chkRemind", u"txtRemind",
                                  u"lstServers", u"cbLang", u"fraNetPwd"})
        found.Expect(form.Find(name).Enabled(), "is enabled always", String(name));
    found.Expect(On<ListBox>(form, u"lstServers").ListIndex() < 0 || form.Find(u"cmdRemServer").Enabled(),
                 "a chosen server can be removed");
    found.Expect(On<CommandButton>(form, u"cmdOK").Default() &&
                     On<CommandButton>(form, u"cmdCancel").Cancel(),
                 "Enter clicks OK and Escape Cancel");
    found.Expect(form.FocusHolder() != nullptr, "some control has the focus");
}

void CheckLanguages(const Form& form, Findings& found) {
    const auto& list = On<ComboBox>(form, u"cbLang");
    std::set<std::int32_t> numbers;
    for (int row = 0; row < list.ListCount(); ++row) {
        found.Expect(numbers.insert(list.ItemData(row)).second, "a language has one row", list.List(row));
        found.Expect(row == 0 || platform::CompareRows(list.List(row - 1), list.List(row)) <= 0,
                     "the languages are in order", list.List(row));
    }
    found.Expect(list.ListCount() > 0 && list.ItemData(0) == 0 && list.List(0) == u" " + TextOf(403),
                 "the automatic choice comes first");
}

void CheckCaptions(const Form& form, Findings& found) {
    constexpr std::pair<StringView, std::int16_t> kTexts[] = {
        {u"chkPermanent", 402}, {u"chkLocalPass", 406}, {u"fraNetPwd", 407}, {u"cmdAddServer", 408},
        {u"cmdRemServer", 409}, {u"chkRemind", 410},    {u"cmdAbout", 413},  {u"lblLang", 401},
        {u"cmdOK", 1001},       {u"cmdCancel", 1002},   {u"cmdHelp", 1003}};
    for (const auto& [name, number] : kTexts)
        found.Expect(ShowsText(form.Find(name), TextOf(number)), "shows its text", String(name));
    found.Expect(form.Caption() == TextOf(421, {u"Kestrelmoor"}), "the window's title");
}

} // namespace

HeldSettings HeldSettings::Now() {
    HeldSettings held;
    for (std::int32_t i = 1; i <= gServerCount; ++i) {
        held.servers.push_back(gServers[i]);
        held.active.push_back(GetBit(i - 1));
    }
    held.sync_local = gSyncLocal;
    held.auto_start = gAutoStart;
    held.reminder_time = gReminderTime;
    held.language = gLangID;
    return held;
}

/// Row by row, with the row of an entry that is being typed left out.
bool SettingsWindowRules::ShowsWhatIsHeld(const Form& form) const {
    const auto& list = On<ListBox>(form, u"lstServers");
    std::multiset<std::pair<String, bool>> shown;
    std::multiset<std::pair<String, bool>> held;
    // What bears the mark of an entry is taken for one: its check mark counts for nothing.
    const auto as_seen = [](const String& name, bool checked) {
        return std::pair(name, checked && name != kPlaceholder);
    };
    for (int row = 0; row < list.ListCount(); ++row)
        shown.insert(as_seen(list.List(row), list.Selected(row)));
    for (std::size_t i = 0; i < mHeld.servers.size(); ++i)
        held.insert(as_seen(mHeld.servers[i], mHeld.active[i]));
    if (form.Find(u"ucAddComp").Visible())
        shown.extract({kPlaceholder, false});
    const auto& languages = On<ComboBox>(form, u"cbLang");
    return shown == held && IsChecked(form, u"chkLocalPass") == mHeld.sync_local &&
           IsChecked(form, u"chkRemind") == mHeld.auto_start &&
           IsChecked(form, u"chkPermanent") == (gForceWindow && !gTargetsNarrowed) &&
           On<TextBox>(form, u"txtRemind").Text() == DecimalText(mHeld.reminder_time / kDay) &&
           (languages.ListIndex() < 0 || languages.ItemData(languages.ListIndex()) == mHeld.language);
}

void SettingsWindowRules::CheckOk(const Form& form, Findings& found) {
    const bool enabled = form.Find(u"cmdOK").Enabled();
    found.Expect(enabled || !mChanged, "once there is a change OK stays enabled");
    found.Expect(enabled || ShowsWhatIsHeld(form), "a change enables OK");
    const auto& entry = On<UserControl>(form, u"ucAddComp");
    const bool named = !dynamic_cast<const TextBox&>(entry.Find(u"txtComputer")).Text().empty();
    found.Expect(!enabled || mChanged || named || !mInputsSeen || !ShowsWhatIsHeld(form),
                 "nothing but a change enables OK");
    mChanged = enabled;
    found.Expect(HeldSettings::Now() == mHeld, "nothing but OK changes what the program holds");
}

void SettingsWindowRules::CheckServers(const Form& form, Findings& found) const {
    const auto& list = On<ListBox>(form, u"lstServers");
    const auto& entry = On<UserControl>(form, u"ucAddComp");
    const auto stored = static_cast<std::size_t>(std::ranges::count(mHeld.servers, String(kPlaceholder)));
    const std::size_t placeholders = Placeholders(list);
    for (int row = 1; row < list.ListCount(); ++row)
        found.Expect(platform::CompareRows(list.List(row - 1), list.List(row)) <= 0,
                     "the servers are in order", list.List(row));
    if (!entry.Visible()) {
        found.Expect(placeholders <= stored, "no row waits for a name while none is being typed");
        found.Expect(dynamic_cast<const TextBox&>(entry.Find(u"txtComputer")).Text().empty(),
                     "an entry that is closed is empty");
        return;
    }
    found.Expect(form.ActiveControl() == &entry, "the entry has the focus while it is open");
    found.Expect(placeholders >= 1 && placeholders <= stored + 1, "one row waits for the name");
    const int row = list.ListIndex();
    found.Expect(row >= 0 && list.List(row) == kPlaceholder, "the row that waits for the name is chosen");
    found.Expect(entry.Left() + entry.Width() <= list.Left() + list.Width() && entry.Left() > list.Left() &&
                     entry.Top() >= list.Top() && entry.Top() + entry.Height() <= list.Top() + list.Height(),
                 "the entry lies inside its list and leaves the check mark free");
}

void SettingsWindowRules::CheckReminder(const Form& form, Findings& found) const {
    const auto& box = On<TextBox>(form, u"txtRemind");
    const String start = DecimalText(mHeld.reminder_time / kDay);
    const double days = LeadingNumber(box.Text());
    found.Expect(days <= 99 || form.ActiveControl() == &box || box.Text() == start,
                 "a box with more than 99 days can't be left");
    // A stored time below zero brings its minus, and digits may be typed ahead of it.
    String digits = box.Text();
    if (const std::size_t minus = digits.find(u'-'); minus != String::npos && start.starts_with(u'-'))
        digits.erase(minus, 1);
    found.Expect(digits.find_first_not_of(u"0123456789") == String::npos, "days are digits");
    const auto& label = form.Find(u"lblRemind");
    try {
        const auto noun = gLocalizer->GetPluralText(412, RoundToInteger32(days));
        found.Expect(ShowsText(label, TextOf(411, {noun})), "the sentence fits its number");
    } catch (const RuntimeError&) {
        // A library without nouns, or a number that is none.
    }
    const auto& check = form.Find(u"chkRemind");
    found.Expect(box.Left() - check.Left() - check.Width() == 45, "the days stand behind their check box");
    const Control& box_and_label = box;
    found.Expect(label.Left() - box_and_label.Left() == 480 && label.Left() + label.Width() == 5055,
                 "the sentence goes on behind the days");
}

void SettingsWindowRules::Look(const Form& form, Findings& found) {
    CheckForm(form, found);
    CheckEnabled(form, found);
    CheckLanguages(form, found);
    CheckCaptions(form, found);
    CheckServers(form, found);
    CheckReminder(form, found);
    CheckOk(form, found);
    found.Expect(form.ClientWidth() == 5175 && form.ClientHeight() == 3855, "the window keeps its size");
}

} // namespace kestrelmoor::tests
