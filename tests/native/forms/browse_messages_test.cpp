#include "platform/practice/system_windows.h"
#include "tests/native/forms/browse_network.h"

#include <utility>

namespace kestrelmoor::tests {

namespace {

using practice::ItemPath;
using practice::SystemWindows;

constexpr char16_t kPrompt[] = u"Choose one:";

/// A dialog's window with a control in it, and what the dialog was sent.
class BrowseMessages : public BrowseNetwork {
  protected:
    BrowseMessages() {
        Begin();
        gBrowseTitle = kPrompt;
        dialog = SystemWindows::Current().Add(
            {0, u"#32770", u"Browse", [this](std::uint32_t message, std::intptr_t parameter) {
                 received.push_back(std::to_string(message) + " " + std::to_string(parameter));
             }});
    }
    ~BrowseMessages() override { SystemWindows::Current().Remove(dialog); }

    WindowHandle Child(const char16_t* class_name, const char16_t* text) {
        return SystemWindows::Current().Add({dialog, class_name, text, {}});
    }
    std::string TextOf(WindowHandle window) { return ToUtf8(SystemWindows::Current().Find(window)->text); }
    Lines Take() { return std::exchange(received, {}); }

    std::int32_t Select(const ItemPath& path) {
        const practice::ItemBytes list = world.shell.ListOf(path);
        return BrowseCallback(dialog, 2, reinterpret_cast<std::intptr_t>(list.data()), 0);
    }

