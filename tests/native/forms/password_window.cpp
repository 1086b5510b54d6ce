#include "tests/native/forms/password_window.h"

#include "localization/language_resolution.h"
#include "platform/form_peer.h"
#include "platform/practice/world/log_on.h"
#include "shell/Main.h"
#include "tests/native/support/accounts_of.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor::tests {

namespace {

Lines ControlsThat(const Form& form, bool (Control::*holds)() const) {
    Lines names;
    for (const auto& control : form.Controls())
        if ((control.get()->*holds)())
            names.push_back(ToUtf8(control->Name()));
    return names;
}

} // namespace

practice::Library ScriptedLanguage(std::int16_t number) {
    practice::Library library;
    library.path = u"C:\\Program Files\\Kestrelmoor\\" + FromUtf8(std::to_string(number)) + u".loc";
    library.kind = practice::LibraryKind::Scripted;
    library.script.languages = {number};
    library.script.font_name = "Scripted Sans";
    library.script.font_charset = 204;
    library.script.help_file = "scripted.html";
    return library;
}

PasswordWindow::PasswordWindow() {
    Application::Current().SetDesktop(&platform::TheDesktop());
    gWinVersion = GetWinVersion();
    gLocalizer = nullptr;
    EXPECT_FALSE(LoadLocalization(0x409));
    gLangID = 0x409;
    gUserName = u"user";
    gForceWindow = true;
}

PasswordWindow::~PasswordWindow() {
    Application::Current().UnloadAll();
    form.reset();
    EXPECT_EQ(gPassFormCount, 0);
    Application::Current().SetDesktop(nullptr);
    ShowSettings = mShowSettings;
}

void PasswordWindow::Configure(const StringList& servers, bool local) {
    gServers = Array<String>(1, servers);
    gServerCount = static_cast<std::int16_t>(servers.size());
    gActiveBits = Array<std::uint8_t>(1, std::vector<std::uint8_t>((servers.size() + 7) / 8, 0xFF));
    gSyncLocal = local;
}

void PasswordWindow::LiftPolicies() {
    for (practice::Computer& computer : world.network.computers)
        computer.store.policy = {};
    for (practice::Domain& domain : world.network.domains)
        domain.store.policy = {};
}

void PasswordWindow::Open() {
    form = Application::Current().Make<frmPass>();
    form->Show();
}

Lines PasswordWindow::Rows() {
    Lines rows;
    for (int row = 0; row < List().ListCount(); ++row)
        rows.push_back(ToUtf8(List().List(row)));
    return rows;
}

Lines PasswordWindow::Targets() {
    Lines targets;
    for (const std::string& row : Rows())
        targets.push_back(row.substr(0, row.find('\t')));
    return targets;
}

Lines PasswordWindow::VisibleControls() {
    return ControlsThat(*form, &Control::Visible);
}

Lines PasswordWindow::EnabledControls() {
    return ControlsThat(*form, &Control::Enabled);
}

void PasswordWindow::TypeInto(StringView name, StringView text) {
    ASSERT_TRUE(user.ClickOn(At(name)));
    ASSERT_TRUE(user.Type(text));
}

void PasswordWindow::TypePasswords(StringView old_password, StringView new_password) {
    TypeInto(u"txtOldPass", old_password);
    TypeInto(u"txtNewPass", new_password);
    TypeInto(u"txtConfirm", new_password);
}

void PasswordWindow::ClickOk() {
    const String new_password = Box(u"txtNewPass").Text();
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    const auto& faults = world.calls.Faults();
    const bool told_in_advance = std::any_of(faults.begin(), faults.end(), [](const practice::Fault& fault) {
        return fault.name == "NetUserChangePassword" && fault.code == 0;
    });
    if (!told_in_advance && Box(u"txtNewPass").Text() == new_password)
        ProveReport(new_password);
}

void PasswordWindow::ProveReport(const String& new_password) {
    const std::string paragraphs = "\r\n\r\n" + Status();
    for (const std::string& target : Targets()) {
        if (paragraphs.find("\r\n\r\n" + target + ": The password has been changed.") == std::string::npos)
            continue;
        auto* const accounts =
            AccountsOf(world.network, target.starts_with(' ') ? String() : FromUtf8(target));
        ASSERT_NE(accounts, nullptr) << target;
        EXPECT_EQ(practice::LogOn(*accounts, u"user", new_password, world.clock.Now()), 0U) << target;
    }
}

void PasswordWindow::Run(StringView old_password, StringView new_password) {
    Open();
    TypePasswords(old_password, new_password);
    ClickOk();
}

void PasswordWindow::AtPasswordCall(int nth, std::function<void()> action) {
    world.calls.Before("NetUserChangePassword", std::move(action), nth);
}

Lines PasswordWindow::ChangedServers() const {
    Lines servers;
    for (const practice::Call& call : world.calls.Of("NetUserChangePassword"))
        servers.push_back(ToUtf8(call.arguments.at(0)));
    return servers;
}

Form* PasswordWindow::OnlyForm() {
    const auto& forms = Application::Current().Forms();
    return forms.size() == 1 ? forms.front().get() : nullptr;
}

} // namespace kestrelmoor::tests
