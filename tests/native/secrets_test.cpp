#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr char16_t kMark[] = u"XYZZY";
constexpr char16_t kMarkedOld[] = u"Old-XYZZY-1";
constexpr char16_t kMarkedNew[] = u"New-XYZZY-2";
constexpr char16_t kMarkedOther[] = u"Other-XYZZY-3";

bool Holds(StringView text) {
    return text.find(kMark) != StringView::npos;
}

/// Byte by byte, in UTF-8 and in UTF-16.
bool Holds(std::string_view bytes) {
    constexpr std::u16string_view mark = kMark;
    const std::string_view wide(reinterpret_cast<const char*>(mark.data()), mark.size() * 2);
    return bytes.find("XYZZY") != std::string_view::npos || bytes.find(wide) != std::string_view::npos;
}

/// Passwords that bear a mark, which must be found nowhere but in the password boxes and calls.
class Secrets : public PasswordWindow {
  protected:
    Secrets() {
        ConfigureAll();
        StartDiagnosing();
        for (auto* const store :
             {&world.network.Local().store, &world.network.FindComputer(u"ARCHIVE")->store,
              &world.network.FindDomain(u"PRACTICE")->store})
            store->Find(u"user")->password = kMarkedOld;
    }

    ~Secrets() override {
        Application::Current().UnloadAll();
        ExpectNoTrace();
    }

    void ExpectNoTrace() {
        ExpectNoneOnForms();
        ExpectNoneInStores();
        ExpectNoneInCalls();
    }

    static void ExpectNoneOnForms() {
        for (const auto& window : Application::Current().Forms()) {
            EXPECT_FALSE(Holds(window->Caption()));
            EXPECT_FALSE(Holds(window->Tag()));
            for (const auto& control : window->Controls())
                ExpectNoneOn(*control);
        }
    }

    static void ExpectNoneOn(const Control& control) {
        EXPECT_FALSE(Holds(control.Caption()) || Holds(control.Tag()) || Holds(control.ToolTipText()))
            << ToUtf8(control.Name());
        EXPECT_FALSE(Holds(TextShownBy(control))) << ToUtf8(control.Name());
    }

    /// What can be read of a control's content: nothing behind a mask.
    static String TextShownBy(const Control& control) {
        String text;
        if (const auto* const box = dynamic_cast<const TextBox*>(&control))
            text = box->PasswordChar().empty() ? box->Text() : String();
        else if (const auto* const list = dynamic_cast<const ListBox*>(&control))
            for (int row = 0; row < list->ListCount(); ++row)
                text += list->List(row) + u'\n';
        return text;
    }

    void ExpectNoneInStores() const {
        for (const auto& [path, file] : world.files.Files())
            EXPECT_FALSE(Holds(path) || Holds(std::string_view(file.content))) << ToUtf8(path);
        for (const auto& [path, registry_key] : world.registry.Keys())
            for (const practice::RegistryValue& value : registry_key.values)
                EXPECT_FALSE(Holds(value.name) ||
                             Holds(std::string_view(reinterpret_cast<const char*>(value.data.data()),
                                                    value.data.size())))
                    << ToUtf8(path);
    }

    void ExpectNoneInCalls() const {
        for (const practice::Call& call : world.calls.All())
            for (const String& argument : call.arguments)
                EXPECT_FALSE(Holds(argument)) << call.name;
        for (const practice::Box& box : world.boxes.All())
            EXPECT_FALSE(Holds(box.text) || Holds(box.title));
    }
};

} // namespace

TEST_F(Secrets, LeaveNoTraceInARunThatSucceeds) {
    for (const int nth : {1, 2, 3})
        AtPasswordCall(nth, [this] { ExpectNoTrace(); });
    Run(kMarkedOld, kMarkedNew);
    EXPECT_EQ(world.network.Local().store.Find(u"user")->password, kMarkedNew);
    EXPECT_GE(Log().size(), 12U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInARunThatFails) {
    Run(kMarkedOther, kMarkedNew);
    EXPECT_NE(Status().find("system 86"), std::string::npos);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInARunOfEqualPasswords) {
    Run(kMarkedOld, kMarkedOld);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceWhereTheConfirmationDiffers) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    Box(u"txtConfirm").SetText(kMarkedOther);
    ClickOk();
    EXPECT_EQ(Boxes().size(), 1U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceOnTheWayBack) {
    Configure({u"\\\\ARCHIVE", u"PRACTICE"}, false);
    Run(kMarkedOther, kMarkedNew);
    ClickOk();
    ASSERT_NE(OnlyForm(), nullptr);
    ASSERT_NE(OnlyForm(), form.get());
    for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"})
        EXPECT_EQ(OnlyForm()->Get<TextBox>(name).Text(), u"") << ToUtf8(name);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceAtTheLogOff) {
    Run(kMarkedOld, kMarkedNew);
    user.CloseWindow(*form);
    EXPECT_EQ(world.session_ends.size(), 1U);
    ExpectNoTrace();
}

TEST_F(Secrets, LeaveNoTraceInAWindowThatIsCancelled) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    ExpectNoTrace();
    user.Press(key::kEscape);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(Secrets, LeaveNoTraceInTheOtherMode) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    Same().SetValue(0);
    ExpectNoTrace();
    ClickOk();
    ExpectNoTrace();
}

TEST_F(Secrets, AreSeenByTheSearchWhereTheyStand) {
    Open();
    EXPECT_TRUE(Holds(StringView(kMarkedOld)));
    EXPECT_TRUE(Holds(std::string_view("a New-XYZZY-2 b")));
    const practice::Bytes bytes = practice::TextData(kMarkedNew);
    EXPECT_TRUE(Holds(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size())));
    TypeInto(u"txtNewPass", kMarkedNew);
    EXPECT_TRUE(Holds(Box(u"txtNewPass").Text()));
}

} // namespace kestrelmoor::tests
