#include "tests/native/secrets/secrets.h"

namespace kestrelmoor::tests {

Secrets::Secrets() {
    StartDiagnosing();
    for (const char16_t* const server : {u"\\\\WORKBENCH", u"\\\\ARCHIVE", u"\\\\DC1"})
        SetPassword(server, kMarkedOld);
}

Secrets::~Secrets() {
    form.reset();
    Application::Current().UnloadAll();
    ExpectNoTrace();
}

void Secrets::ExpectNoTrace() {
    search.Look();
    EXPECT_EQ(search.Found(), std::set<std::string>{});
}

void Secrets::SetPassword(StringView server, StringView password) {
    world.network.StoreAt(String(server))->Find(u"user")->password = password;
}

void Secrets::TypeOldOfEach(StringView local, StringView archive, StringView domain) {
    TypeOld(0, local);
    TypeOld(1, archive);
    TypeOld(2, domain);
    Leave();
}

void Secrets::TypeNew(StringView password) {
    TypeInto(u"txtNewPass", password);
    TypeInto(u"txtConfirm", password);
}

void Secrets::TakeWindow() {
    form = std::dynamic_pointer_cast<frmPass>(OnlyForm()->shared_from_this());
}

Form* Secrets::FindForm(StringView name) {
    for (const auto& loaded : Application::Current().Forms())
        if (loaded->Name() == name)
            return loaded.get();
    return nullptr;
}

void Secrets::AtNextPump(StringView name, std::function<void(Form&)> action) {
    world.actions.Queue([name = String(name), action] {
        Form* const found = FindForm(name);
        ASSERT_NE(found, nullptr) << ToUtf8(name);
        action(*found);
    });
}

} // namespace kestrelmoor::tests
