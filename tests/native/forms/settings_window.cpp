#include "tests/native/forms/settings_window.h"

#include "platform/form_peer.h"
#include "shell/Main.h"
#include "shell/settings.h"

namespace kestrelmoor::tests {

namespace {

constexpr char kActiveMark[] = "* ";

std::string Row(bool marked, const String& text) {
    return (marked ? kActiveMark : "") + ToUtf8(text);
}

} // namespace

TestTexts SettingsTexts() {
    TestTexts texts = StandardTexts();
    for (const int number : {402, 403, 406, 407, 408, 409, 410, 413, 420, 1001, 1002, 1003})
        texts[static_cast<std::int16_t>(number)] = FromUtf8("text " + std::to_string(number));
    texts[401] = u"&text 401";
    texts[404] = u"text 404: %1";
    texts[411] = u"&text 411: %1";
    texts[421] = u"text 421: %1";
    return texts;
}

SettingsWindow::SettingsWindow() {
    Application::Current().SetDesktop(&platform::TheDesktop());
    gWinVersion = GetWinVersion();
    SpeakTestLanguage(SettingsTexts());
    gUserName = u"user";
    gReminderTime = kDefaultReminderTime;
    gSyncLocal = true;
    gHelpFile = u"C:\\Program Files\\Kestrelmoor\\help.html";
}

SettingsWindow::~SettingsWindow() {
    Application::Current().UnloadAll();
    form.reset();
    Application::Current().SetDesktop(nullptr);
}

void SettingsWindow::Configure(const StringList& servers, const std::vector<bool>& active) {
    gServers = Array<String>(1, servers);
    gServerCount = static_cast<std::int16_t>(servers.size());
    gActiveBits = Array<std::uint8_t>(1, std::vector<std::uint8_t>(servers.size(), 0));
    for (std::size_t i = 0; i < active.size(); ++i)
        SetBit(static_cast<std::int32_t>(i), active[i]);
}

void SettingsWindow::Load() {
    form = Application::Current().Make<frmSettings>();
    form->Load();
}

void SettingsWindow::Open() {
    Load();
    form->Show();
}

Lines SettingsWindow::Rows() {
    Lines rows;
    for (int row = 0; row < List().ListCount(); ++row)
        rows.push_back(Row(List().Selected(row), List().List(row)));
    return rows;
}

std::string SettingsWindow::CurrentRow() {
    return List().ListIndex() < 0 ? "none" : ToUtf8(List().List(List().ListIndex()));
}

Lines SettingsWindow::LanguageRows() {
    Lines rows;
    for (int row = 0; row < Languages().ListCount(); ++row)
        rows.push_back(ToUtf8(Languages().List(row)) + "=" + std::to_string(Languages().ItemData(row)));
    return rows;
}

void SettingsWindow::Click(StringView name) {
    ASSERT_TRUE(user.ClickOn(At(name))) << ToUtf8(name);
}

void SettingsWindow::Type(StringView text) {
    ASSERT_TRUE(user.Type(text));
}

void SettingsWindow::ClearDays() {
    Click(u"txtRemind");
    for (std::size_t left = Days().Text().size(); left > 0; --left)
        ASSERT_TRUE(user.Press(key::kBack));
    ASSERT_EQ(Days().Text(), u"");
}

void SettingsWindow::TypeDays(StringView text) {
    ClearDays();
    Type(text);
}

void SettingsWindow::AddName(StringView name) {
    Click(u"cmdAddServer");
    Type(name);
}

Lines SettingsWindow::Servers() {
    Lines servers;
    for (std::int32_t i = 1; i <= gServerCount; ++i)
        servers.push_back(Row(GetBit(i - 1), gServers[i]));
    return servers;
}

} // namespace kestrelmoor::tests
