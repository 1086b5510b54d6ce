#include "tests/native/rules/run_rules.h"

#include "platform/collation.h"
#include "platform/practice/world/world.h"
#include "runtime/forms/controls.h"
#include "shell/program_state.h"
#include "tests/native/rules/form_rules.h"
#include "tests/native/support/accounts_of.h"

#include <algorithm>
#include <set>
#include <vector>

namespace kestrelmoor::tests {

namespace {

using practice::AccountStore;

const String kBreak = u"\r\n\r\n";

struct TargetResult {
    String name;
    AccountStore* accounts; ///< null: nobody has that name
    bool changed;
    bool failed; ///< equal passwords are no failure
};

const practice::Account* UserOf(AccountStore& accounts) {
    return accounts.Find(practice::TheWorld().network.user.name);
}

/// As the paragraphs tell it.
TargetResult ResultOf(const String& name, const String& paragraphs, Findings& found) {
    String not_changed = TextOf(327, {name});
    not_changed.erase(std::min(not_changed.size(), not_changed.find(u"%2")));
    const String equal = TextOf(327, {name, TextOf(330)});
    const auto tells = [&](const String& text) { return paragraphs.find(kBreak + text) != String::npos; };
    const bool changed = tells(TextOf(326, {name}) + kBreak);
    found.Expect(changed != tells(not_changed), "one paragraph for each target", name);
    AccountStore* const accounts =
        AccountsOf(practice::TheWorld().network, name.starts_with(u' ') ? String() : name);
    return {name, accounts, changed, !changed && !tells(equal + kBreak)};
}

/// A language without places for the reason tells a failure and equal passwords alike.
bool TellsReasons() {
    return TextOf(327, {u"", u"one"}) != TextOf(327, {u"", u"another"});
}

/// A language without places for the target tells how many there were, and not which.
bool TellsTargets() {
    return TextOf(326, {u"one"}) != TextOf(326, {u"another"}) &&
           TextOf(327, {u"one"}) != TextOf(327, {u"another"});
}

int Count(const String& paragraph, const String& paragraphs) {
    int count = 0;
    for (std::size_t at = paragraphs.find(kBreak + paragraph + kBreak); at != String::npos;
         at = paragraphs.find(kBreak + paragraph + kBreak, at + 1))
        ++count;
    return count;
}

bool IsLoggedOnAccount(const String& target) {
    return target.starts_with(u' ') || platform::CompareText(target, gDomainName) == 0;
}

void CheckEnd(const Form& form, const std::vector<TargetResult>& results, Findings& found) {
    const bool logs_off = std::ranges::any_of(
        results, [](const TargetResult& result) { return result.changed && IsLoggedOnAccount(result.name); });
    const bool failed = std::ranges::any_of(results, &TargetResult::failed);
    found.Expect((form.Find(u"cmdCancel").Caption() == TextOf(317)) == logs_off,
                 "the session ends exactly where the password that it began with was changed");
    found.Expect(!TellsReasons() || form.Find(u"cmdOK").Enabled() == (failed && !logs_off),
                 "the way back is offered exactly where a target has failed and the session goes on");
}

} // namespace

void RunRules::Remember() {
    mFormer.clear();
    practice::Network& network = practice::TheWorld().network;
    const auto remember = [&](AccountStore& accounts) {
        if (const practice::Account* const account = UserOf(accounts))
            mFormer[&accounts] = account->password;
    };
    for (practice::Computer& computer : network.computers)
        remember(computer.store);
    for (practice::Domain& domain : network.domains)
        remember(domain.store);
}

void RunRules::Look(const Form& form, Findings& found) const {
    const auto& list = On<ListBox>(form, u"lstOldPass");
    const String paragraphs = kBreak + On<TextBox>(form, u"txtStatus").Text() + kBreak;
    if (!TellsTargets()) {
        found.Expect(Count(TextOf(326), paragraphs) + Count(TextOf(327), paragraphs) == list.ListCount(),
                     "as many paragraphs as targets");
        return;
    }
    const String& new_password = On<TextBox>(form, u"txtNewPass").Text();
    std::vector<TargetResult> results;
    std::set<const AccountStore*> changed;
    for (int row = 0; row < list.ListCount(); ++row) {
        const String& text = list.List(row);
        results.push_back(ResultOf(text.substr(0, text.find(u'\t')), paragraphs, found));
        if (results.back().changed)
            changed.insert(results.back().accounts);
    }
    for (const TargetResult& result : results) {
        const practice::Account* const account = result.accounts ? UserOf(*result.accounts) : nullptr;
        if (result.changed)
            found.Expect(account != nullptr && account->password == new_password,
                         "a target that is told as changed has the new password", result.name);
        else if (account != nullptr && !changed.contains(result.accounts))
            found.Expect(account->password == mFormer.at(result.accounts),
                         "a target that is told as not changed has its former password", result.name);
    }
    CheckEnd(form, results, found);
}

} // namespace kestrelmoor::tests
