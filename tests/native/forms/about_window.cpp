#include "tests/native/forms/about_window.h"

#include "platform/form_peer.h"
#include "shell/Main.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor::tests {

TestTexts AboutTexts() {
    TestTexts texts = StandardTexts();
    for (const int number : {203, 204, 206, 1001, 1003})
        texts[static_cast<std::int16_t>(number)] = FromUtf8("text " + std::to_string(number));
    texts[201] = u"text 201: %1, %2, %3";
    texts[202] = u"text 202: %1";
    texts[205] = kTranslatorsPage;
    return texts;
}

AboutWindow::AboutWindow() {
    Application::Current().SetDesktop(&platform::TheDesktop());
    gWinVersion = GetWinVersion();
    SpeakTestLanguage(AboutTexts());
    gHelpFile = kAboutHelp;
    world.calls.Clear();
}

AboutWindow::~AboutWindow() {
    Application::Current().UnloadAll();
    form.reset();
    Application::Current().SetDesktop(nullptr);
}

void AboutWindow::Install(StringView address) {
    world.registry.Create(kUninstallKey)
        .Set(u"UrlInfoAbout", platform::registry_type::kString, practice::TextData(address));
}

void AboutWindow::Say(std::int16_t number, const String& text) {
    TestTexts texts = AboutTexts();
    texts[number] = text;
    SpeakTestLanguage(texts);
}

void AboutWindow::PutTheme(std::size_t updates) {
    modules_left = updates;
    practice::Appearance& appearance = world.machine.appearance;
    appearance.app_themed = appearance.theme_active = true;
    appearance.theme_colours = {{13, 0x0D0D0D}, {15, 0x0F0F0F}, {16, 0x101010},
                                {17, 0x111111}, {20, 0x141414}, {26, 0x1A1A1A}};
    UpdateThemeState();
    ASSERT_TRUE(gThemed);
    world.calls.Clear();
}

void AboutWindow::Make() {
    form = Application::Current().Make<frmAbout>();
}

void AboutWindow::Load() {
    if (!form || form->IsUnloaded())
        Make();
    form->Load();
}

void AboutWindow::Open() {
    Load();
    form->Show();
}

void AboutWindow::CloseAndDrop() {
    form->Unload();
    form.reset();
}

std::string AboutWindow::Opening(const String& file) const {
    return "ShellExecuteW(\"" + std::to_string(form->Window()) + "\", \"open\", \"" + ToUtf8(file) +
           "\", \"1\")";
}

} // namespace kestrelmoor::tests
