#include "tests/native/rules/frmAbout_rules.h"

#include "shell/program_state.h"
#include "tests/native/rules/form_rules.h"

namespace kestrelmoor::tests {

namespace {

/// A link is hot from the first movement over it until its timer finds the mouse away.
void CheckLink(const Form& form, StringView label, StringView timer, Findings& found) {
    const auto& link = On<Label>(form, label);
    found.Expect(link.Font().Underline() == On<Timer>(form, timer).Running(),
                 "a link is underlined while its timer runs", String(label));
    found.Expect(!link.Visible() || link.MousePointer() == mouse_pointer::kCustom,
                 "a link has a pointer of its own", String(label));
}

} // namespace

void CheckAboutWindow(const Form& form, Findings& found) {
    CheckForm(form, found);
    found.Expect(form.Find(u"cmdHelp").Enabled() == !gHelpFile.empty(), "help where there is a help file");
    const auto& ok = On<CommandButton>(form, u"cmdOK");
    found.Expect(ok.Enabled() && ok.Default() && ok.Cancel(), "Enter and Escape click OK");
    const auto& address = form.Find(u"lblLocWeb");
    found.Expect(address.Visible() == !address.Caption().empty(), "an address that is there is shown");
    found.Expect(form.Caption() == TextOf(202, {u"Kestrelmoor"}), "the window's title");
    found.Expect(form.FocusHolder() != nullptr, "some control has the focus");
    CheckLink(form, u"lblWeb", u"tmrWeb", found);
    CheckLink(form, u"lblLocWeb", u"tmrLocWeb", found);
}

} // namespace kestrelmoor::tests