    WindowHandle dialog = 0;
    Lines received;
};

} // namespace

TEST_F(BrowseMessages, AtTheBeginningTheStartPathBecomesTheSelectionAheadOfTheSearchForThePrompt) {
    const char16_t path[] = u"C:\\Lang";
    const auto data = reinterpret_cast<std::intptr_t>(path);
    EXPECT_EQ(BrowseCallback(dialog, 1, 0, data), 0);
    EXPECT_EQ(Take(), Lines{"1127 " + std::to_string(data)});
    const Lines names = Names();
    ASSERT_EQ(names, (Lines{"SendMessageW", "EnumChildWindows"}));
    EXPECT_EQ(world.calls.All()[0].arguments.at(2), u"1");
}

TEST_F(BrowseMessages, WithoutAStartPathNothingIsSelected) {
    EXPECT_EQ(BrowseCallback(dialog, 1, 0, 0), 0);
    EXPECT_EQ(Take(), Lines{});
}

TEST_F(BrowseMessages, ThePromptIsTheFirstStaticControlThatShowsExactlyTheTitle) {
    Child(u"Static", u"");
    Child(u"Static", u"Choose one: ");
    Child(u"Static", u"choose one:");
    Child(u"Button", kPrompt);
    Child(u"STATIC", kPrompt);
    Child(u"Stati", kPrompt);
    const WindowHandle prompt = Child(u"Static", kPrompt);
    Child(u"Static", kPrompt);
    BrowseCallback(dialog, 1, 0, 0);
    EXPECT_EQ(gBrowsePrompt, prompt);
}

TEST_F(BrowseMessages, AClassWhoseNameOnlyBeginsWithStaticIsTakenForIt) {
    const WindowHandle prompt = Child(u"StaticText", kPrompt);
    BrowseCallback(dialog, 1, 0, 0);
    EXPECT_EQ(gBrowsePrompt, prompt);
}

TEST_F(BrowseMessages, APromptOfAnEarlierDialogIsForgotten) {
    gBrowsePrompt = 4711;
    BrowseCallback(dialog, 1, 0, 0);
    EXPECT_EQ(gBrowsePrompt, 0U);
}

TEST_F(BrowseMessages, TheSearchAsksForClassLengthAndTextAndNoMoreThanItNeeds) {
    const WindowHandle button = Child(u"Button", kPrompt);
    EXPECT_EQ(FindPromptControl(button, 0), 1);
    EXPECT_EQ(Names(), Lines{"GetClassNameW"});
    EXPECT_EQ(world.calls.All()[0].arguments.at(1), u"7");
    world.calls.Clear();
    const WindowHandle empty = Child(u"Static", u"");
    EXPECT_EQ(FindPromptControl(empty, 0), 1);
    EXPECT_EQ(Names(), (Lines{"GetClassNameW", "SendMessageW"}));
    world.calls.Clear();
    const WindowHandle other = Child(u"Static", u"other");
    EXPECT_EQ(FindPromptControl(other, 0), 1);
    ASSERT_EQ(Names(), (Lines{"GetClassNameW", "SendMessageW", "SendMessageW"}));
    EXPECT_EQ(world.calls.All()[1].arguments.at(1), u"14");
    EXPECT_EQ(world.calls.All()[1].arguments.at(2), u"0");
    EXPECT_EQ(world.calls.All()[1].arguments.at(3), u"0");
    EXPECT_EQ(world.calls.All()[2].arguments.at(1), u"13");
    EXPECT_EQ(world.calls.All()[2].arguments.at(2), u"6");
    EXPECT_EQ(FindPromptControl(Child(u"Static", kPrompt), 0), 0);
}

TEST_F(BrowseMessages, ASelectionEnablesOkWithItsKind) {
    EXPECT_EQ(Select({kArchive}), 0);
    EXPECT_EQ(Take(), Lines{"1125 2"});
    Select({kGroup});
    EXPECT_EQ(Take(), Lines{"1125 1"});
    Select({kArchive, 0});
    EXPECT_EQ(Take(), Lines{"1125 0"});
    Select({kWhole});
    EXPECT_EQ(Take(), Lines{"1125 0"});
    EXPECT_EQ(BrowseCallback(dialog, 2, 0, 0), 0);
    EXPECT_EQ(Take(), Lines{"1125 0"});
}

TEST_F(BrowseMessages, ASelectionOfNothingAsksTheShellForNothing) {
    BrowseCallback(dialog, 2, 0, 0);
    EXPECT_EQ(Names(), Lines{"SendMessageW"});
    EXPECT_EQ(world.calls.All()[0].arguments.at(2), u"0");
}

TEST_F(BrowseMessages, WithoutAPromptASelectionIsShownNowhere) {
    Select({kArchive});
    EXPECT_EQ(world.calls.Count("SendMessageW"), 1U);
}

TEST_F(BrowseMessages, ASelectionShowsInThePromptAndWhatCantBePickedLeavesIt) {
    gBrowsePrompt = Child(u"Static", kPrompt);
    Select({kArchive});
    EXPECT_EQ(TextOf(gBrowsePrompt), "Choose one:   \\\\ARCHIVE");
    Select({kWhole});
    EXPECT_EQ(TextOf(gBrowsePrompt), "Choose one:   \\\\ARCHIVE");
    Select({kGroup});
    EXPECT_EQ(TextOf(gBrowsePrompt), "Choose one:   GROUP");
}

TEST_F(BrowseMessages, ThePromptIsSetAheadOfTheButtonByTheMessageForAText) {
    gBrowsePrompt = Child(u"Static", kPrompt);
    Select({kArchive});
    const std::vector<practice::Call> sent = world.calls.Of("SendMessageW");
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_EQ(sent[0].arguments.at(1), u"12");
    EXPECT_EQ(sent[0].arguments.at(2), u"0");
    EXPECT_EQ(sent[1].arguments.at(1), u"1125");
}

TEST_F(BrowseMessages, ALongPromptIsGivenToItsControlWhole) {
    gBrowseTitle = String(5000, u'p');
    gBrowsePrompt = Child(u"Static", u"");
    std::string whole(5000, 'p');
    whole.append("   GROUP");
    Select({kGroup});
    EXPECT_EQ(TextOf(gBrowsePrompt), whole);
}

TEST_F(BrowseMessages, AnyOtherMessageIsNothing) {
    for (const std::uint32_t message : {0U, 3U, 4U, 5U, 1125U, 1127U, 0xFFFFFFFFU})
        EXPECT_EQ(BrowseCallback(dialog, message, 1, 1), 0);
    EXPECT_EQ(Names(), Lines{});
}

} // namespace kestrelmoor::tests
